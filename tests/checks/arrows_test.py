#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The check of the arrows between rooms finds each kind of them."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).with_name("arrows")
ROOMS = "low:\nhigh: low\nhigh/side: low\n"
LOW = "elmworth_room(\n    NAME elmworth_low\n    SOURCES Low.cpp\n)\n"
HIGH = "elmworth_qml_room(\n    NAME elmworth_high_ui\n    URI Elmworth.High\n    LINKS elmworth_low\n)\n"


class Arrows(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("rooms.txt", ROOMS)
        self.write("low/CMakeLists.txt", LOW)
        self.write("high/CMakeLists.txt", HIGH)
        self.write("high/High.cpp", '#include "low/Low.h"\n')

    def write(self, name, text):
        file = self.root / "src" / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def check(self):
        return subprocess.run([sys.executable, CHECK, self.root], capture_output=True, text=True)

    def expect(self, what):
        found = self.check()
        self.assertEqual(found.returncode, 1)
        self.assertIn(what, found.stdout + found.stderr)

    def test_those_of_the_table_are_allowed(self):
        found = self.check()
        self.assertEqual((found.returncode, found.stdout), (0, ""))

    def test_a_header_of_a_room_above_is_found(self):
        self.write("low/Low.h", '#include "high/High.h"\n')
        self.expect("low uses high")

    def test_a_header_of_a_room_below_that_folder_is_found(self):
        self.write("low/Low.h", '#include "high/side/Side.h"\n')
        self.expect("low uses high/side")

    def test_a_module_of_a_room_beside_is_found(self):
        self.write("high/side/Side.qml", "import Elmworth.High\n")
        self.expect("high/side uses high")

    def test_a_target_of_a_room_above_is_found(self):
        self.write("low/CMakeLists.txt", LOW.replace(")", "    LINKS elmworth_high_ui\n)"))
        self.expect("low uses high")

    def test_a_folder_that_the_table_does_not_have_is_found(self):
        self.write("new/New.cpp", "")
        self.expect("in no room")

    def test_a_circle_in_the_table_is_found(self):
        self.write("rooms.txt", "low: high\nhigh: low\n")
        self.expect("does not stand above it")


if __name__ == "__main__":
    unittest.main()
