"""A licence set, the scenarios that are run on it, and what each must have recorded."""

import contextlib
import glob
import itertools
import os
import re
import shutil
from dataclasses import dataclass

from process import Outcome, run
from verdict import Described, Short

with open(os.path.join(os.path.dirname(__file__), "../../src/lang/languages.h"), encoding="utf-8") as table:
    LANGUAGES = dict(re.findall(r'LANGUAGE\((\w+), "(\w+)"', table.read()))  # by code, the English names
SHOWN = "de"  # the language of the dialogues; its texts are longer than any buffer
TERMS, NOTICES = "non_vur_license", "notices"

# With these errors of open, a file counts as absent. With any other error it counts as a file that cannot be read.
HIDING = {"ENOENT", "EACCES", "ENOSPC"}
MEMORY = {"brk", "mmap", "mremap", "munmap", "mprotect"}
WRITING = {"write", "writev", "pwrite64", "close", "ftruncate", "fsync", "lseek"}


@dataclass(frozen=True)
class Fault:
    """A call that was made to fail, and the file that it was for."""

    call: str = ""
    error: str = ""
    path: str = ""

    @property
    def name(self):
        return os.path.basename(self.path)

    def hides(self, name):
        return self.call.startswith("open") and self.error in HIDING and self.name == name

    def is_on_stream(self, *streams):
        return any(self.path.startswith(stream) for stream in streams)


KILL = Fault(error="SIGKILL")
FULL = Fault("write", "ENOSPC")


@dataclass(frozen=True)
class Scenario:
    name: str
    options: tuple = ()
    answers: str = ""
    code: int = 9
    earlier: str = ""  # the texts of an earlier record: the same, longer or shorter ones
    is_dialog: bool = False


UNATTENDED = Scenario("unattended", ("-t", "5"))
ACCEPTING = Scenario("accepting dialogue", answers="4\n\n\nq\n3\n" + "\n" * 30 + "1\n1\n1\n", is_dialog=True)
DECLINING = Scenario("declining dialogue", answers="\n2\n2\n" + "2\n2\n" * 3, code=3, is_dialog=True)
REPEATED = Scenario("over an earlier record", answers="2\n2\n" * 3, earlier="same")
REPLACING = Scenario("over longer texts", ("-t", "5"), earlier="longer")
SCENARIOS = (UNATTENDED, ACCEPTING, DECLINING, REPEATED, REPLACING)

LP = """#!/bin/sh
# Takes the place of the print commands: keeps the document, and its owner and mode.
[ -z "$ZEV_SWAP" ] || setpriv --reuid=65534 --regid=65534 --clear-groups sh -c "$ZEV_SWAP" sh "$1" 2>/dev/null
mkdir -p "$ZEV_SPOOL" && cp "$1" "$ZEV_SPOOL/${0##*/}.text" && stat -c '%u %a %F' "$1" >"$ZEV_SPOOL/${0##*/}.stat" &&
    echo "$1" >"$ZEV_SPOOL/document"
"""

SCALES = {"same": 1, "longer": 2, "shorter": 0.5}


def licence_text(kind, code, length="same"):
    lines = int((110 if code in (SHOWN, TERMS) else 12) * SCALES[length])
    return "".join(f"{kind} {code} {line:04} of the terms that are to be read in full.\n" for line in range(lines))


def copy_of(code):
    return licence_text("LA", code) + licence_text("LI", code)


def is_valid(status):
    """Whether the bytes are a status file as zev writes it."""
    lines = status.split(b"\n")
    return len(lines) == 3 and lines[0].startswith(b"#") and lines[1:] == [b"Status=9", b""]


def read(path):
    """The bytes of a file, or nothing if there is none."""
    try:
        with open(path, "rb") as file:
            return file.read()
    except (FileNotFoundError, NotADirectoryError):
        return b""


def remove_documents():
    """Removes what killed runs have left in the shared /tmp."""
    for path in glob.glob(f"/tmp/zevdoc_*_{SHOWN}.text"):
        with contextlib.suppress(OSError):
            if read(path).startswith(copy_of(SHOWN)[:40].encode()):
                os.remove(path)


