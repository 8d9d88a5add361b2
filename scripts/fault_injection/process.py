"""Runs one command to its end, or to a time limit."""

import contextlib
import fcntl
import os
import select
import signal
import struct
import subprocess
import termios
import threading
import time
from typing import NamedTuple

TIME_LIMIT = 10.0  # seconds; a run takes some milliseconds
MOMENT = 0.03  # seconds; a person answers when nothing more is shown
OUTPUT_LIMIT = 2_000_000  # bytes; a whole dialogue takes some ten thousand


class Outcome(NamedTuple):
    code: int  # exit code, or the negative number of the signal that ended the run
    output: bytes  # standard output and error
    ending: str  # "exit", "hang", or "endless" if prompts are repeated for ever
    is_restored: bool = True  # whether a terminal has the modes that it had before


def start(command, answers="", env=None, **options):
    """Starts a command in a process group of its own. All its answers are in the pipe before it runs."""
    source, sink = os.pipe()
    os.write(sink, answers.encode())
    os.close(sink)
    try:
        return subprocess.Popen(command, stdin=source, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=env,
                                start_new_session=True, **options)
    finally:
        os.close(source)


def kill(process):
    """Ends a command and what it started, unless it has ended already."""
    if process.returncode is None:
        os.killpg(process.pid, signal.SIGKILL)


def finish(process, limit=TIME_LIMIT):
    """Reads what a started command writes and waits for its end."""
    deadline = time.monotonic() + limit
    chunks, size, ending = [], 0, "exit"
    while True:
        ready, _, _ = select.select([process.stdout], [], [], max(0, deadline - time.monotonic()))
        chunk = os.read(process.stdout.fileno(), 1 << 16) if ready else None
        if chunk == b"":
            break
        size += len(chunk or b"")
        if chunk is None or size > OUTPUT_LIMIT:
            ending = "hang" if chunk is None else "endless"
            kill(process)
            break
        chunks.append(chunk)
    process.stdout.close()
    try:
        process.wait(max(0.1, deadline - time.monotonic()))
    except subprocess.TimeoutExpired:
        ending = "hang"
        kill(process)
        process.wait()
    return Outcome(process.returncode, b"".join(chunks), ending)


def run(command, answers="", env=None, limit=TIME_LIMIT, **options):
    return finish(start(command, answers, env, **options), limit)


def converse(command, answer, env=None, limit=TIME_LIMIT, barrier=None):
    """Runs a command on a terminal of its own. Types the answer whenever nothing new is shown for a moment. With a
    barrier, it first waits there after something was shown."""
    screen, terminal = os.openpty()
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("4H", 24, 80, 0, 0))
    modes = termios.tcgetattr(terminal)
    # The first terminal that the leader of a session opens becomes its controlling terminal.
    process = subprocess.Popen(["sh", "-c", 'exec "$@" <>"$0" >&0 2>&0', os.ttyname(terminal), *command], env=env,
                               stdin=subprocess.DEVNULL, start_new_session=True)
    deadline, shown, ending = time.monotonic() + limit, b"", "exit"
    try:
        while True:
            if select.select([screen], [], [], MOMENT)[0]:
                shown += os.read(screen, 1 << 16)
            elif process.poll() is not None:
                break
            elif barrier and shown:
                with contextlib.suppress(threading.BrokenBarrierError):
                    barrier.wait(limit)
                barrier = None
            elif not barrier:
                os.write(screen, answer.encode())
            if time.monotonic() > deadline or len(shown) > OUTPUT_LIMIT:
                ending = "hang"
                kill(process)
                process.wait()
                break
        return Outcome(process.returncode, shown.replace(b"\r", b""), ending, termios.tcgetattr(terminal) == modes)
    finally:
        os.close(screen)
        os.close(terminal)
