#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a window costs while a timer runs in it and nobody does anything."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, find, wait_until, walk

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
FRAME = "Frame rendered with 'software' renderloop"


class Idle(unittest.TestCase):
    def setUp(self):
        """Without a graphics card the program chooses the software renderer by itself, which tells of its frames."""
        for arguments in (("client", "add", "Acme Co"), ("project", "add", "Website", "--client", "Acme Co"),
                          ("start", "Website")):
            subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, check=True)
        environment = os.environ | {"QT_LOGGING_RULES": "qt.scenegraph.time.renderloop.debug=true"}
        del environment["QT_QUICK_BACKEND"]
        self.told = tempfile.NamedTemporaryFile()
        self.addCleanup(self.told.close)
        with open(self.told.name, "w") as told:
            program = subprocess.Popen([PROGRAMS / "elmworth-app"], env=environment, stderr=told)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        wait_until(lambda: find("Timesheet", "heading"), "the main window")

    def frames(self):
        return pathlib.Path(self.told.name).read_text().count(FRAME)

    @staticmethod
    def elapsed():
        return next(node.name for node in walk(application()) if node.name.startswith("Elapsed "))

    def wait_for_a_tick(self):
        before = self.elapsed()
        wait_until(lambda: self.elapsed() != before, "the next second")

    def test_each_second_takes_at_most_two_frames(self):
        for _ in range(2):  # what opens the window has come to rest
            self.wait_for_a_tick()
        self.assertGreater(self.frames(), 0)
        first = self.frames()
        for _ in range(5):
            self.wait_for_a_tick()
        self.assertLessEqual(self.frames() - first, 2 * 6)


if __name__ == "__main__":
    unittest.main(verbosity=2)
