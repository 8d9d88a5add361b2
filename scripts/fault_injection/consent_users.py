"""Attacks on zev-ask: another user puts links, pipes and files in its way, between any two of its calls."""

import ctypes
import glob
import os
import subprocess
from itertools import product

import mounts
import process
from consent_sandbox import COPYING, MASTER, SHARING, STATE, snapshot
from other_users import OTHER, ROOT, USER
from verdict import UNTRIED, Short

TEAM = 65532  # the group whose members may write to the master directory
TRIALS = 3000  # of the many that there are
MANY = 10**6  # calls, more than a run makes
HANG = 6.0  # seconds

_libc = ctypes.CDLL(None)
_TRACEME, _DETACH, _SYSCALL = 0, 17, 24


def trace_me():
    _libc.ptrace(_TRACEME, 0, None, None)


def start_stopped(command, calls, **options):
    """Starts a command and stops it after that many calls. Returns it, and how many it made if it ended before."""
    run = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                           start_new_session=True, preexec_fn=trace_me, **options)
    os.waitpid(run.pid, 0)  # stopped as it starts
    for stops in range(2 * calls):  # before each call, and after it
        _libc.ptrace(_SYSCALL, run.pid, None, None)
        _, status = os.waitpid(run.pid, 0)
        if not os.WIFSTOPPED(status):
            run.returncode = os.waitstatus_to_exitcode(status)
            run.stdout.close()
            return run, stops // 2
    return run, None


def directory(path, home):
    """A directory with names that a run could look for, and that lead out of it."""
    os.mkdir(path)
    for name in ("license", "terms", "gone", "rocket"):
        os.symlink(home, os.path.join(path, name))
    for name in ("lock", "SHA256SUMS"):
        os.symlink(home + "/file", os.path.join(path, name))
    os.mkfifo(os.path.join(path, "acceptance"))
    os.utime(path, (1, 1))


# Paths below the place. What is there is moved away if the system lets another user do that.
TARGETS = (STATE, STATE + "/rocket/{terms}.log", MASTER + "/rocket", MASTER + "/rocket/{terms}",
           MASTER + "/.zev-ask-*", MASTER + "/.zev-ask-000000")  # fmt: skip
KINDS = {
    "link": lambda path, home: os.symlink(home, path),
    "link to a new name": lambda path, home: os.symlink(home + "/new", path),
    "pipe": lambda path, _: os.mkfifo(path),
    "file": lambda path, _: os.mknod(path),
    "directory": directory,
}


def plant(place, target, kind, terms):
    """Does something as the other user, as far as the system permits it."""
    child = os.fork()
    if child == 0:
        try:
            os.setgroups([TEAM])
            os.setgid(OTHER)
            os.setuid(OTHER)
            path = os.path.join(place, target.format(terms=terms))
            path = (glob.glob(path) or [path])[0]
            if os.path.lexists(path):
                os.rename(path, path + ".moved")
            KINDS[kind](path, os.path.join(place, "home"))
        except OSError:
            pass
        os._exit(0)
    os.waitpid(child, 0)


def prepare(lab, place, call, victim):
    """A sticky directory for the state, a master directory of the group, and a file of the victim."""
    if call.earlier:
        lab.sandbox.record(place, call.earlier)
    for name, owner, group, mode in (("lib", ROOT, ROOT, 0o1777), (MASTER, ROOT, TEAM, 0o2775),
                                     ("home", victim, victim, 0o755)):
        path = os.path.join(place, name)
        os.makedirs(path, exist_ok=True)
        os.chown(path, owner, group)
        os.chmod(path, mode)
    with open(os.path.join(place, "home/file"), "w", encoding="ascii") as secret:
        secret.write("a file of the one who runs zev-ask\n")
    os.chown(secret.name, victim, victim)


def start(lab, place, victim, call, number):
    prepare(lab, place, call, victim)
    return start_stopped(lab.sandbox.command(call, place), number, user=victim, group=victim, extra_groups=[TEAM],
                         env=lab.sandbox.environment(place))


def calls_of(lab, victim, call):
    with lab.sandbox.status() as place:
        return start(lab, place, victim, call, MANY)[1]


def try_attack(lab, case):
    victim, call, target, kind, number = case
    with lab.sandbox.status() as place:
        run, count = start(lab, place, victim, call, number)
        if count is not None:
            return UNTRIED
        before = snapshot(place)
        plant(place, target, kind, lab.sandbox.terms)
        planted = {path: entry for path, entry in snapshot(place).items() if entry[1] == OTHER}
        _libc.ptrace(_DETACH, run.pid, None, None)
        return judge(lab, place, process.finish(run, HANG), victim, before, planted)


def judge(lab, place, outcome, victim, before, planted):
    after = snapshot(place)
    harmed = [path for path in {**before, **after} if path.startswith("home") and before.get(path) != after.get(path)]
    changed = [path for path, entry in planted.items() if after.get(path) != entry]
    # The directory of a product can belong to any member of the group.
    changed += [path for path in after if path not in planted and os.path.dirname(path) in planted
                and not path.startswith(MASTER + "/rocket/")]
    scratch = [path for path in after if ".zev-ask-" in path and after[path][1] == victim and ".moved" not in path]
    audit = lab.sandbox.call("zev-audit", *(os.path.join(place, store) for store in (STATE, MASTER)))
    if "hang" in (outcome.ending, audit.ending):
        return Short("hang: it waits for another user")
    if harmed:
        return Short(f"{harmed[0][:10]}, a file of the victim, was changed or made")
    if changed:
        return Short(f"{changed[0][:30]}, another user's, was changed or removed")
    if scratch:
        return Short("scratch was left")
    flaw = lab.sandbox.flaw_of(os.path.join(place, STATE))
    # If the record of the group was moved away, nobody can be asked.
    if (outcome.code, bool(flaw)) in ((0, False), (2, True), (3, True)):
        return None
    return Short(f"exit {outcome.code} with {flaw or 'a record'}")


def try_all(lab):
    what = "another user between any two calls of zev-ask"
    if lab.no_mounts or not mounts.has_many_users():
        lab.skip(what, lab.no_mounts or "to be several users needs root")
        return
    runs = [(*run, calls_of(lab, *run)) for run in product((ROOT, USER), (SHARING, COPYING))]
    cases = [(*lab.random.choice(runs), lab.random.choice(TARGETS), lab.random.choice([*KINDS])) for _ in range(TRIALS)]
    cases = [(victim, call, target, kind, lab.random.randrange(count)) for victim, call, count, target, kind in cases]
    lab.try_each(what, cases, lambda case: try_attack(lab, case), 0.25)
