"""Faults of zev-ask and zev-audit: calls that fail, signals at any call, full disks, many runs at once."""

import contextlib
import glob
import itertools
import os
import threading
from concurrent.futures import ThreadPoolExecutor

import media
import traced_calls
from consent_sandbox import (ACCEPT, ACCEPTING, ANSWERING, CALLS, COPYING, DECLINING, MASTER, RETURNING, SHARED,
                             SHARING, STATE, Call)
from verdict import Short

SHARES = dict(zip(CALLS, (0.1, 0.1, 0.1, 0.04, 0.06, 0.06, 0.04)))
RECORDING = (ACCEPTING, SHARING, COPYING, RETURNING)
CROWD, ROUNDS = 50, 12
PATIENCE = 60.0  # seconds


def try_calls(lab):
    traced_calls.try_all(lab, SHARES, ("SIGKILL", "SIGTERM"))


def try_full(lab):
    sizes = list(itertools.product(RECORDING, range(0, 16_000, 7), ("ignored", "not ignored")))
    lab.try_each("file size limit, zev-ask", lab.random.sample(sizes, 1000),
                 lambda case: media.try_file_size(lab, case), 0.05)
    if lab.no_mounts:
        lab.skip("full file system, zev-ask", lab.no_mounts)
        return
    full = itertools.product(RECORDING, ("pages", "inodes"), range(1, 140))
    lab.try_each("full file system, zev-ask", full, lambda case: media.try_full(lab, case), 0.1)


def judge_one(call, outcome):
    if outcome.ending == "exit" and outcome.is_restored and outcome.code == call.code:
        return None
    return Short(f"{call.name}: {outcome.ending} {outcome.code} though nothing failed")


def try_round(lab, case):
    """Many runs on one state directory. Some are in the dialogue before the others start, and answer meanwhile."""
    shared, _ = case
    asked = [Call("zev-ask -m, answered 1", ANSWERING.options + shared, "1\n"), DECLINING] * 5
    calls = asked + [Call("zev-ask --accept", ACCEPT + shared)] * (CROWD - len(asked))
    with lab.sandbox.status() as place, ThreadPoolExecutor(CROWD) as crowd:
        lab.sandbox.before[place] = {}
        all_are_asked = threading.Barrier(len(asked) + 1)
        runs = [crowd.submit(lab.sandbox.run, call, place, limit=PATIENCE, barrier=all_are_asked) for call in asked]
        with contextlib.suppress(threading.BrokenBarrierError):
            all_are_asked.wait(PATIENCE)
        runs += [crowd.submit(lab.sandbox.run, call, place, limit=PATIENCE) for call in calls[len(asked):]]
        verdicts = [judge_one(call, run.result()) for call, run in zip(calls, runs)]
        del lab.sandbox.before[place]
        stores = (STATE, MASTER) if shared else (STATE,)
        flaws = [flaw for flaw in (lab.sandbox.flaw_of(os.path.join(place, store)) for store in stores) if flaw]
        flaws += ["scratch"] * len(glob.glob(f"{place}/*/zev/.zev-ask-*"))
        return verdicts + [Short(f"a crowd left {flaw}") for flaw in flaws]


def try_crowds(lab):
    rounds = itertools.product(((), SHARED), range(ROUNDS))
    lab.try_each(f"{CROWD} at once, some in a dialogue", rounds, lambda case: try_round(lab, case), 0.1, 1)
