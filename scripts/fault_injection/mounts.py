"""A mount namespace of this process, in which it can mount; it ends with the process."""

import ctypes
import os

_libc = ctypes.CDLL(None, use_errno=True)
_CLONE_NEWNS, _CLONE_NEWUSER = 0x20000, 0x10000000
_MS_REMOUNT, _MS_REC, _MS_PRIVATE, _MNT_DETACH = 32, 16384, 1 << 18, 2
PAGE = os.sysconf("SC_PAGE_SIZE")


def _call(function, *arguments):
    if function(*arguments) != 0:
        error = ctypes.get_errno()
        raise OSError(error, os.strerror(error))


def take_own_tmp():
    """Gives this process and its children mounts of their own, and a new /tmp. Returns why that is denied, or ""."""
    user, group = os.getuid(), os.getgid()
    try:
        _call(_libc.unshare, _CLONE_NEWNS if user == 0 else _CLONE_NEWNS | _CLONE_NEWUSER)
        if user != 0:
            for name, content in (("setgroups", "deny"), ("uid_map", f"0 {user} 1"), ("gid_map", f"0 {group} 1")):
                with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                    file.write(content)
        _call(_libc.mount, b"none", b"/", None, _MS_REC | _MS_PRIVATE, None)
        mount_tmpfs("/tmp", "mode=1777")
    except OSError as error:
        return f"no mounts of its own: {error.strerror}"
    return ""


def mount_tmpfs(path, options=""):
    _call(_libc.mount, b"tmpfs", path.encode(), b"tmpfs", 0, options.encode())


def remount_tmpfs(path, options):
    _call(_libc.mount, b"tmpfs", path.encode(), b"tmpfs", _MS_REMOUNT, options.encode())


def unmount(path):
    _call(_libc.umount2, path.encode(), _MNT_DETACH)


def has_many_users():
    """Whether this process can run others as other users."""
    with open("/proc/self/uid_map", encoding="ascii") as file:
        return os.getuid() == 0 and any(int(line.split()[2]) > 65535 for line in file)
