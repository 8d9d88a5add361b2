"""Attacks on the print document: another user can guess its name, which has only the process id and the language."""

import os
import shutil
import signal
import stat
import time
from dataclasses import dataclass
from typing import Callable

import mounts
import process
from sandbox import ACCEPTING, SHOWN, read
from verdict import Short

ROOT, USER, OTHER = 0, 65533, 65534  # two who run zev, and the attacker
HANG = 4.0  # seconds; another user's FIFO makes a run wait for ever
SECRET = b"a file of the one who runs zev\n"
OVERWRITE = 'printf "something else\\n" >"$1"'
REPLACE = 'rm -f "$1"; printf "something else\\n" >"$1.new" && mv -f "$1.new" "$1"'


class Scene:
    """The place of one attack: the files of the victim, those of the attacker, the name of the document."""

    def __init__(self, directory, victim, document):
        self.document = document
        self.home = os.path.join(directory, "home")
        self.theirs = os.path.join(directory, "theirs")
        self.file = os.path.join(self.home, "file")
        self.victim = victim
        for path, owner in ((self.home, victim), (self.theirs, OTHER)):
            os.mkdir(path, 0o755)
            os.chown(path, owner, owner)
        self.write(self.file, SECRET, victim)

    @staticmethod
    def write(path, content, owner, mode=0o644):
        with open(path, "wb") as file:
            file.write(content)
        os.chown(path, owner, owner)
        os.chmod(path, mode)

    def link(self, target):
        os.symlink(target, self.document)
        os.lchown(self.document, OTHER, OTHER)

    def harm(self):
        """What happened to the victim's files, or None."""
        status = os.stat(self.file)
        if (read(self.file), status.st_uid, stat.S_IMODE(status.st_mode)) != (SECRET, self.victim, 0o644):
            return "a file of the victim was overwritten"
        return "a file of the victim was created" if os.listdir(self.home) != ["file"] else None


def link_to_file(scene):
    scene.link(scene.file)


def link_to_nothing(scene):
    scene.link(os.path.join(scene.home, "new"))


def link_to_own_file(scene):
    own = os.path.join(scene.theirs, "file")
    scene.write(own, b"", OTHER)
    scene.link(own)


def link_to_null(scene):
    scene.link("/dev/null")


def fifo(scene):
    os.mkfifo(scene.document)
    os.chown(scene.document, OTHER, OTHER)
    os.chmod(scene.document, 0o666)


def own_file(scene):
    scene.write(scene.document, b"", OTHER, 0o666)


def hard_link(scene):
    os.link(scene.file, scene.document)


def directory(scene):
    os.mkdir(scene.document)
    os.chown(scene.document, OTHER, OTHER)


def link_put_back(scene):
    """Returns a process that puts the link back whenever it is gone, as long as a run can take."""
    child = os.fork()
    if child == 0:
        os.setgid(OTHER)
        os.setuid(OTHER)
        end = time.monotonic() + HANG
        while time.monotonic() < end:
            try:
                os.symlink(scene.file, scene.document)
            except OSError:
                pass
        os._exit(0)
    return child


def nothing(_):
    pass


@dataclass(frozen=True)
class Attack:
    name: str
    plant: Callable = nothing  # puts something in the document's place; can return a process to be ended
    later: str = ""  # the shell command of the attacker once the document is written
    umask: int = 0o022


ATTACKS = (
    Attack("link to a file of the victim", link_to_file),
    Attack("link to a name in the victim's directory", link_to_nothing),
    Attack("link to a file of the attacker", link_to_own_file),
    Attack("link to /dev/null", link_to_null),
    Attack("link that is put back again and again", link_put_back),
    Attack("FIFO", fifo),
    Attack("file of the attacker", own_file),
    Attack("file of the attacker, rewritten later", own_file, OVERWRITE),
    Attack("hard link to a file of the victim", hard_link),
    Attack("directory", directory),
    Attack("document replaced", later=REPLACE),
    Attack("document rewritten where umask is 0", later=OVERWRITE, umask=0),
)


def judge_document(lab, status, scene):
    printed = lab.sandbox.printed(status)
    if printed is None:
        return None
    owner, mode, kind = read(status + ".spool/lp.stat").decode().split(" ", 2)
    if int(owner) != scene.victim or not kind.startswith("regular"):
        return f"the document was not the victim's own: {kind.strip()} of uid {owner}"
    if int(mode, 8) & 0o077:
        return f"the document was open to others: mode {mode}"
    return None if printed == lab.sandbox.document else "something else was printed"


def judge(lab, status, scene, outcome):
    if outcome.ending == "hang":
        return Short("hang: the run waits for the attacker")
    if found := scene.harm() or judge_document(lab, status, scene):
        return Short(found)
    return lab.sandbox.judge(ACCEPTING, status, outcome)


def start_waiting(lab, status, victim, **options):
    """Starts a shell that becomes zev when something is written to the pipe that is returned with it."""
    sandbox, go = lab.sandbox, os.path.join(status, "go")
    os.mkfifo(go)
    os.chown(go, victim, victim)
    command = ["sh", "-c", 'read go <"$0"; exec "$@"', go, *sandbox.command(ACCEPTING, status)]
    return go, process.start(command, ACCEPTING.answers, user=victim, group=victim, extra_groups=(), **options)


def try_attack(lab, case):
    victim, attack = case
    with lab.sandbox.status() as status:
        for path in (status, status + ".spool"):
            os.mkdir(path)
            os.chown(path, victim, victim)
        os.chmod("/tmp", 0o777 if links_are_protected() and attack.plant is not nothing else 0o1777)
        go, run = start_waiting(lab, status, victim, umask=attack.umask,
                                env=lab.sandbox.environment(status, ZEV_SWAP=attack.later))
        scene = Scene(status, victim, f"/tmp/zevdoc_{run.pid}_{SHOWN}.text")
        attacker = None
        try:
            remove(scene.document)  # of an earlier run with this process id
            attacker = attack.plant(scene)
            with open(go, "w", encoding="ascii") as pipe:
                pipe.write("go\n")
            return judge(lab, status, scene, process.finish(run, HANG))
        finally:
            process.kill(run)
            if attacker:
                os.kill(attacker, signal.SIGKILL)
                os.waitpid(attacker, 0)
            remove(scene.document)


def remove(path):
    if os.path.isdir(path) and not os.path.islink(path):
        shutil.rmtree(path)
    elif os.path.lexists(path):
        os.remove(path)


def links_are_protected():
    """Whether the kernel itself stops such attacks in a sticky directory; then a directory without the bit is used."""
    names = ("protected_symlinks", "protected_fifos", "protected_regular")
    return any(read(f"/proc/sys/fs/{name}").strip() not in (b"", b"0") for name in names)


def try_all(lab):
    what = "print document under attack by another user"
    if lab.no_mounts or not mounts.has_many_users():
        lab.skip(what, lab.no_mounts or "to be several users needs root")
        return
    cases = [(ROOT, attack) for attack in ATTACKS] + [(USER, attack) for attack in ATTACKS if not attack.later]
    lab.try_each(what, cases, lambda case: try_attack(lab, case), workers=1)
    os.chmod("/tmp", 0o1777)
