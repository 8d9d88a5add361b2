"""Many runs at once on one status directory or one master directory, and somebody who watches."""

import contextlib
import multiprocessing
import os

import process
from sandbox import UNATTENDED, is_valid, read
from verdict import Short

FORK = multiprocessing.get_context("fork")
CROWD = 8  # shells that run zev at once
ROUNDS, RUNS = 20, 16  # rounds of the crowd, runs of each shell in a round
PATIENCE = 120.0  # seconds for a round
ASKED = 3  # exit code of a run that asked, since every answer declines

# The directories of the shells: one for all, the same new ones for all, new ones for each.
ONE, SAME, OWN = '"$0"', '"$0/$runs"', '"$0/$$.$runs"'
SHELL = """
for runs in $(seq {runs}); do
    yes 2 | head -n 8 | "$@" -s {status} >/dev/null 2>&1
    echo $?
done
"""


def watch(path, stopped, result):
    """Reads a status file until it is stopped. Sends how often it read, and how often that was no valid status file."""
    sights = broken = 0
    while not stopped.is_set():
        sights += 1
        broken += not is_valid(read(path))
    result.send((sights, broken))


@contextlib.contextmanager
def watched(path, sights):
    """Has a status file watched, and appends to `sights` how often it was read, and how often it was broken."""
    stopped, (result, sender) = FORK.Event(), FORK.Pipe(duplex=False)
    watcher = FORK.Process(target=watch, args=(path, stopped, sender), daemon=True)
    watcher.start()
    sender.close()
    try:
        yield
    finally:
        stopped.set()
        sights.append(result.recv())
        watcher.join()


def judge_code(code):
    if code == 9:
        return None
    return Short("asked again though accepted" if code == ASKED else f"exit {code} though nothing failed")


def try_round(lab, directory, status, *options):
    """One round of many runs. Returns the verdicts on all runs and on what they left."""
    sandbox = lab.sandbox
    command = ["sh", "-c", SHELL.format(runs=RUNS, status=status), directory, sandbox.binary, "-l", sandbox.licences]
    crowd = [process.start([*command, *options], env=sandbox.environment(directory)) for _ in range(CROWD)]
    outcomes = [process.finish(shell, PATIENCE) for shell in crowd]
    if any(outcome.ending != "exit" for outcome in outcomes):
        return Short("hang")
    codes = [int(code) for outcome in outcomes for code in outcome.output.split()]
    left = [directory] if status == ONE else [entry.path for entry in os.scandir(directory)]
    lost = [path for path in left if not sandbox.has_record(path) or sandbox.cut_copies(path)]
    if status == OWN:
        lost = lost[codes.count(ASKED):]  # a run that asked was declined, and has recorded nothing
    return [judge_code(code) for code in codes] + [Short("lost record: what the crowd left is not whole")] * len(lost)


def try_fresh(lab, status, *options):
    with lab.sandbox.status() as directory:
        os.mkdir(directory)
        return try_round(lab, directory, status, *options)


def try_all(lab):
    sights, rounds = [], [("round", number) for number in range(ROUNDS)]
    with lab.sandbox.status(earlier="same") as status, watched(os.path.join(status, "license", "status.dat"), sights):
        lab.try_each("many at once, one status directory", rounds, lambda _: try_round(lab, status, ONE), 0.06, 1)
    with lab.sandbox.status(earlier="same") as status:
        master = os.path.join(status, "license")
        with watched(os.path.join(master, "status.dat"), sights):
            lab.try_each("many at once, one master directory", rounds,
                         lambda _: try_fresh(lab, OWN, "-m", master), 0.06, 1)
    lab.try_each("many at once, first runs", rounds, lambda _: try_fresh(lab, SAME, *UNATTENDED.options), 0.04, 1)
    seen, broken = map(sum, zip(*sights))
    lab.add_row("a reader of status.dat meanwhile", seen, {"half a status.dat was seen": broken})
