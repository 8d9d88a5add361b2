"""Files that cannot be read or written in full, without a tracer."""

import os
import shutil

import mounts
from sandbox import ACCEPTING, LANGUAGES, NOTICES, REPEATED, TERMS, UNATTENDED, Fault, copy_of

# In a file's place: memory whose first page cannot be read (an I/O error), or a directory.
STAND_INS = ("/proc/self/mem", "directory")
READ = [f"{kind}_{code}" for code in LANGUAGES for kind in ("LA", "LI")] + [TERMS, NOTICES]


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
    scenario, size, signal, earlier = case
    prefix = ("prlimit", f"--fsize={size}", "--")
    if signal == "ignored":
        prefix = ("env", "--ignore-signal=XFSZ", *prefix)
    with lab.sandbox.status(earlier == "over a record") as status:
        outcome = lab.sandbox.run(scenario, status, prefix)
        if outcome.code == -25:  # SIGXFSZ
            outcome = outcome._replace(code=15)
        # What an earlier record holds beside a described failure is described too.
        return lab.sandbox.judge(REPEATED if earlier else scenario, status, outcome, Fault("write", "EFBIG"))


def try_full(lab, case):
    scenario, resource, free, earlier = case
    with lab.sandbox.status() as status:
        os.mkdir(status)
        mounts.mount_tmpfs(status, "mode=0755")
        try:
            if earlier:
                lab.sandbox.run(UNATTENDED, status)
            used = os.statvfs(status)
            blocks, files = used.f_blocks - used.f_bfree, used.f_files - used.f_ffree
            limit = f"size={(blocks + free) * mounts.PAGE}" if resource == "pages" else f"nr_inodes={files + free}"
            mounts.remount_tmpfs(status, limit)
            outcome = lab.sandbox.run(scenario, status)
            return lab.sandbox.judge(REPEATED if earlier else scenario, status, outcome, Fault("write", "ENOSPC"))
        finally:
            mounts.unmount(status)


def try_all(lab):
    files = [(ACCEPTING, name, stand_in) for name in READ for stand_in in STAND_INS]
    files += [(UNATTENDED, name, stand_in) for name in READ for stand_in in STAND_INS]
    lab.try_each("a file that cannot be read, or a directory in its place", files, lambda case: try_unreadable(lab, case), 0.04)

    largest = max(len(copy_of(code)) for code in LANGUAGES) + 2
    earlier = ("", "over a record")
    sizes = [(UNATTENDED, size, signal, record)
             for size in range(largest) for signal in ("ignored", "default") for record in earlier]
    lab.try_each("file size limit", sizes, lambda case: try_file_size(lab, case), 0.05)

    if not lab.no_mounts:
        full = [(scenario, resource, free, record) for scenario in (UNATTENDED, ACCEPTING)
                for resource in ("pages", "inodes") for free in range(1, 40) for record in earlier]
        lab.try_each("full file system", full, lambda case: try_full(lab, case), 0.05)
    else:
        lab.skip("full file system", lab.no_mounts)
