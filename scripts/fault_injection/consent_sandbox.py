"""Runs of zev-ask and zev-audit, and what each must leave behind."""

import glob
import hashlib
import os
import re
import shutil
import stat
import time
from dataclasses import dataclass

from process import converse, run
from sandbox import FULL, KILL, LANGUAGES, MEMORY, NOTICES, SHOWN, TERMS, Fault, Sandbox, copy_of, read
from verdict import Described, Short

STATE, MASTER = "lib/zev", "group/zev"  # below the place of a run; missing directories above them are made
FIELDS = ["product", "version", "terms", "accepted", "who", "host", "mode", "language", "zev"]
LOG_LINE = re.compile(rb"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ\t3\.0\t\S.*")
HOUR = 3600  # seconds; scratch of that age is removed by the next run

# The system calls by which a run finds what it must remove, and removes it.
REMOVING = {"unlinkat", "openat", "getdents64", "newfstatat", "lseek", "fcntl"}


@dataclass(frozen=True)
class Call:
    name: str
    options: tuple = ()
    answer: str = ""  # typed on a terminal of 24 lines, whenever nothing is shown
    code: int = 0
    earlier: str = ""  # the directory that has records before the run
    version: str = "2.0"

    @property
    def is_audit(self):
        return not self.options


ACCEPT, WAIT, SHARED = ("--accept", "{terms}"), ("--wait", "4"), ("-m", "{place}/" + MASTER)
ACCEPTING = Call("zev-ask --accept", ACCEPT)
SHARING = Call("zev-ask --accept -m", ACCEPT + SHARED)
ANSWERING = Call("zev-ask, answered 1", WAIT, "1\n")
DECLINING = Call("zev-ask, answered 2", WAIT, "2\n", code=1)
COPYING = Call("zev-ask -m over its record", SHARED, earlier=MASTER)
RETURNING = Call("zev-ask -m over a record", SHARED, earlier=STATE, version="3.0")
AUDITING = Call("zev-audit", earlier=STATE)
CALLS = (ACCEPTING, SHARING, ANSWERING, DECLINING, COPYING, RETURNING, AUDITING)


def snapshot(place):
    """Everything below a directory: {path: (mode, owner, bytes or target)}."""
    found = {}
    for directory, directories, files in os.walk(place):
        for path in (os.path.join(directory, name) for name in (*directories, *files)):
            status = os.lstat(path)
            content = os.readlink(path) if stat.S_ISLNK(status.st_mode) else ""
            if stat.S_ISREG(status.st_mode):
                content = read(path)
            found[os.path.relpath(path, place)] = status.st_mode, status.st_uid, content
    return found


def belongs_to_record(path):
    return any((store + "/rocket/").startswith(path + "/") or path.startswith(store + "/rocket/")
               for store in (STATE, MASTER))


