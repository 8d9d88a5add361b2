"""SIGKILL at random moments."""

import time

import process
from sandbox import KILL, REPEATED, UNATTENDED
from verdict import UNTRIED

KILLS = 2500  # some runs end before


def start(lab, scenario, status):
    sandbox = lab.sandbox
    return process.start(sandbox.command(scenario, status), scenario.answers, sandbox.environment(status))


def shortest_time(lab, scenario):
    times = []
    for _ in range(9):
        with lab.sandbox.status(scenario.earlier) as status:
            run = start(lab, scenario, status)
            begin = time.monotonic()
            process.finish(run)
            times.append(time.monotonic() - begin)
    return min(times)


def try_kill(lab, scenario, microseconds):
    with lab.sandbox.status(scenario.earlier) as status:
        run = start(lab, scenario, status)
        time.sleep(microseconds / 1e6)
        run.kill()
        outcome = process.finish(run)
        return lab.sandbox.judge(scenario, status, outcome, KILL) if outcome.code == -9 else UNTRIED


def try_all(lab):
    for what, scenario in (("killed at a random moment, first run", UNATTENDED),
                           ("killed at a random moment, over an earlier record", REPEATED)):
        longest = int(1e6 * shortest_time(lab, scenario))
        moments = [(lab.random.randrange(longest), "microseconds") for _ in range(KILLS)]
        lab.try_each(what, moments, lambda moment: try_kill(lab, scenario, moment[0]), 0.05)
