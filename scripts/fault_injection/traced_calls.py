"""The n-th call of each kind fails, or is the last before a kill; strace makes it so, of static files too."""

import os
import re

from sandbox import SCENARIOS, Fault
from verdict import UNTRIED

ERRORS = {
    "openat": ("EIO", "EMFILE", "ENFILE", "ENOMEM", "ENOSPC", "EACCES", "ENOENT", "EINTR"),
    "read": ("EIO", "EINTR", "ESTALE"),
    "write": ("EIO", "ENOSPC", "EDQUOT", "EINTR"),
    "close": ("EIO", "ENOSPC", "EINTR"),
    "mkdir": ("EIO", "ENOSPC", "EACCES"),
    "unlink": ("EIO", "EACCES"),
    "rename": ("EIO", "ENOSPC"),
    "ftruncate": ("EIO", "ENOSPC", "EINTR"),
    "brk": ("ENOMEM",),
    "mmap": ("ENOMEM",),
    "wait4": ("EINTR",),
}
OTHERWISE = ("EIO", "ENOMEM")
# What cannot fail, what belongs to the start of the process, and what strace itself relies on.
SPARED = {"execve", "exit_group", "arch_prctl", "set_tid_address", "set_robust_list", "rseq", "rt_sigreturn", "futex"}

INJECTED = re.compile(r'^\w+\((?:AT_FDCWD<[^>]*>, )?(?:\d+<([^>]*)>|"([^"]*)")?.*\(INJECTED\)$', re.MULTILINE)


def trace(lab, scenario, status, *options):
    """Runs a scenario under strace. Returns its outcome and what strace wrote."""
    log = status + ".strace"
    outcome = lab.sandbox.run(scenario, status, prefix=("strace", "-y", "-o", log, *options))
    try:
        with open(log, encoding="utf-8", errors="replace") as file:
            return outcome, file.read()
    except FileNotFoundError:
        return outcome, ""
    finally:
        if os.path.exists(log):
            os.remove(log)


def calls_of(lab, scenario):
    with lab.sandbox.status(scenario.has_earlier_record) as status:
        _, log = trace(lab, scenario, status)
    return re.findall(r"^(\w+)\(", log, re.MULTILINE)


def cases_of(lab, scenario):
    counts = {}
    for call in calls_of(lab, scenario):
        if call not in SPARED:
            counts[call] = counts.get(call, 0) + 1
            for error in (*ERRORS.get(call, OTHERWISE), "SIGKILL"):
                yield scenario, call, counts[call], error


def try_call(lab, case):
    scenario, call, number, error = case
    kind = "signal" if error.startswith("SIG") else "error"
    with lab.sandbox.status(scenario.has_earlier_record) as status:
        outcome, log = trace(lab, scenario, status, "-e", f"trace={call}", "-e",
                             f"inject={call}:{kind}={error}:when={number}")
        path = ""
        if kind == "error":
            injected = INJECTED.search(log)
            if not injected:
                return UNTRIED
            path = injected[1] or injected[2] or ""
        elif outcome.code != -9:
            return UNTRIED
        return lab.sandbox.judge(scenario, status, outcome, Fault(call, error, path))


def kind_of(case):
    error = case[3]
    return "killed at the n-th call" if error == "SIGKILL" else \
        "no descriptor for the n-th open" if error in ("EMFILE", "ENFILE") else "n-th call fails"


def try_all(lab):
    for scenario, share in zip(SCENARIOS, (0.13, 0.15, 0.04, 0.08)):
        cases = list(cases_of(lab, scenario))
        for kind, part in (("n-th call fails", 0.7), ("no descriptor for the n-th open", 0.15), ("killed at the n-th call", 0.15)):
            what = f"{kind}, {scenario.name}"
            if not cases:
                lab.skip(what, "strace cannot trace here")
                continue
            chosen = [case for case in cases if kind_of(case) == kind]
            lab.try_each(what, chosen, lambda case: try_call(lab, case), share * part)
