"""Directories with damaged data of ICU, and variables that point there."""

import os
import random
import re
import shutil
import struct
import subprocess

from sandbox import ACCEPTING
from verdict import Short

DAMAGED = 400
VARIABLES = ("ICU_DATA", "ICU_TIMEZONE_FILES_DIR")
# What a run could read: the rules of line breaking, and the list of converters.
WANTED = re.compile(r"brkitr/(root|de|de_DE)\.res$|brkitr/line\w*\.brk$|cnvalias\.icu$")


def built_in(binary):
    """The data of ICU in an executable, or in the library that it loads: {name: bytes}, empty if there is none."""
    libraries = subprocess.run(["ldd", binary], capture_output=True, text=True, check=False).stdout
    for path in (binary, *re.findall(r"=> (\S*libicudata\S*)", libraries)):
        with open(path, "rb") as file:
            content = file.read()
        magic = content.find(b"\xda\x27\x14\0\0\0\0\0\x02\0CmnD")
        if magic >= 0:
            return items(content, magic - 2)
    return {}


def items(content, start):
    """Takes a package apart: a header, the number of items, pairs of offsets, then names and contents."""
    table = start + struct.unpack_from("<H", content, start)[0]
    number = struct.unpack_from("<I", content, table)[0]
    pairs = list(struct.iter_unpack("<II", content[table + 4:table + 4 + 8 * number]))
    found = {}
    for (name, begin), (_, end) in zip(pairs, pairs[1:]):
        name_end = content.index(b"\0", table + name)
        found[content[table + name:name_end].decode()] = content[table + begin:table + end]
    return found


def damage(noise, content):
    """Damages the data after the header, without which they would only be refused: noise, zeros, or an early end."""
    content = bytearray(content)
    kind = noise.randrange(3)
    if kind == 0:
        for _ in range(noise.choice((1, 4, 64))):
            content[noise.randrange(32, len(content))] = noise.randrange(256)
    elif kind == 1:
        begin = noise.randrange(32, len(content))
        end = min(len(content), begin + noise.choice((4, 64, 4096)))
        content[begin:end] = bytes(end - begin)
    else:
        del content[noise.randrange(32, len(content)):]
    return bytes(content)


def try_damaged(lab, data, case):
    variable, name, number = case
    content = damage(random.Random(number), data[name])
    with lab.sandbox.status() as status:
        directory = status + ".icu"
        path = os.path.join(directory, name)
        os.makedirs(os.path.dirname(path))
        with open(path, "wb") as file:
            file.write(content)
        try:
            outcome = lab.sandbox.run(ACCEPTING, status, env={variable: directory})
        finally:
            shutil.rmtree(directory)
        if outcome.code != 9:
            return Short(f"crash: signal {-outcome.code}" if outcome.code < 0 else f"exit {outcome.code}")
        return lab.sandbox.judge(ACCEPTING, status, outcome)


def try_all(lab):
    what = "damaged data of ICU in the environment"
    data = {name: content for name, content in built_in(lab.sandbox.binary).items() if WANTED.search(name)}
    if not data:
        lab.skip(what, "no data of ICU found in the executable")
        return
    cases = []
    for number in range(DAMAGED):
        name = lab.random.choice(sorted(data))
        cases.append((VARIABLES[number % 8 == 0], name, number))
    lab.try_each(what, cases, lambda case: try_damaged(lab, data, case), 0.05)
