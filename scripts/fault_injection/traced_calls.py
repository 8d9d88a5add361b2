"""strace makes the n-th call of each kind fail, or ends the run by a signal there, in static executables too."""

import os
import re
from signal import Signals

from sandbox import SCENARIOS, Fault
from verdict import UNTRIED

ERRORS = {
    "openat": ("EIO", "EMFILE", "ENFILE", "ENOMEM", "ENOSPC", "EACCES", "ENOENT", "EINTR"),
    "read": ("EIO", "EINTR", "ESTALE"),
    "write": ("EIO", "ENOSPC", "EDQUOT", "EINTR"),
    "close": ("EIO", "ENOSPC", "EINTR"),
    "mkdir": ("EIO", "ENOSPC", "EACCES"),
    "unlink": ("EIO", "EACCES"),
    "unlinkat": ("EIO", "EACCES"),
    "mkdirat": ("EIO", "ENOSPC", "EACCES"),
    "rename": ("EIO", "ENOSPC"),
    "renameat": ("EIO", "ENOSPC", "EACCES"),
    "fsync": ("EIO", "ENOSPC", "EINTR"),
    "flock": ("ENOLCK", "EWOULDBLOCK"),
    "poll": ("EINTR", "ENOMEM"),
    "ftruncate": ("EIO", "ENOSPC", "EINTR"),
    "brk": ("ENOMEM",),
    "mmap": ("ENOMEM",),
    "wait4": ("EINTR",),
}
OTHERWISE = ("EIO", "ENOMEM")
# What cannot fail, what belongs to the start of the process, and what strace itself relies on.
SPARED = {"execve", "exit_group", "arch_prctl", "set_tid_address", "set_robust_list", "rseq", "rt_sigreturn", "futex",
          "geteuid", "getpgrp", "getpid", "umask"}

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
    with lab.sandbox.status(scenario.earlier) as status:
        _, log = trace(lab, scenario, status)
    return re.findall(r"^(\w+)\(", log, re.MULTILINE)


def cases_of(lab, scenario, signals):
    counts = {}
    for call in calls_of(lab, scenario)[1:]:  # the first starts the command
        counts[call] = counts.get(call, 0) + 1
        for error in (*(ERRORS.get(call, OTHERWISE) if call not in SPARED else ()), *signals):
            yield scenario, call, counts[call], error


def try_call(lab, case):
    scenario, call, number, error = case
    kind = "signal" if error.startswith("SIG") else "error"
    with lab.sandbox.status(scenario.earlier) as status:
        outcome, log = trace(lab, scenario, status, "-e", f"trace={call}", "-e",
                             f"inject={call}:{kind}={error}:when={number}")
        if kind == "signal":
            was_ended = outcome.code == -Signals[error]
            return lab.sandbox.judge(scenario, status, outcome, Fault(error=error)) if was_ended else UNTRIED
        injected = INJECTED.search(log)
        if not injected:
            return UNTRIED
        return lab.sandbox.judge(scenario, status, outcome, Fault(call, error, injected[1] or injected[2] or ""))


KINDS = {"n-th call fails": 0.6, "no descriptor for the n-th open": 0.1, "killed at the n-th call": 0.2,
         "ended by SIGTERM at the n-th call": 0.1}  # fmt: skip
SHARES = dict(zip(SCENARIOS, (0.1, 0.12, 0.04, 0.07, 0.07)))


def kind_of(case):
    failing, no_descriptor, killed, ended = KINDS
    return {"SIGKILL": killed, "SIGTERM": ended, "EMFILE": no_descriptor, "ENFILE": no_descriptor}.get(case[3], failing)


def try_all(lab, shares=SHARES, signals=("SIGKILL",)):
    for scenario, share in shares.items():
        cases = list(cases_of(lab, scenario, signals))
        if not cases:
            lab.skip(f"calls of {scenario.name}", "strace cannot trace here")
        for kind, part in KINDS.items():
            chosen = [case for case in cases if kind_of(case) == kind]
            if chosen:
                lab.try_each(f"{kind}, {scenario.name}", chosen, lambda case: try_call(lab, case), share * part)