class Sandbox:
    """Owns a directory below `root` with everything that the runs of one binary need."""

    def __init__(self, root, binary):
        self.root = root
        self.binary = binary
        self.licences = os.path.join(root, "same")
        self._numbers = itertools.count()
        for length in SCALES:
            self.write_licences(os.path.join(root, length), length)
        os.makedirs(os.path.join(root, "bin"))
        for command in ("lp", "lpr"):
            path = os.path.join(root, "bin", command)
            with open(path, "w", encoding="ascii") as file:
                file.write(LP)
            os.chmod(path, 0o755)
        self.document = None
        with self.status() as status:
            self.run(ACCEPTING, status)
            self.document = self.printed(status)

    @staticmethod
    def write_licences(directory, length):
        os.makedirs(directory)
        texts = {f"{kind}_{code}": (kind, code) for kind in ("LA", "LI") for code in LANGUAGES}
        texts |= {name: ("terms", name) for name in (TERMS, NOTICES)}
        for name, text in texts.items():
            with open(os.path.join(directory, name), "wb") as file:
                file.write(b"\xfe\xff" + licence_text(*text, length).encode("utf-16-be"))

    @contextlib.contextmanager
    def status(self, earlier=""):
        """A status directory that is not there yet, or that holds an earlier record of texts of that length."""
        path = os.path.join(self.root, f"status{next(self._numbers)}")
        try:
            if earlier:
                self.record(path, earlier)
            yield path
        finally:
            with contextlib.suppress(OSError):
                os.remove(read(path + ".spool/document").decode().rstrip("\n"))
            for directory in (path, path + ".spool"):
                shutil.rmtree(directory, ignore_errors=True)

    def record(self, status, length):
        self.run(UNATTENDED, status, licences=os.path.join(self.root, length))

    def environment(self, status, **changes):
        env = {"LC_ALL": "de_DE.UTF-8", "COLUMNS": "80", "LINES": "24", "ZEV_SPOOL": status + ".spool",
               "PATH": os.path.join(self.root, "bin") + ":/usr/bin:/bin"}
        env |= changes
        return {name: value for name, value in env.items() if value is not None}

    def command(self, scenario, status, licences=None):
        options = [option.replace("{status}", status) for option in scenario.options]
        return [self.binary, "-l", licences or self.licences, "-s", status, *options]

    def run(self, scenario, status, prefix=(), licences=None, env=None, **options) -> Outcome:
        command = [*prefix, *self.command(scenario, status, licences)]
        return run(command, scenario.answers, self.environment(status, **(env or {})), **options)

    def printed(self, status, command="lp"):
        path = f"{status}.spool/{command}.text"
        return read(path) if os.path.exists(path) else None

    def has_record(self, status):
        return is_valid(read(os.path.join(status, "license", "status.dat")))

    def cut_copies(self, status, fault=Fault()):
        """The names of the copies that are not complete, without those that the fault explains."""
        cut = []
        for code, name in LANGUAGES.items():
            whole = [copy_of(code)] + [licence_text("LA", code)] * fault.hides(f"LI_{code}")
            if read(os.path.join(status, "license", name + ".txt")).decode(errors="replace") not in whole:
                cut.append(name + ".txt")
        for name in (TERMS, NOTICES):
            # If the source is absent, nothing is copied, and an earlier copy stays.
            copy = read(os.path.join(status, "license", name + ".txt")).decode(errors="replace")
            if copy != licence_text("terms", name) and not fault.hides(name):
                cut.append(name + ".txt")
        return cut

    def judge(self, scenario, status, outcome, fault=Fault()):
        """What a finished run did wrong: a `Short`, a `Described` loss, or None if all is well."""
        was_killed = fault == KILL
        if outcome.ending == "endless" and fault.call == "read" and fault.is_on_stream("pipe:"):
            return Described("the end of the answers repeats the last prompt for ever")
        if outcome.ending != "exit":
            return Short("hang" if outcome.ending == "hang" else "hang: the prompt is repeated for ever")
        if outcome.code < 0 and not was_killed:
            if fault.call in MEMORY:
                return Described("memory that is refused ends the run")
            return Short(f"crash: signal {-outcome.code}")
        if scenario.code == 3 and (outcome.code == 9 or self.has_record(status)):
            return Short("false acceptance: the user declined")
        return (self._judge_screen(scenario, outcome, fault) or self._judge_printed(status, fault)
                or self._judge_record(scenario, status, outcome, fault, was_killed))

    def _judge_screen(self, scenario, outcome, fault):
        if not scenario.is_dialog or scenario.code == 3:
            return None
        lines = [line.strip() for line in outcome.output.decode(errors="replace").splitlines()]
        terms = licence_text("terms", TERMS).splitlines()
        # A page is shown again after a detour; what counts is that every line was seen, in order.
        shown = list(dict.fromkeys(line for line in lines if line.startswith(("LA ", "LI "))))
        whole = copy_of(SHOWN).splitlines()
        if fault.hides(f"LI_{SHOWN}"):
            shown, whole = [line for line in shown if line.startswith("LA ")], licence_text("LA", SHOWN).splitlines()
        shown_terms = [line for line in lines if line.startswith("terms ")]
        problem = None
        if outcome.code == 9 and shown != whole:
            problem = "false acceptance: the agreement was shown in part"
        elif shown_terms and shown_terms[: len(terms)] != terms[: len(shown_terms)]:
            problem = "cut text: the terms were shown in part"
        if problem and fault.is_on_stream("pipe:"):
            return Described("what standard output takes is not examined")
        return Short(problem) if problem else None

    def _judge_printed(self, status, fault):
        printed = self.printed(status)
        # If one of its files is missing, the document is shorter, or that of the other language.
        if printed in (None, self.document) or any(fault.hides(name) for name in (f"LA_{SHOWN}", f"LI_{SHOWN}", TERMS)):
            return None
        if fault.call in WRITING and (not fault.path or fault.name.startswith("zevdoc_")):
            return Described("a document that cannot be written in full is printed as it is")
        return Short("cut text: the document was printed in part")

    def _judge_record(self, scenario, status, outcome, fault, was_killed):
        recorded, cut = self.has_record(status), self.cut_copies(status, fault)
        if outcome.code == 9 and not recorded:
            return Short("lost record: exit 9 without a valid status.dat")
        if was_killed and scenario.earlier and not recorded:
            return Short("lost record: a kill left no valid status.dat")
        # A described failure leaves an earlier status file, and so does a kill among texts that have changed.
        unchanged = not scenario.earlier or (was_killed and scenario.earlier == "same")
        must_be_whole = outcome.code == 9 or (recorded and unchanged)
        if not must_be_whole or not cut:
            return None
        if set(cut) <= {TERMS + ".txt", NOTICES + ".txt"} and fault.call in WRITING:
            return Described("write errors of the copies of terms and notices are not noticed")
        what = "false acceptance: exit 9" if outcome.code == 9 else "false acceptance: a valid status.dat"
        return Short(f"{what} beside a copy that is cut")
