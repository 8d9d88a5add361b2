"""Unusual environments: standard streams, variables, descriptors, signals, locale values."""

import dataclasses
import os
from itertools import product

from sandbox import ACCEPTING, REPEATED, UNATTENDED, Fault, Scenario, read
from verdict import Short

# Redirections of a run that needs its answers, and of one that needs none.
STREAMS = (">&-", "2>&-", ">&- 2>&-", ">/dev/full", ">/dev/full 2>/dev/full", ">/dev/null", "1</dev/null", "1</")
ANSWERLESS = ("<&-", "<&- >&-", "<&- >&- 2>&-", "</dev/full >/dev/full", "<&- >/dev/full", "</", "</dev/zero",
              "0>/dev/null")

PATHS = (None, "", "/", "/nowhere", "/dev/zero", "x" * 5000)
SIZES = ("", "0", "-1", "1", "2", "abc", "9" * 30, "99999")
VARIABLES = {
    "TZ": ("", ":", "X", "A" * 1000, "<+99>-99:99:99", ":/etc/passwd", ":/dev/zero", ":/nowhere", "UTC0,M99.9.9",
           "<" + "x" * 60 + ">0"),
    "COLUMNS": SIZES, "LINES": SIZES,
    **dict.fromkeys(("ICU_DATA", "ICU_TIMEZONE_FILES_DIR", "ICU_PLUGINS", "HOME", "PATH", "TMPDIR", "TZDIR", "LOCPATH",
                     "NLSPATH", "GCONV_PATH", "LANGUAGE", "LC_MESSAGES", "LANG", "IFS", "ENV"), PATHS),
    "MALLOC_PERTURB_": ("85",), "GLIBC_TUNABLES": ("glibc.malloc.tcache_count=0", "x" * 5000),
}  # fmt: skip

SHORT_DIALOG = Scenario("short dialogue", answers="1\n" * 3)
LOGGED = dataclasses.replace(ACCEPTING, options=("-cmdlog", "{status}/answers"))
SCREEN_LOST = Fault("write", path="pipe:")
LOCALES = 3000


def locale_values(random):
    """Unusual values: long ones of every form, and noise. None names a code page, so the copies stay the same."""
    pieces = ("de_DE", "de", "DE", "_", "-", "@", "=", ";", "%s", "/", "..", "collation", "POSIX", " ", "\t", "\udcff")
    for _ in range(LOCALES):
        length = random.choice((1, 7, 11, 12, 60, 96, 140, 155, 156, 157, 158, 200, 255, 256, 257, 1000, 20000))
        body = random.choice((
            "x" * length, "de_" + "X" * length, "de_DE_" + "V" * length, "de_DE@" + "m" * length, "de" + "_" * length,
            "de" + "-a" * (length // 2), "@" * length, "de_DE@" + "k=v;" * (length // 4), "d" * length + "_DE",
            "".join(random.choice(pieces) for _ in range(length // 4 + 1)),
        ))
        yield random.choice(("LC_ALL", "LC_CTYPE", "LANG")), body + random.choice(("", ".UTF-8"))


def ends_well(outcome, verdict):
    """The verdict, or that the run did not accept although it could."""
    if verdict or outcome.code == 9:
        return verdict
    return Short(f"crash: signal {-outcome.code}" if outcome.code < 0 else f"exit {outcome.code} though all is there")


def try_streams(lab, case):
    scenario, redirections = case
    with lab.sandbox.status() as status:
        outcome = lab.sandbox.run(scenario, status, ("sh", "-c", f'exec "$@" {redirections}', "sh"))
        if not scenario.answers.startswith(read(os.path.join(status, "answers")).decode()):
            return Short("a file of the run was taken for a standard stream")
        return ends_well(outcome, lab.sandbox.judge(scenario, status, outcome, SCREEN_LOST))


def try_variable(lab, case):
    scenario, name, value = case
    with lab.sandbox.status() as status:
        outcome = lab.sandbox.run(scenario, status, env={name: value})
        fault = SCREEN_LOST if name in ("COLUMNS", "LINES") else Fault()
        return ends_well(outcome, lab.sandbox.judge(scenario, status, outcome, fault))


def try_umask(lab, case):
    scenario, umask = case
    with lab.sandbox.status() as status:
        outcome = lab.sandbox.run(scenario, status, umask=int(umask, 8))
        return lab.sandbox.judge(scenario, status, outcome)


def try_descriptors(lab, case):
    scenario, _, number = case
    with lab.sandbox.status(scenario.earlier) as status:
        outcome = lab.sandbox.run(scenario, status, ("prlimit", f"--nofile={number}", "--"))
        return lab.sandbox.judge(scenario, status, outcome)


def try_ignored_signal(lab, case):
    scenario, name = case
    with lab.sandbox.status() as status:
        outcome = lab.sandbox.run(scenario, status, ("env", f"--ignore-signal={name}"))
        if lab.sandbox.printed(status, "lpr") is not None:
            return Short("printed again with lpr though lp succeeded")
        return ends_well(outcome, lab.sandbox.judge(scenario, status, outcome))


def try_locale(lab, case):
    scenario, name, value = case
    with lab.sandbox.status() as status:
        env = {"LC_ALL": None, name: value.encode(errors="surrogateescape")}
        outcome = lab.sandbox.run(scenario, status, env=env)
        return ends_well(outcome, lab.sandbox.judge(scenario, status, outcome))


def try_all(lab):
    runs = (UNATTENDED, ACCEPTING)
    streams = [*product((UNATTENDED,), (*ANSWERLESS, *STREAMS)), *product((LOGGED,), STREAMS)]
    lab.try_each("closed, full and odd standard streams", streams, lambda case: try_streams(lab, case))
    variables = [(scenario, name, value) for scenario in runs for name, values in VARIABLES.items() for value in values]
    lab.try_each("odd variables", variables, lambda case: try_variable(lab, case), 0.05)
    lab.try_each("odd umask", product(runs, ("0", "0777", "0222", "0077")), lambda case: try_umask(lab, case))
    descriptors = product((*runs, REPEATED), ("descriptors",), range(17))
    lab.try_each("limit of descriptors", descriptors, lambda case: try_descriptors(lab, case))
    signals = product(runs, ("CHLD", "PIPE", "INT", "HUP", "TERM", "CHLD,PIPE,INT"))
    lab.try_each("signals that the caller ignores", signals, lambda case: try_ignored_signal(lab, case))
    locales = [(scenario, *value) for value in locale_values(lab.random) for scenario in (UNATTENDED, SHORT_DIALOG)]
    lab.try_each("odd and long locale values", locales, lambda case: try_locale(lab, case), 0.06)
