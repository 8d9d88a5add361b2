"""What a trial found, and the rows of the table of all trials."""

from dataclasses import dataclass, field


class Short(str):
    """A fault of zev."""


class Described(str):
    """A loss that the documentation announces."""


UNTRIED = object()  # the fault did not occur


@dataclass
class Row:
    what: str
    tried: int = 0
    short: dict = field(default_factory=dict)  # each broken promise, and the cases that broke it
    described: dict = field(default_factory=dict)
    skipped: str = ""  # why nothing was tried

    def add(self, case, verdict):
        if isinstance(verdict, list):
            for one in verdict:
                self.add(case, one)
            return
        if verdict is UNTRIED:
            return
        self.tried += 1
        if isinstance(verdict, Described):
            self.described.setdefault(str(verdict), []).append(case)
        elif isinstance(verdict, Short):
            self.short.setdefault(str(verdict), []).append(case)


def count(found):
    return sum(map(len, found.values()))
