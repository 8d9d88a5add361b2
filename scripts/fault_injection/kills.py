"""SIGKILL at random moments."""

import statistics
import time

import process
from sandbox import REPEATED, UNATTENDED, Fault
from verdict import UNTRIED

KILLS = 1500


def start(lab, scenario, status):
    sandbox = lab.sandbox
    return process.start(sandbox.command(scenario, status), scenario.answers, sandbox.environment(status))


def usual_time(lab, scenario):
    times = []
    for _ in range(9):
        with lab.sandbox.status(scenario.has_earlier_record) as status:
            run = start(lab, scenario, status)
            begin = time.monotonic()
            process.finish(run)
            times.append(time.monotonic() - begin)
    return statistics.median(times)


def try_kill(lab, scenario, moment):
    with lab.sandbox.status(scenario.has_earlier_record) as status:
        run = start(lab, scenario, status)
        time.sleep(moment)
        run.send_signal(9)
        outcome = process.finish(run)
        if outcome.code != -9:
            return UNTRIED
        return lab.sandbox.judge(scenario, status, outcome, Fault(error="SIGKILL"))


def try_all(lab):
    for what, scenario in (("killed at a random moment, first run", UNATTENDED),
                           ("killed at a random moment, over an earlier record", REPEATED)):
        longest = 1.2 * usual_time(lab, scenario)
        moments = [f"{lab.random.uniform(0, longest):.6f}" for _ in range(KILLS)]
        lab.try_each(what, moments, lambda moment: try_kill(lab, scenario, float(moment)), 0.05)
