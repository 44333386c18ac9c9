#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Import and restore of much from the window: they show how far they are, Escape stops them with nothing changed, and
the window goes on."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

import pyatspi
from gi.repository import GLib

sys.path.insert(0, os.path.dirname(__file__))
from settings_test import SettingsWindow
from timesheet_window import PROGRAMS, find, press, wait_until, walk

ENTRIES, CLIENTS = 200_000, 40
NOW = "2026-11-19T10:00:00Z"
STOPPED = "Stopped. Nothing was changed."
LONGEST_MINUTES = 4


class LongExchange(SettingsWindow):
    """A library as large as after a life of freelancing, and an empty one to restore it into."""

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(dir=os.environ["HOME"]))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        (cls.folder / "Elmworth").mkdir(mode=0o700)
        subprocess.run([PROGRAMS / "elmworth-make-library", cls.folder / "Elmworth/library.sqlite", str(ENTRIES), NOW],
                       check=True)
        cls.backup = cls.folder / "big.json"
        cls.table = cls.folder / "big.csv"
        environment = os.environ | {"XDG_DATA_HOME": str(cls.folder)}
        # A restore ends the timer that runs in a backup.
        for arguments in (("stop",), ("backup", cls.backup),
                          ("export", cls.table, "--from", "1990-01-01", "--through", "2027-01-01")):
            subprocess.run([PROGRAMS / "elmworth", *arguments], env=environment, check=True, capture_output=True)

    def add_master_data(self):
        """None: the library is empty."""

    def fill(self):
        self.focus_moves = []
        pyatspi.Registry.registerEventListener(self.focus_moved, "object:state-changed:focused")
        self.addCleanup(pyatspi.Registry.deregisterEventListener, self.focus_moved, "object:state-changed:focused")

    def focus_moved(self, event):
        """Looking through the window for what has the focus would take longer than the work."""
        try:
            if event.detail1:
                self.focus_moves.append((event.source.name, event.source))
        except GLib.Error:  # it went away with the dialog that it was in
            pass

    def start_on(self, *files):
        for file in files:
            os.link(file, self.home / file.name)
        self.start(cwd=self.home)
        self.take_keyboard()
        self.open_settings("General")
        wait_until(lambda: self.keyboard.focus("Settings"), "the settings on the display")

    def choose_in_dialog(self, name, role=None, **how):
        self.pointer.click(wait_until(lambda: find(name, role), f"{name} in the dialog"), **how)
        self.focus_moves.clear()

    def wait_for_work(self):
        """The button that stops it, which has the keyboard."""
        return wait_until(lambda: next((node for name, node in self.focus_moves if name == "Cancel"), None), "the work")

    def stop_the_work(self):
        cancel = self.wait_for_work()
        self.assert_progress(cancel)
        wait_until(lambda: self.keyboard.focus("Settings"), "the settings in front")
        self.key("Escape")

    def assert_progress(self, cancel):
        """The sheet round the button says what is done, and how far it is."""
        sheet = cancel
        while sheet.getRoleName() != "dialog":
            sheet = sheet.parent
        shown = [(node.getRoleName(), node.name, node.description) for node in walk(sheet)]
        self.assertTrue(any(name.endswith("…") for _, name, _ in shown), shown)
        self.assertTrue(any(role == "progress bar" and description.endswith("%") for role, _, description in shown),
                        shown)

    def read_result(self, title, text):
        """Waits for the alert, however long the work takes, and closes it."""
        end = time.monotonic() + 60 * LONGEST_MINUTES
        while not (alert := find(title, "dialog")) or not alert.description.startswith(text):
            self.assertLess(time.monotonic(), end, f"{text}, not {alert and alert.description}")
            time.sleep(0.5)
        press("OK")
        wait_until(lambda: not find("OK"), "the alert's end")

    def count(self, kind):
        return len(self.as_json(kind, "list"))

    def press_restore(self):
        self.press_below("Restore Backup…")
        self.choose_in_dialog(self.backup.name, times=2)

    def test_a_restore_is_stopped_and_then_done(self):
        self.start_on(self.backup)
        self.press_restore()
        self.stop_the_work()
        self.read_result("Import", STOPPED)
        self.assertEqual(self.count("client"), 0)
        press("Clients", "page tab")
        wait_until(lambda: find("Add your first client"), "the empty section")
        self.press_restore()
        self.read_result("Import", f"Restored {CLIENTS} clients")
        wait_until(lambda: find(f"{CLIENTS} clients"), "the restored clients")
        restored = self.home / "again.json"
        self.elmworth("backup", str(restored))
        same = self.without_date(restored) == self.without_date(self.backup)
        self.assertTrue(same, "another library was restored")

    @staticmethod
    def without_date(file):
        return [line for line in file.read_text().splitlines() if '"exportedAt"' not in line]

    def test_an_import_is_stopped(self):
        self.start_on(self.table)
        press("Import CSV…")
        self.choose_in_dialog(self.table.name, times=2)
        self.choose_in_dialog("Import", "push button")  # of so much that it can't be undone
        self.stop_the_work()
        self.read_result("Import", STOPPED)
        self.assertEqual((self.count("client"), self.count("project")), (0, 0))
        self.assertTrue(find("Import CSV…"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
