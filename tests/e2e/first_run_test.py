#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The whole first run, from nothing to the first invoice: the welcome, the checklist, the settings, a client, a
project, an hour and its invoice, by pointer and by the keyboard alone."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from settings_test import SettingsWindow
from timesheet_window import find, focused_name, wait_until


class FirstRun(SettingsWindow):
    def add_master_data(self):
        """None: the library is empty."""

    def fill(self):
        self.settings.unlink()

    def setUp(self):
        super().setUp()
        self.start_program(cwd=self.home)
        wait_until(lambda: find("Welcome to Elmworth", "dialog"), "the welcome")
        self.take_keyboard()

    def click(self, name, role="push button"):
        self.pointer.click(wait_until(lambda: find(name, role), name))

    @staticmethod
    def wait_for(name):
        wait_until(lambda: find(name), name)

    def wait_for_focus_on(self, start):
        wait_until(lambda: focused_name().startswith(start), lambda: f"the focus on {start}, not {focused_name()}")

    def enter_business_name(self):
        wait_until(lambda: self.keyboard.focus("Settings"), "the settings on the display")
        self.tab_to("Business name")
        self.keyboard.type("Jane Doe")
        wait_until(lambda: self.profile("name") == "Jane Doe", "the business name")
        self.key("Control_L+w")
        wait_until(lambda: not find("Settings", "frame"), "the settings' end")
        wait_until(lambda: self.keyboard.focus("Elmworth"), "the window on the display")

    def enter(self, name, save):
        """Into the sheet that opens."""
        self.wait_for_focus("Name")
        self.keyboard.type(name)
        save()
        wait_until(lambda: not find("Save"), "the end of the sheet")

    def wait_for_timer(self):
        wait_until(lambda: self.running().get("project") == "Website", "the timer")
        self.set_clock("2026-11-19T16:00")

    def assert_that_all_is_done(self):
        wait_until(lambda: self.as_json("invoice", "list"), "the invoice")
        invoice, = self.as_json("invoice", "list")
        self.assertEqual((invoice["number"], invoice["client"], invoice["totalCents"]),
                         ("INV-2026-001", "Acme Co", 10000))
        wait_until(lambda: not find("Get set up"), "the end of the checklist")
        self.assertEqual(self.setting("didOnboard"), "true")

    def test_by_pointer(self):
        for button in ("Continue", "Continue", "Get Started", "Business details"):
            self.click(button)
        self.enter_business_name()
        self.wait_for("1 of 5 done")
        self.click("Add a client")
        self.click("Add your first client")
        self.enter("Acme Co", lambda: self.click("Save"))
        self.click("Timesheet", "page tab")
        self.click("Add a project")
        self.click("Add a Project")
        self.enter("Website", lambda: self.click("Save"))
        self.click("Start Website")
        self.wait_for_timer()
        self.click("Timesheet", "page tab")
        self.wait_for("3 of 5 done")
        self.click("Stop")
        self.wait_for("4 of 5 done")
        self.click("First invoice")
        self.click("New Invoice")
        self.click("Create Invoice")
        self.wait_for("INV-2026-001")
        self.click("Timesheet", "page tab")
        self.assert_that_all_is_done()

    def test_by_the_keyboard_alone(self):
        for button in ("Continue", "Continue", "Get Started"):
            self.wait_for_focus(button)
            self.key("Return")
        self.tab_to("Business details")
        self.key("Return")
        self.enter_business_name()
        self.key("Control_L+2")
        self.wait_for_focus_on("Add your first client")
        self.key("Return")
        self.enter("Acme Co", lambda: self.key("Return"))
        self.key("Control_L+3")
        self.wait_for_focus_on("Add a Project")
        self.key("Return")
        self.enter("Website", lambda: self.key("Return"))
        self.key("space")
        self.wait_for_timer()
        self.key("Control_L+Alt_L+period")
        wait_until(lambda: not self.running(), "the end of the timer")
        self.key("Control_L+4")
        self.wait_for("No invoices yet")
        self.key("Control_L+Shift_L+n")
        self.wait_for_focus("Client")
        self.wait_for("Total: $100.00")
        self.key("Return")
        self.wait_for("INV-2026-001")
        self.key("Control_L+1")
        self.assert_that_all_is_done()


if __name__ == "__main__":
    unittest.main(verbosity=2)
