# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main window on its timesheet, at a place and a time of the test's choosing."""

import csv
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

import pyatspi
from gi.repository import Atspi

from accessible import application, find, focused, focused_name, press, showing, walk
from keyboard import Keyboard
from loop import wait_until
from place import NEW_YORK
from pointer import Pointer

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
FAKETIME = str(next(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1")))
CONTROLS = ("push button", "page tab", "text", "menu item", "check box", "radio button", "combo box", "list",
            "list item", "heading", "chart")
SUMMARY_SPACES = str.maketrans({"\u202f": " ", "\u00a0": " "})


class TimesheetWindow(unittest.TestCase):
    """Each test has a home, a library and an application of its own."""

    place = NEW_YORK
    now = "2026-11-19T15:00"  # a Thursday; the week begins on the 15th there, and on the 16th in Berlin
    frame = "0 0 1200 900"

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(dir=os.environ["HOME"]))
        self.addCleanup(shutil.rmtree, self.home)
        self.settings = self.home / "config/Elmworth/Elmworth.ini"
        self.clock = self.home / "clock"
        self.environment = os.environ | {
            "HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"),
            "XDG_CONFIG_HOME": str(self.home / "config"), "TZ": self.place.zone, "LC_ALL": self.place.locale,
            "LD_PRELOAD": FAKETIME, "FAKETIME_TIMESTAMP_FILE": str(self.clock), "FAKETIME_NO_CACHE": "1",
            "FAKETIME_DONT_FAKE_MONOTONIC": "1", "FAKETIME_DONT_RESET": "1"}
        self.set_clock(self.now)
        self.settings.parent.mkdir(parents=True)
        self.settings.write_text(f"[General]\nmainWindowFrame={self.frame}\ndidOnboard=true\n"
                                 "hideGettingStarted=true\n")
        self.add_master_data()
        self.fill()

    def add_master_data(self):
        self.elmworth("client", "add", "Acme Co", "--rate", "100")
        self.elmworth("project", "add", "Website", "--client", "Acme Co")

    def fill(self):
        """What the library holds before the application starts."""

    def start(self, **options):
        self.start_program(**options)
        wait_until(lambda: find("Timesheet", "heading"), "the timesheet")

    def start_program(self, **options):
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app"], env=self.environment, **options)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)

    # The clock and the commands

    def set_clock(self, local, fold=0):
        """From now on the program and its commands find this time on the clock."""
        written = self.clock.with_suffix(".new")
        written.write_text(f"{self.place.instant(local, fold) - int(time.time()):+d}\n")
        written.rename(self.clock)

    def elmworth(self, *arguments):
        done = subprocess.run([PROGRAMS / "elmworth", *arguments], env=self.environment, capture_output=True,
                              text=True, timeout=60)
        self.assertEqual(done.returncode, 0, (arguments, done.stderr))
        return done.stdout

    def as_json(self, *arguments):
        return json.loads(self.elmworth(*arguments, "--format", "json"))

    def log(self, start, end, notes="", project="Website"):
        self.elmworth("log", project, "--from", start, "--to", end, "--notes", notes)

    def entries(self):
        """All there are, the newest first."""
        return self.as_json("report", "--from", "2000-01-01", "--through", "2100-01-01")["entries"]

    def notes(self):
        return [entry["notes"] for entry in self.entries()]

    @staticmethod
    def rows(file):
        """What an export wrote, or nothing while it didn't."""
        if not file.exists():
            return []
        with file.open(encoding="utf-8", newline="") as table:
            return list(csv.DictReader(table))

    def running(self):
        return self.as_json("status").get("running", {})

    # What the window shows

    def lines(self):
        """The texts of the lines that are on the screen, heads of days and entries."""
        return [self.plain(node) for node in self.showing_lines("heading", "list item")]

    @staticmethod
    def showing_lines(*roles):
        """In the order in which they are read, which is to be that on the screen."""
        found = wait_until(lambda: find("Days", "list"), "the list")
        return [node for node in found if node and node.getRoleName() in roles and showing(node)
                and node.name not in ("Timesheet", "Hours by day")]

    @staticmethod
    def plain(node):
        node.clearCache()
        return node.name.translate(SUMMARY_SPACES)

    def line(self, notes):
        """The line of the entry with these notes, or None."""
        return next((node for node in self.showing_lines("list item") if f", {notes}, " in self.plain(node)), None)

    def fill_two_weeks(self):
        """Gives the library some work of this week and the last, and starts the program on it."""
        self.elmworth("client", "add", "Globex")
        self.elmworth("project", "add", "App", "--client", "Globex")
        self.log("2026-11-12T09:00", "2026-11-12T10:00", "Last week")
        self.log("2026-11-17T10:00", "2026-11-17T11:30", "Tuesday")
        self.log("2026-11-18T13:00", "2026-11-18T14:00", "Wednesday", project="App")
        self.log("2026-11-19T09:00", "2026-11-19T09:45", "Early")
        self.log("2026-11-19T11:00", "2026-11-19T12:00", "Late")
        self.start()
        self.see("Late", "Early", "Wednesday", "Tuesday")

    def see(self, *notes):
        """Waits until the entries that show are those with these notes, from the top."""
        wait_until(lambda: self.shown_notes() == list(notes), lambda: f"{notes}, not {self.shown_notes()}")

    def shown_notes(self):
        return [self.plain(node).split(", ")[2] for node in self.showing_lines("list item")]

    def selected(self):
        """The notes of the selected entries that show."""
        return [self.plain(node).split(", ")[2] for node in self.showing_lines("list item")
                if node.getState().contains(pyatspi.STATE_SELECTED)]

    @staticmethod
    def nameless():
        """The controls on the screen without a name; there should be none."""
        return [node.getRoleName() for node in walk(application())
                if node.getRoleName() in CONTROLS and showing(node) and not node.name]

    def choose_period(self, name):
        button = next(node for node in find("Days", "list") if node and node.name.startswith("Range: "))
        press(button.name)
        press(name, "menu item")
        wait_until(lambda: find("Range: " + name), name)

    @staticmethod
    def is_available(name, role="push button"):
        return wait_until(lambda: find(name, role), name).description != "Unavailable"

    # Hands

    def take_keyboard(self):
        self.keyboard = Keyboard()
        wait_until(lambda: self.keyboard.focus("Elmworth"), "the window on the display")
        wait_until(lambda: find("Elmworth", "frame").getState().contains(pyatspi.STATE_ACTIVE), "the window's focus")
        self.pointer = Pointer(self.keyboard)

    def key(self, *keys):
        for name in keys:
            self.keyboard.key(name)

    def tab_to(self, name, backwards=False):
        """As many steps as it takes, and no more than there can be."""
        for _ in range(60):
            if focused_name() == name:
                return
            before = focused_name()
            self.key("Shift_L+Tab" if backwards else "Tab")
            wait_until(lambda: focused_name() != before, f"the focus after {before}")
        raise AssertionError(f"Tab does not reach {name}")

    def wait_for_focus(self, name):
        wait_until(lambda: focused_name() == name, lambda: f"the focus on {name}, not {focused_name()}")

    def wait_for_end(self, name, role=None):
        wait_until(lambda: not find(name, role), f"the end of {name}")

    @staticmethod
    def fill_in(name, text):
        """Types into a field as an assistive technology does."""
        field = wait_until(lambda: find(name, "text"), f"the field {name}")
        # Qt takes what is typed, but doesn't say that it does, so that pyatspi offers no way.
        assert Atspi.EditableText.set_text_contents(field, text), f"{name} can't be typed into"

    @staticmethod
    def value(name):
        text = wait_until(lambda: find(name, "text"), f"the field {name}").queryText()
        return text.getText(0, -1).translate(SUMMARY_SPACES)


__all__ = ["PROGRAMS", "TimesheetWindow", "find", "focused", "focused_name", "press", "showing", "walk", "wait_until"]
