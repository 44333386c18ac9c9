#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Each system call of a work fails once, in each way that it can: the work is then whole, or refused in a sentence and
undone, and can be done again. One of ELMWORTH_FAILURES such failures is tried, of 100 when it isn't set, in all works
or in those that are named behind the program's name."""

import collections
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(__file__))
from works import StartReader, Work, names, under_strace

NAMED = ("ENOSPC", "EIO", "EACCES", "EROFS", "EMFILE")
NEW = ("ENOSPC", "EIO", "EACCES", "EROFS")
OLD = ("EIO", "EACCES", "EROFS")
WAYS = {"openat": NAMED, "mkdir": NEW, "mkdirat": NEW, "rename": NEW, "renameat": NEW, "renameat2": NEW, "link": NEW,
        "linkat": NEW, "unlink": OLD, "unlinkat": OLD, "write": ("ENOSPC", "EIO"), "pwrite64": ("ENOSPC", "EIO"),
        "ftruncate": ("ENOSPC", "EIO"), "fallocate": ("ENOSPC", "EIO"), "fsync": ("ENOSPC", "EIO"),
        "fdatasync": ("ENOSPC", "EIO"), "close": ("ENOSPC", "EIO"), "read": ("EIO",), "pread64": ("EIO",),
        "newfstatat": ("EIO", "EACCES"), "fstat": ("EIO",), "stat": ("EIO", "EACCES"), "access": ("EIO", "EACCES"),
        "faccessat2": ("EIO", "EACCES"), "readlink": ("EIO", "EACCES"), "getdents64": ("EIO",),
        "fchmod": ("EIO", "EROFS"),
        "fcntl": ("EIO", "EACCES"), "flock": ("EIO",), "utimensat": OLD, "fchown": OLD}
LINE = re.compile(r"^(\d+) +(\w+)\(")
OWN_TROUBLE = 3  # the status of a driver that can't say what it does


def cases(work, log):
    """All that can fail: the call, its number in its thread, and the error."""
    work.again()
    status, _, errors = under_strace(work, work.begin(), log, "-e", "trace=" + ",".join("?" + call for call in WAYS))
    assert status == 0, errors
    calls = collections.Counter()
    for line in log.read_text().splitlines():
        if found := LINE.match(line):
            calls[found.groups()] += 1
    most = collections.Counter()
    for (_, call), count in calls.items():
        most[call] = max(most[call], count)
    return [(work, call, number, way) for call, count in most.items() for number in range(1, count + 1)
            for way in WAYS[call]]


def outcome(work, call, number, way, log):
    """What became of the work, in a word, and what is wrong with that."""
    work.again()
    process = work.begin()
    try:
        failure = f"inject={call}:error={way}:when={number}"
        status, acknowledged, errors = under_strace(work, process, log, "-e", failure)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        return "hung", "it goes on for ever"
    if "INJECTED" not in log.read_text():
        return "other", ""  # this time it made no such call
    if status == OWN_TROUBLE:
        return "other", ""
    if status < 0:
        return "crashed", f"signal {-status}: {errors}"
    found = work.found()
    wrong = work.difference(acknowledged, found)
    if wrong:
        return "broken", wrong + "\n" + errors
    if status == 0:
        return ("whole", "") if found == work.states[-1] else ("unsaid", "it was not done, and not refused")
    if not errors.strip():
        return "unsaid", "there is no sentence"
    if found != work.states[acknowledged]:
        return "durable", ""
    status, _, errors = work.perform(first=acknowledged)
    if status != 0 or work.found() != work.states[-1]:
        return "stuck", "it can't be done again: " + errors
    return "refused", ""


def tell(work, words):
    told = [words[word] for word in ("whole", "refused", "durable")]
    bad = words.total() - words["other"] - sum(told)
    print("|", " | ".join(map(str, (work, sum(told) + bad, *told, bad))), "|", flush=True)
    return bad


def main():
    share = os.environ.get("ELMWORTH_FAILURES", "100")  # one of so many
    chosen = random.Random(20261122)
    wrong_at_all = 0
    print("| work | calls that failed | whole | refused | refused, but durable | wrong |\n|---|---|---|---|---|---|")
    with tempfile.TemporaryDirectory() as name, StartReader() as reader:
        folder = pathlib.Path(name)
        log = folder / "calls"
        for work in sys.argv[1:] or names():
            tried = cases(Work(work, folder, reader), log)
            words = collections.Counter()
            for case in chosen.sample(tried, -(-len(tried) // int(share))):
                word, wrong = outcome(*case, log)
                words[word] += 1
                if wrong:
                    print(f"{work}: {case[1:]}: {word}: {wrong}\n", file=sys.stderr, flush=True)
            wrong_at_all += tell(work, words)
    sys.exit(wrong_at_all != 0)


if __name__ == "__main__":
    main()
