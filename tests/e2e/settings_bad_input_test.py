#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The settings window over files that are damaged, can't be written, or come from a later version."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from settings_test import SettingsWindow
from timesheet_window import find, press, showing, wait_until, walk

NOT_WRITTEN = "settings file can't be written"


class SettingsBadInput(SettingsWindow):
    def show(self):
        self.start(cwd=self.home)
        self.open_settings("General")

    @staticmethod
    def says(part):
        return any(part in node.name for node in walk(find("Settings", "frame")) if showing(node))

    def kept_aside(self):
        return list(self.settings.parent.glob("Elmworth.ini.damaged-*"))

    def test_what_cannot_be_written_is_told_and_the_old_state_stays(self):
        self.show()
        self.settings.unlink()
        self.settings.mkdir()  # stands in the way of any file of that name, also of root's
        self.pick("Appearance", "Dark")
        wait_until(lambda: self.says(NOT_WRITTEN), "the reason")
        self.assertTrue(self.is_chosen("Appearance", "System"))
        self.settings.rmdir()
        self.pick("Appearance", "Light")
        wait_until(lambda: self.setting("appearance") == "light", "the appearance")
        wait_until(lambda: not self.says(NOT_WRITTEN), "the end of the reason")

    def test_a_damaged_file_is_kept_under_another_name(self):
        damaged = bytes(range(256)) * 4
        self.settings.write_bytes(damaged)
        self.start_program(cwd=self.home)
        press("Skip")  # nobody can read that this isn't the first run
        self.open_settings("General")
        self.pick("Appearance", "Dark")
        wait_until(lambda: self.setting("appearance") == "dark", "the appearance")
        self.assertEqual([file.read_bytes() for file in self.kept_aside()], [damaged])


if __name__ == "__main__":
    unittest.main(verbosity=2)
