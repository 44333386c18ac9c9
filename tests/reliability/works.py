# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The works that people trust, as reliability_works does them, and what may be found after an interruption."""

import difflib
import os
import pathlib
import shutil
import subprocess

DRIVER = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "reliability_works"
ENVIRONMENT = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")} | {
    "TZ": "UTC", "LC_ALL": "C.UTF-8"}
ROWS = "150"  # a page for each would make thousands of calls


def driver(*arguments, **options):
    return subprocess.Popen([DRIVER, *arguments], env=ENVIRONMENT, **options)


def names():
    with driver("names", stdout=subprocess.PIPE, text=True) as process:
        return process.communicate()[0].split()


class StartReader:
    """What starts of the program find in a home, told by a process that does nothing else."""

    def __init__(self):
        self.process = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process:
            self.process.kill()
            self.process.communicate()

    def found(self, home):
        """A text; None when the program crashes on what lies there."""
        if not self.process:
            self.process = driver("found", stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.process.stdin.write(f"{home}\n".encode())
        self.process.stdin.flush()
        size = self.process.stdout.readline()
        if not size:
            self.process.communicate()
            self.process = None
            return None
        return self.process.stdout.read(int(size)).decode()


class Work:
    """A work that is ready to be done, again and again from the same beginning."""

    def __init__(self, name, folder, reader):
        self.name, self.folder, self.reader = name, folder, reader
        self.home = folder / "home"
        self.prepared = folder / ("prepared-" + name)
        with driver("prepare", name, self.prepared, ROWS) as process:
            assert process.wait() == 0, name
        self.states = self.states_by_step()

    def states_by_step(self):
        """What is found before the first step and after each."""
        self.again()
        states = [self.found()]
        while True:
            status, announced, errors = self.perform(first=len(states) - 1, count=1)
            assert status == 0, errors
            if announced == 0:
                return states
            states.append(self.found())
            if self.name == "migration":
                return states

    def again(self):
        shutil.rmtree(self.home, ignore_errors=True)
        shutil.copytree(self.prepared, self.home)
        return self.home

    def found(self):
        return self.reader.found(self.home)

    def begin(self, first=0, count=100):
        """A process that has loaded all it needs and waits for a line before it begins."""
        process = driver("perform", self.name, self.home, str(first), str(count), stdin=subprocess.PIPE,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        assert process.stdout.readline() == b"go?\n"
        return process

    @staticmethod
    def finish(process):
        """Its status, how many steps it acknowledged, and what it said on standard error."""
        output, errors = process.communicate(b"go\n", timeout=60)
        return process.returncode, output.count(b"done"), errors.decode()

    def perform(self, first=0, count=100):
        return self.finish(self.begin(first, count))

    def difference(self, acknowledged, found):
        """What stands against `found` after an interruption, when that many steps were acknowledged; empty when
        it is one of the two states that may be."""
        if found is None:
            return "the next start crashes"
        if found in self.states[acknowledged:acknowledged + 2]:
            return ""
        before = self.states[acknowledged].splitlines()
        return "\n".join(list(difflib.unified_diff(before, found.splitlines(), lineterm="", n=0))[:20])


def under_strace(work, process, log, *options):
    """Lets strace take hold of a process that waits to begin, so that it counts from there."""
    strace = subprocess.Popen(["strace", "-f", "-o", log, *options, "-p", str(process.pid)], stderr=subprocess.PIPE)
    assert b"attached" in strace.stderr.readline()
    try:
        return work.finish(process)
    finally:
        strace.communicate()
