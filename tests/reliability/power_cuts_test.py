#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The power fails at any moment of a work: whatever the disk kept of what it had not promised, the next start finds
each step whole or undone, and what was acknowledged. ELMWORTH_POWER_CUTS says how many different disks are tried for
each work; words behind the program's name are the works to try."""

import hashlib
import os
import pathlib
import random
import shutil
import sys
import tempfile

sys.path.insert(0, os.path.dirname(__file__))
from recorded_disk import CALLS, Disk, calls
from works import StartReader, Work, names, under_strace


def record(work, log):
    work.again()
    status, _, errors = under_strace(work, work.begin(), log, "-xx", "-s", "100000000", "-e", "trace=" + CALLS)
    assert status == 0, errors
    return list(calls(log))


def put(contents, home):
    shutil.rmtree(home, ignore_errors=True)
    for path, content in contents.items():
        if content is None:
            pathlib.Path(path).mkdir()
        else:
            pathlib.Path(path).write_bytes(content)


def digest(contents):
    sums = [(path, content and hashlib.sha256(content).hexdigest()) for path, content in sorted(contents.items())]
    return hashlib.sha256(repr(sums).encode()).digest()


def disks(work, recorded, count, chance):
    """Different disks, each with how many steps had been acknowledged. Fewer than `count` where a work leaves less to
    chance."""
    seen = set()
    for _ in range(40):
        work.again()
        disk = Disk(work.home)
        acknowledged = 0
        moments = sorted(chance.choices(range(len(recorded) + 1), k=-(-count // 10)))
        for moment in range(len(recorded) + 1):
            while moments and moments[0] == moment:
                moments.pop(0)
                contents = disk.cut(chance)
                key = (acknowledged, digest(contents))
                if key not in seen:
                    seen.add(key)
                    yield contents, acknowledged, moment
                if len(seen) == count:
                    return
            if moment < len(recorded):
                said = disk.repeat(*recorded[moment])
                acknowledged += said == b"done\n"


def main():
    count = int(os.environ.get("ELMWORTH_POWER_CUTS", "25"))
    chance = random.Random(20261122)
    at_all = 0
    print("| work | recorded calls | disks | undone | all done | some steps done | wrong |\n" + "|---" * 7 + "|")
    with tempfile.TemporaryDirectory() as name, StartReader() as reader:
        folder = pathlib.Path(name)
        for word in sys.argv[1:] or names():
            work = Work(word, folder, reader)
            recorded = record(work, folder / "calls")
            results = [0, 0, 0, 0]
            for contents, acknowledged, moment in disks(work, recorded, count, chance):
                put(contents, work.home)
                found = work.found()
                wrong = work.difference(acknowledged, found)
                if wrong:
                    print(f"{word}: cut before call {moment}, {acknowledged} acknowledged: {wrong}\n", file=sys.stderr,
                          flush=True)
                results[3 if wrong else 1 if found == work.states[-1] else 0 if found == work.states[0] else 2] += 1
            undone, whole, part, bad = results
            row = word, len(recorded), sum(results), undone, whole, part, bad
            print("|", " | ".join(map(str, row)), "|", flush=True)
            at_all += bad
    sys.exit(at_all != 0)


if __name__ == "__main__":
    main()
