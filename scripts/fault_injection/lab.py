"""Tries cases within a given time, and prints a row for each kind."""

import concurrent.futures
import copy
import random
import sys
import time

from verdict import Row, count

EXAMPLES = 3
LONGEST = 40  # characters of a name in the findings


class Lab:
    def __init__(self, sandbox, seconds, seed, no_mounts):
        """`seconds` bounds all trials together; None tries every case. `no_mounts` says why nothing can be mounted."""
        self.sandbox = sandbox
        self.seconds = seconds
        self.random = random.Random(seed)
        self.no_mounts = no_mounts
        self.rows = []
        self.stopped = False

    def on(self, sandbox, share):
        """The same on another sandbox, with a share of the time and in the same table."""
        other = copy.copy(self)
        other.sandbox = sandbox
        other.seconds = None if self.seconds is None else self.seconds * share
        return other

    def skip(self, what, reason):
        self._report(Row(what, skipped=reason))

    def add_row(self, what, tried, short):
        """A row whose trials were counted elsewhere; `short` counts them by the broken promise."""
        row = Row(what, tried)
        row.short = {text: [None] * number for text, number in short.items() if number}
        self._report(row)

    def try_each(self, what, cases, trial, share=None, workers=2):
        """Calls `trial` with the cases, in random order if the time is limited."""
        cases = list(cases)
        row = Row(what)
        deadline = None
        if self.seconds is not None and share is not None:
            deadline = time.monotonic() + self.seconds * share
            self.random.shuffle(cases)
        remaining = iter(cases)

        def work(_):
            found = []
            for case in remaining:
                if self.stopped or (deadline is not None and time.monotonic() > deadline):
                    break
                found.append((case, trial(case)))
            return found

        with concurrent.futures.ThreadPoolExecutor(workers) as pool:
            try:
                for found in pool.map(work, range(workers)):
                    for case, verdict in found:
                        row.add(case, verdict)
            finally:
                self.stopped = sys.exc_info()[0] is not None
        self._report(row)

    def _report(self, row):
        self.rows.append(row)
        if row.skipped:
            print(f"{row.what:<58} skipped: {row.skipped}", flush=True)
            return
        print(f"{row.what:<58} {row.tried:>7} {count(row.short):>7} {count(row.described):>10}", flush=True)

    def fell_short(self):
        return any(row.short for row in self.rows)

    def print_findings(self):
        for title, kind in (("Broken promises", "short"), ("Losses that SECURITY.md describes", "described")):
            rows = [row for row in self.rows if getattr(row, kind)]
            if rows:
                print(f"\n{title}:")
            for row in rows:
                print(f"  {row.what}")
                for text, cases in sorted(getattr(row, kind).items(), key=lambda item: -len(item[1])):
                    print(f"    {len(cases)} x {text}")
                    for case in filter(None, cases[:EXAMPLES]):
                        print(f"        {describe(case)}")


def describe(case):
    """A case in one line: the names of the things in it, and the words."""
    if isinstance(case, tuple):
        return " ".join(filter(None, map(describe, case)))
    text = str(getattr(case, "name", getattr(case, "__name__", case)))
    return text if len(text) <= LONGEST else f"{text[:LONGEST]}... ({len(text)} characters)"
