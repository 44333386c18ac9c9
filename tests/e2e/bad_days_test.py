#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Desktops that lack something, names and numbers that nobody expects, and a clock that is set back: the application
starts, says nothing unneeded, and can be used."""

import csv
import os
import subprocess
import sys
import unittest

import pyatspi

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application
from keyboard import Keyboard
from timesheet_window import PROGRAMS, TimesheetWindow, find, press, showing, wait_until, walk

NOWHERE = "unix:path=/nowhere"
LONG_NAME = "A very long name " * 24 + "<b>&amp;</b> \U0001f389"
SEARCH = "Search all projects"


def starts_offered():
    return [node.name.removeprefix("Start ") for node in walk(application())
            if node.getRoleName() == "push button" and node.name.startswith("Start ") and showing(node)]


class BadDays(TimesheetWindow):
    def start_and_be_quiet(self, **environment):
        """Starts the application, and resumes and stops a timer. Without a bus there is nothing but the keyboard."""
        self.log("2026-11-19T09:00", "2026-11-19T10:00", "Early")
        self.environment |= environment
        words = self.home / "words"
        with words.open("w") as errors:
            self.program = subprocess.Popen([PROGRAMS / "elmworth-app"], env=self.environment, stderr=errors)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        keyboard = Keyboard()
        wait_until(lambda: keyboard.focus("Elmworth"), "the window")
        self.press_until_saved(keyboard, "Control_L+Shift_L+r")
        self.set_clock("2026-11-19T15:30")
        self.press_until_saved(keyboard, "Control_L+Alt_L+period")
        self.assertEqual(words.read_text(), "")
        self.assertIsNone(self.program.poll())
        self.program.kill()
        self.program.wait()
        self.assertEqual([round(entry["seconds"] / 300) * 5 for entry in self.entries()], [30, 60])

    def press_until_saved(self, keyboard, keys):
        """What comes before the window listens is lost."""
        log = self.home / "data/Elmworth/library.sqlite-wal"
        before = log.stat().st_mtime_ns
        wait_until(lambda: keyboard.key(keys) or log.stat().st_mtime_ns != before, f"what {keys} does")

    def test_without_a_session_bus(self):
        self.start_and_be_quiet(DBUS_SESSION_BUS_ADDRESS=NOWHERE)

    def test_without_a_system_bus(self):
        self.start_and_be_quiet(DBUS_SYSTEM_BUS_ADDRESS=NOWHERE)

    def test_in_a_locale_that_does_not_exist(self):
        self.start_and_be_quiet(LC_ALL="xx_YY.UTF-8", LANG="xx_YY")

    def test_on_a_desktop_whose_theme_is_not_there(self):
        self.start_and_be_quiet(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true", KDE_SESSION_VERSION="5")

    def test_one_of_four_hundred_projects_is_found_and_started(self):
        report = self.home / "report.csv"
        with report.open("w", newline="") as file:
            table = csv.writer(file)
            table.writerow(["Client", "Project", "Start date", "Start time", "End date", "End time"])
            for number in range(400):
                table.writerow(["Acme Co", f"Project {number:03}", "2026-11-02", "09:00:00", "2026-11-02", "09:30:00"])
        self.elmworth("import", str(report))
        self.start()
        self.elmworth("panel")
        wait_until(lambda: find(SEARCH), "the panel")
        self.fill_in(SEARCH, "project 237")
        wait_until(lambda: starts_offered() == ["Project 237"], starts_offered)
        press("Start Project 237")
        wait_until(lambda: self.running().get("project") == "Project 237", "the timer")

    def test_a_long_name_keeps_inside_the_panel(self):
        self.elmworth("project", "add", LONG_NAME, "--client", "Acme Co")
        self.start()
        self.elmworth("panel")
        panel = wait_until(lambda: find("Elmworth Panel"), "the panel").queryComponent()
        press("Start " + LONG_NAME)
        stop = wait_until(lambda: next((node for node in walk(find("Elmworth Panel")) if node.name == "Stop"), None),
                          "the running card")
        window, button = (part.getExtents(pyatspi.DESKTOP_COORDS) for part in (panel, stop.queryComponent()))
        self.assertGreater(button.x, window.x)
        self.assertLess(button.x + button.width, window.x + window.width)

    def test_a_clock_set_back_takes_time_off_and_stops_nothing(self):
        self.elmworth("start", "Website", "--notes", "Late")
        self.start()
        for clock, elapsed in (("15:30", "30:00"), ("15:20", "20:00"), ("14:00", "00:00"), ("15:40", "40:00")):
            self.set_clock("2026-11-19T" + clock)
            wait_until(lambda: self.elapsed().startswith(elapsed[:-1]), lambda: f"{elapsed} and not {self.elapsed()}")
            self.assertEqual(self.running()["notes"], "Late")
        press("Stop")
        wait_until(lambda: not self.running(), "the end of the timer")
        self.assertEqual([round(entry["seconds"] / 60) for entry in self.entries()], [40])

    @staticmethod
    def elapsed():
        """Of the running entry, without hours that are none."""
        for node in walk(application()):
            if node.name.startswith("Elapsed ") and showing(node):
                return node.name.removeprefix("Elapsed ").removeprefix("0:")
        return ""


if __name__ == "__main__":
    unittest.main(verbosity=2)
