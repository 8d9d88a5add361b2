"""Runs one command to its end, or to the end of our patience."""

import os
import select
import signal
import subprocess
import time
from typing import NamedTuple

TIME_LIMIT = 10.0  # seconds; a run takes some milliseconds
OUTPUT_LIMIT = 2_000_000  # bytes; a whole dialogue takes some ten thousand


class Outcome(NamedTuple):
    code: int  # exit code, or the negative number of the signal that ended the run
    output: bytes  # standard output and error
    ending: str  # "exit", "hang", or "endless" where prompts are repeated for ever


def start(command, answers="", env=None, **options):
    """Starts a command in a process group of its own; its answers are all in the pipe before it runs."""
    source, sink = os.pipe()
    os.write(sink, answers.encode())
    os.close(sink)
    try:
        return subprocess.Popen(command, stdin=source, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=env,
                                start_new_session=True, **options)
    finally:
        os.close(source)


def kill(process):
    """Ends a command and what it started, unless it was waited for already."""
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