class ConsentSandbox(Sandbox):
    """Works on the licences and below the root of another sandbox. A place is a directory of a run."""

    def __init__(self, sandbox):
        vars(self).update(vars(sandbox))
        for tool in ("zev-ask", "zev-audit"):
            os.symlink("zev", os.path.join(self.root, tool))
        self.before = {}
        self.store = os.path.join(self.root, "store")
        self.terms = self.call("zev-ask", "--fingerprint", "-l", self.licences).output.decode().strip()
        for product, version in (("rocket", "2.0"), ("engine", "2.0"), ("engine", "2.1")):
            self.call("zev-ask", "-p", product, "-v", version, "-l", self.licences, "-s", self.store, "--accept", "any")
        with self.status(STATE) as place:
            self.clean = self.told(place, self.run(AUDITING, place))

    def call(self, tool, *arguments):
        return run([os.path.join(self.root, tool), *arguments], env=self.environment(self.root))

    def record(self, status, length):
        shutil.copytree(self.store, os.path.join(status, length))

    def command(self, scenario, status, licences=None):
        place, licences = status, licences or self.licences
        if scenario.is_audit:
            return [self.binary + "-audit", "--tsv", "-l", licences, os.path.join(place, STATE)]
        options = [option.format(place=place, terms=self.terms) for option in scenario.options]
        return [self.binary + "-ask", "-p", "rocket", "-v", scenario.version, "-l", licences,
                "-s", os.path.join(place, STATE), *options]

    def run(self, scenario, status, prefix=(), licences=None, env=None, **options):
        if status not in self.before:
            self.before[status] = snapshot(status)
        command, env = [*prefix, *self.command(scenario, status, licences)], self.environment(status, **(env or {}))
        if scenario.answer:
            return converse(command, scenario.answer, env, **options)
        return run(command, env=env, **options)

    @staticmethod
    def told(place, outcome):
        return outcome.code, outcome.output.replace(place.encode(), b"")

    def flaw_of(self, store, fault=Fault()):
        """What is wrong with the record in a state or master directory, by our own check and by zev-audit."""
        records = [path for path in glob.glob(f"{store}/rocket/*") if not path.endswith(".log")]
        if len(records) != 1:
            return f"{len(records) or 'no'} record{'s' * (len(records) > 1)}"
        files = {os.path.relpath(path, records[0]): read(path)
                 for path in glob.glob(records[0] + "/**", recursive=True) if os.path.isfile(path)}
        recorded, acceptance = files.pop("SHA256SUMS", b""), files.get("acceptance", b"").decode()
        sums = "".join(f"{hashlib.sha256(files[name]).hexdigest()}  {name}\n" for name in sorted(files))
        fields = [line.partition("=")[0] for line in acceptance.splitlines()]
        if recorded != sums.encode() or fields[:len(FIELDS)] != FIELDS or not self.has_record(records[0]):
            return "half a record"
        if self.cut_copies(records[0], fault):
            return "a record with other copies"
        audit = self.call("zev-audit", "-p", "rocket", store)
        return "a record that zev-audit does not take" if audit.code else ""

    def judge(self, scenario, status, outcome, fault=Fault()):
        place, before = status, self.before.pop(status)
        after, is_ended = snapshot(place), fault.error.startswith("SIG")
        if outcome.ending != "exit":
            return Short("hang")
        if outcome.code < 0 and not is_ended and fault.call not in MEMORY:
            return Short(f"crash: signal {-outcome.code}")
        if fault != KILL and not outcome.is_restored:
            if fault.call == "ioctl":
                return Described("a terminal that cannot be set stays as it is")
            return Short("the modes of the terminal are not what they were")
        if scenario.is_audit:
            return self._judge_audit(place, outcome, before == after, fault)
        return (self._judge_records(scenario, place, outcome, fault) or
                self._judge_rest(place, outcome, before, after, fault) or
                (None if fault == FULL else self._judge_next_run(scenario, place, fault)))

    def _judge_audit(self, place, outcome, is_unchanged, fault):
        if not is_unchanged:
            return Short("an audit changed something")
        if outcome.code == 0 and fault.error != "ENOENT" and self.told(place, outcome) != self.clean:
            return Short("an audit that finds nothing has not looked at all")
        return None

    def _judge_records(self, scenario, place, outcome, fault):
        flaw, masters = (self.flaw_of(os.path.join(place, store), fault) for store in (STATE, MASTER))
        if flaw not in ("", "no record") or masters not in ("", "no record"):
            return Short(f"{flaw or masters} after {outcome.code}")
        if outcome.code != 0:
            return None
        if flaw or scenario.code == 1 and scenario.earlier == "":
            return Short("false acceptance: exit 0 " + (flaw and "without a record" or "though declined"))
        if SHARED[0] in scenario.options and masters and b"not in the master directory" not in outcome.output:
            return Short("the master has no record, and nobody says so")
        if scenario.answer and copy_of(SHOWN).encode()[:40] not in outcome.output:
            return Short("false acceptance: nothing was shown")
        return None

    @staticmethod
    def _judge_rest(place, outcome, before, after, fault):
        """What the run changed besides records. Unless it succeeded or a signal ended it, nothing may have changed."""
        changed = [path for path in {**before, **after} if before.get(path) != after.get(path)]
        if outcome.code not in (1, 2, 3):
            changed = [path for path in changed if not belongs_to_record(path)]
        if fault == KILL:
            changed = [path for path in changed if path in before or ".zev-ask-" not in path]
            changed = [path for path in changed if not os.path.isdir(os.path.join(place, path))]
        if not changed:
            return None
        published = glob.glob(f"{place}/{STATE}/rocket/*/SHA256SUMS")
        if published and all(map(belongs_to_record, changed)) and fault.call in ("fsync", "openat"):
            return Described("a record that is in its place stays when the disk fails then, and the run ends in 3")
        is_scratch = all(".zev-ask-" in path or belongs_to_record(path) for path in changed)
        if fault.call in REMOVING and is_scratch and outcome.code >= 0:
            return Described("what cannot be removed stays for the next run")
        return Short(f"{min(changed, key=len)[:30]} was left or changed after {outcome.code}")

    def _judge_next_run(self, scenario, place, fault):
        for scratch in glob.glob(f"{place}/*/zev/.zev-ask-*"):
            os.utime(scratch, (time.time() - HOUR,) * 2)
        shared = SHARED if SHARED[0] in scenario.options else ()
        outcome = self.run(Call("next run", ACCEPT + shared, version=scenario.version), place)
        self.before.pop(place)
        stores = [STATE, MASTER] if shared else [STATE]
        flaws = list(filter(None, (self.flaw_of(os.path.join(place, store), fault) for store in stores)))
        if any(fault.hides(name) for name in (TERMS, NOTICES)):
            return None  # the first run had other terms
        if outcome.code or flaws:
            return Short(f"the next run ends in {outcome.code}, with {flaws and flaws[0] or 'a record'}")
        if glob.glob(f"{place}/*/zev/.zev-ask-*"):
            return Short("the next run leaves old scratch")
        log = read(f"{place}/{STATE}/rocket/{self.terms}.log").splitlines()
        if scenario == RETURNING and [line for line in log if LOG_LINE.fullmatch(line)] != log[-1:]:
            return Short("the log has not one line of the version")
        return None
