#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What is durable after one sync, and what needs none, seen in the system calls of the program."""

import collections
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
TRACED = "trace=write,fsync,fdatasync,sync,syncfs,sync_file_range,msync"
SYNC = re.compile(r"\b(?:fsync|fdatasync|sync|syncfs|sync_file_range|msync)\((?:\d+<([^>]*)>)?")
STEP = re.compile(r'\bwrite\(1<[^>]*>, "step (\w+)')


def syncs_by_step(program, home, folders=None):
    """The files that `program` syncs, by the step that it announced before."""
    log = home / "calls"
    environment = os.environ | (folders or {"XDG_DATA_HOME": str(home), "XDG_CONFIG_HOME": str(home)})
    subprocess.run(["strace", "-f", "-y", "-e", TRACED, "-o", log, *program], check=True,
                   env=environment, stdout=subprocess.PIPE)
    step = ""
    synced = collections.defaultdict(list)
    for line in log.read_text().splitlines():
        if found := STEP.search(line):
            step = found[1]
        elif found := SYNC.search(line):
            synced[step].append(pathlib.Path(found[1] or "/").name)
    return synced


class Sync(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        (self.home / "Elmworth").mkdir(mode=0o700)
        self.library = self.home / "Elmworth" / "library.sqlite"
        subprocess.run([PROGRAMS / "elmworth-make-library", self.library, "1000"], check=True)

    def test_a_click_on_the_timer_syncs_the_log_once(self):
        synced = syncs_by_step([PROGRAMS / "timer_clicks", self.library], self.home)
        for step in ("start", "switch", "stop", "continue", "accidental"):
            with self.subTest(step):
                self.assertEqual(synced[step], ["library.sqlite-wal"])

    def test_opening_the_library_syncs_nothing(self):
        synced = syncs_by_step([PROGRAMS / "timer_clicks", self.library], self.home)
        self.assertEqual(synced["open"], [])

    def test_a_command_syncs_the_log_and_its_folder_only_when_it_changes_something(self):
        steps = ((("client", "add", "Key"), 1),
                 (("project", "add", "Key binding", "--client", "Key"), 1),
                 (("start", "Key binding"), 1),
                 (("status",), 0),
                 (("stop",), 1),
                 (("stop",), 0))
        for words, expected in steps:
            with self.subTest(words):
                synced = syncs_by_step([PROGRAMS / "elmworth", *words], self.home)
                self.assertEqual(synced[""], ["library.sqlite-wal", "Elmworth"] * expected)

    def test_the_first_command_of_all_syncs_the_names_of_the_folders_that_it_makes(self):
        with tempfile.TemporaryDirectory() as name:
            home = pathlib.Path(name)
            for words, folder in ((("client", "add", "Key"), "data"),
                                  (("settings", "set", "appearance", "dark"), "config")):
                environment = {"XDG_DATA_HOME": str(home / "data"), "XDG_CONFIG_HOME": str(home / "config")}
                synced = syncs_by_step([PROGRAMS / "elmworth", *words], home, environment)
                with self.subTest(words):
                    self.assertIn(home.name, synced[""])
                    self.assertIn(folder, synced[""])

    def test_the_command_loads_neither_the_bus_nor_a_gui(self):
        libraries = subprocess.run(["ldd", PROGRAMS / "elmworth"], check=True,
                                   capture_output=True, text=True).stdout
        for name in ("libQt6DBus", "libdbus", "libQt6Gui", "libQt6Qml", "libQt6Network"):
            with self.subTest(name):
                self.assertNotIn(name, libraries)


if __name__ == "__main__":
    unittest.main()
