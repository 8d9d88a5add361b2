"""Faults of zev-ask and zev-audit: calls that fail, signals at any call, full disks, crowds."""

import glob
import itertools
import os
from concurrent.futures import ThreadPoolExecutor

import media
import traced_calls
from consent_sandbox import (ACCEPT, ACCEPTING, ANSWERING, CALLS, COPYING, DECLINING, MASTER, RETURNING, SHARED,
                             SHARING, STATE, Call)
from verdict import Short

SHARES = dict(zip(CALLS, (0.1, 0.1, 0.1, 0.04, 0.06, 0.06, 0.04)))
RECORDING = (ACCEPTING, SHARING, COPYING, RETURNING)
CROWD, ROUNDS = 50, 12


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
    if outcome.ending != "exit" or not outcome.is_restored:
        return Short(outcome.ending if outcome.ending != "exit" else "the modes of the terminal are not what they were")
    expected = (0, call.code)  # who would have declined need not, once somebody has accepted
    return None if outcome.code in expected else Short(f"{call.name}: exit {outcome.code} though nothing failed")


def try_round(lab, case):
    """One crowd on one state directory, a few of it in a dialogue. Returns the verdicts on all runs and what is left."""
    shared, _ = case
    accepting = Call("accepts", ACCEPT + shared)
    calls = [accepting] * (CROWD - 10) + [Call("answers", ANSWERING.options + shared, "1\n")] * 5 + [DECLINING] * 5
    lab.random.shuffle(calls)
    with lab.sandbox.status() as place, ThreadPoolExecutor(CROWD) as crowd:
        lab.sandbox.before[place] = {}
        outcomes = list(crowd.map(lambda call: lab.sandbox.run(call, place, limit=60.0), calls))
        stores = (STATE, MASTER) if shared else (STATE,)
        flaws = [lab.sandbox.flaw_of(os.path.join(place, store)) for store in stores]
        left = glob.glob(f"{place}/*/zev/.zev-ask-*")
        lab.sandbox.before.pop(place)
        return [*map(judge_one, calls, outcomes), *(Short(f"a crowd left {flaw}") for flaw in flaws if flaw),
                *(Short("a crowd left scratch") for _ in left)]


def try_crowds(lab):
    rounds = itertools.product(((), SHARED), range(ROUNDS))
    lab.try_each(f"{CROWD} at once, some in a dialogue", rounds, lambda case: try_round(lab, case), 0.1, 1)
