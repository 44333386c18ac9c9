#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Many starts of the application at once become one application. ELMWORTH_STARTS says how many."""

import collections
import os
import pathlib
import sqlite3
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../e2e"))
from fake_tray import FakeTray
from gi.repository import GLib
from loop import wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
LIBRARY = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "Elmworth/library.sqlite"
COUNT = int(os.environ.get("ELMWORTH_STARTS", "8"))
IN_USE = b"The library is in use by another Elmworth process.\n"


def elmworth(*arguments):
    return subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, text=True, check=True).stdout


class Starts(unittest.TestCase):
    def setUp(self):
        self.tray = FakeTray()
        self.addCleanup(self.tray.close)
        elmworth("client", "add", "Acme Co")
        elmworth("project", "add", "Website", "--client", "Acme Co")
        elmworth("start", "Website")
        self.programs = [subprocess.Popen([PROGRAMS / "elmworth-app"], stderr=subprocess.PIPE) for _ in range(COUNT)]
        for program in self.programs:
            self.addCleanup(program.stderr.close)
            self.addCleanup(program.wait)
            self.addCleanup(program.kill)

    def owner(self):
        """The process that has the application's name on the bus."""
        name = GLib.Variant("(s)", ("org.elmworth.Elmworth",))
        return self.tray.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                       "GetConnectionUnixProcessID", name, None, 0, -1, None).unpack()[0]

    def test_one_lives_and_the_others_end_in_order(self):
        wait_until(lambda: sum(program.poll() is None for program in self.programs) == 1, "the end of all but one")
        one, = (program for program in self.programs if program.poll() is None)
        others = [(program.returncode, program.stderr.read()) for program in self.programs if program is not one]
        print(dict(collections.Counter(code for code, _ in others)), "by status")
        for code, errors in others:
            self.assertIn((code, errors), ((0, b""), (1, IN_USE)))
        self.assertEqual(self.owner(), one.pid)
        wait_until(lambda: self.tray.items, "the tray item")
        self.assertEqual(len(self.tray.items), 1)
        self.assertIn("Website — Acme Co", elmworth("status"))
        one.terminate()
        self.assertEqual(one.wait(timeout=60), 0)
        library = sqlite3.connect(LIBRARY)
        self.assertEqual(library.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
        self.assertEqual(library.execute("SELECT count(*) FROM TimeEntry").fetchall(), [(1,)])
        library.close()


if __name__ == "__main__":
    unittest.main(verbosity=2)
