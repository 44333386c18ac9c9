#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""From nothing to a running timer and on to an invoice, as somebody new goes it."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from timesheet_window import TimesheetWindow, find, focused_name, press, wait_until

MOST_PRESSES = 12  # of keys or buttons, beside the typing of names


class FirstTimer(TimesheetWindow):
    def add_master_data(self):
        """None: the library is empty."""

    def setUp(self):
        super().setUp()
        self.presses = 0
        self.start()
        self.take_keyboard()

    def count(self, keys):
        self.presses += 1
        self.key(keys)

    def click(self, name, role="push button"):
        self.presses += 1
        wait_until(lambda: find(name, role), name)
        press(name, role)

    def wait_for_focus_on(self, start):
        wait_until(lambda: focused_name().startswith(start), lambda: f"the focus on {start}, not {focused_name()}")

    def assert_it_runs(self):
        wait_until(lambda: self.running().get("project") == "Website", "the timer")
        self.assertLessEqual(self.presses, MOST_PRESSES)

    def test_by_the_keyboard_alone(self):
        self.count("Control_L+2")
        self.wait_for_focus_on("Add your first client")
        self.count("Return")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Acme Co")
        self.count("Return")
        wait_until(lambda: not find("Save"), "the end of the sheet")
        self.count("Control_L+3")
        self.wait_for_focus_on("Add a Project")
        self.count("Return")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Website")
        self.count("Return")
        wait_until(lambda: not find("Save"), "the end of the sheet")
        self.count("space")
        self.assert_it_runs()

    def test_by_buttons(self):
        self.click("Clients", "page tab")
        self.click("Add your first client")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Acme Co")
        self.click("Save")
        wait_until(lambda: not find("Save"), "the end of the sheet")
        self.click("Projects", "page tab")
        self.click("Add a Project")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Website")
        self.click("Save")
        wait_until(lambda: not find("Save"), "the end of the sheet")
        self.click("Start Website")
        self.assert_it_runs()

    def test_the_projects_lead_to_the_clients_first(self):
        self.click("Projects", "page tab")
        self.click("Go to Clients")
        wait_until(lambda: find("Add your first client"), "the empty section of the clients")


if __name__ == "__main__":
    unittest.main(verbosity=2)
