"""Injects faults into runs of zev, zev-ask and zev-audit, and prints what broke a promise."""

import argparse
import os
import random
import resource
import shutil
import signal
import sys
import tempfile

import consent_calls
import consent_users
import crowds
import environments
import icu_data
import kills
import media
import mounts
import other_users
import traced_calls
from consent_sandbox import CALLS, ConsentSandbox
from lab import Lab
from sandbox import SCENARIOS, Sandbox, remove_documents

QUICK = 50  # seconds
GROUPS = {
    "calls": traced_calls.try_all, "media": media.try_all, "kills": kills.try_all, "crowds": crowds.try_all,
    "users": other_users.try_all, "environments": environments.try_all, "icu": icu_data.try_all,
}  # fmt: skip
CONSENT = {
    "ask-calls": consent_calls.try_calls, "ask-full": consent_calls.try_full, "ask-crowds": consent_calls.try_crowds,
    "ask-users": consent_users.try_all,
}  # fmt: skip
CONSENT_SHARE = 0.4  # of the time


def parse():
    parser = argparse.ArgumentParser(
        prog="scripts/faults", description=__doc__,
        epilog="Without a time every case is tried, in about an hour. Exits with 1 if a promise was broken.")
    parser.add_argument("binary", metavar="BINARY", help="the executable to try; by default that of the release build")
    bound = parser.add_mutually_exclusive_group()
    bound.add_argument("--quick", action="store_const", const=QUICK, dest="seconds", help=f"same as --seconds {QUICK}")
    bound.add_argument("--seconds", type=float, help="how long to try cases, chosen at random")
    parser.add_argument("--seed", type=int, help="the seed of the choice, which is printed")
    parser.add_argument("--only", choices=GROUPS | CONSENT, action="append", help="a group of cases; can be repeated")
    options = parser.parse_args()
    if options.seed is None:
        options.seed = random.SystemRandom().randrange(10**6)
    return options


def check_undisturbed(sandbox, scenarios):
    """Checks that runs without faults keep all promises; otherwise later findings would mean nothing."""
    for scenario in scenarios:
        with sandbox.status(scenario.earlier) as status:
            outcome = sandbox.run(scenario, status)
            verdict = sandbox.judge(scenario, status, outcome)
            if verdict or outcome.code != scenario.code:
                sys.exit(f"zev: cannot go on: {scenario.name}, without a fault: {verdict or ''} exit {outcome.code}")


def main():
    options = parse()
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    for ending in (signal.SIGINT, signal.SIGTERM):
        signal.signal(ending, lambda number, _: sys.exit(128 + number))
    with open(options.binary, "rb") as source:
        refusal = mounts.take_own_tmp()
        root = tempfile.mkdtemp(prefix="zev-faults-", dir="/tmp")
        try:
            return try_on(root, source, options, refusal)
        finally:
            shutil.rmtree(root, ignore_errors=True)
            remove_documents()


def try_on(root, source, options, refusal):
    """Tries everything on a copy of the executable, which other users must be able to read. Returns the exit code."""
    os.chmod(root, 0o755)
    executable = os.path.join(root, "zev")
    with open(executable, "wb") as copy:
        shutil.copyfileobj(source, copy)
    os.chmod(executable, 0o755)

    sandbox = Sandbox(root, executable)
    consent = ConsentSandbox(sandbox)
    check_undisturbed(sandbox, SCENARIOS)
    check_undisturbed(consent, CALLS)
    bound = "every case" if options.seconds is None else f"{options.seconds:g} seconds"
    print(f"{options.binary}, {bound}, seed {options.seed}\n\n{'':<58} {'tried':>7} {'broken':>7} {'described':>10}")
    lab = Lab(sandbox, options.seconds, options.seed, refusal)
    for groups, tried, share in ((GROUPS, sandbox, 1 - CONSENT_SHARE), (CONSENT, consent, CONSENT_SHARE)):
        for group in groups:
            if not options.only or group in options.only:
                groups[group](lab.on(tried, share))
    lab.print_findings()
    return 1 if lab.fell_short() else 0


if __name__ == "__main__":
    sys.exit(main())
