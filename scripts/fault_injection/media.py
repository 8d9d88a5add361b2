"""Files that cannot be read or written in full, without a tracer."""

import itertools
import os
import shutil
from signal import SIGXFSZ

import mounts
from sandbox import (ACCEPTING, FULL, LANGUAGES, NOTICES, REPEATED, REPLACING, SHOWN, TERMS, UNATTENDED, Fault, Scenario,
                     copy_of)

# In a file's place: memory whose first page cannot be read (an I/O error), or a directory.
STAND_INS = ("/proc/self/mem", "directory")
READ = [f"{kind}_{code}" for code in LANGUAGES for kind in ("LA", "LI")] + [TERMS, NOTICES]
EXTENDING = Scenario("over shorter texts", UNATTENDED.options, earlier="shorter")
RECORDING = (UNATTENDED, ACCEPTING, REPEATED, REPLACING, EXTENDING)
SIZES = 5000  # of the many that there are


def try_unreadable(lab, case):
    scenario, name, stand_in = case
    with lab.sandbox.status() as status:
        licences = status + ".licences"
        shutil.copytree(lab.sandbox.licences, licences)
        path = os.path.join(licences, name)
        os.remove(path)
        if stand_in == "directory":
            os.mkdir(path)
        else:
            os.symlink(stand_in, path)
        try:
            outcome = lab.sandbox.run(scenario, status, licences=licences)
            return lab.sandbox.judge(scenario, status, outcome)
        finally:
            shutil.rmtree(licences)


def try_file_size(lab, case):
    scenario, size, signal = case
    ignored = ("env", "--ignore-signal=XFSZ") if signal == "ignored" else ()
    with lab.sandbox.status(scenario.earlier) as status:
        outcome = lab.sandbox.run(scenario, status, (*ignored, "prlimit", f"--fsize={size}", "--"))
        was_ended = not ignored and outcome.code == -SIGXFSZ
        return lab.sandbox.judge(scenario, status, outcome._replace(code=15) if was_ended else outcome, FULL)


def try_full(lab, case):
    scenario, resource, free = case
    with lab.sandbox.status() as status:
        os.mkdir(status)
        mounts.mount_tmpfs(status, "mode=0755")
        try:
            if scenario.earlier:
                lab.sandbox.record(status, scenario.earlier)
            used = os.statvfs(status)
            blocks, files = used.f_blocks - used.f_bfree, used.f_files - used.f_ffree
            limit = f"size={(blocks + free) * mounts.PAGE}" if resource == "pages" else f"nr_inodes={files + free}"
            mounts.remount_tmpfs(status, limit)
            return lab.sandbox.judge(scenario, status, lab.sandbox.run(scenario, status), FULL)
        finally:
            mounts.unmount(status)


def try_memory(lab, case):
    scenario, mebibytes, _ = case
    with lab.sandbox.status(scenario.earlier) as status:
        outcome = lab.sandbox.run(scenario, status, ("prlimit", f"--as={mebibytes << 20}", "--"))
        return lab.sandbox.judge(scenario, status, outcome, Fault("brk", "ENOMEM"))


def try_all(lab):
    unreadable = itertools.product((ACCEPTING, UNATTENDED), READ, STAND_INS)
    lab.try_each("a file that cannot be read, or a directory in its place", unreadable,
                 lambda case: try_unreadable(lab, case), 0.04)
    sizes = list(itertools.product(RECORDING, range(len(copy_of(SHOWN)) + 2), ("ignored", "not ignored")))
    lab.try_each("file size limit", lab.random.sample(sizes, SIZES), lambda case: try_file_size(lab, case), 0.05)
    if lab.no_mounts:
        lab.skip("full file system", lab.no_mounts)
    else:
        full = itertools.product(RECORDING, ("pages", "inodes"), range(1, 40))
        lab.try_each("full file system", full, lambda case: try_full(lab, case), 0.05)
    memory = itertools.product((ACCEPTING, UNATTENDED), range(1, 64), ("MiB",))
    lab.try_each("limit of memory", memory, lambda case: try_memory(lab, case), 0.02)
