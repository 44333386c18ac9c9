#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The invoices' section by the keyboard alone."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from timesheet_window import PROGRAMS, TimesheetWindow, find, focused, showing, wait_until, walk
from accessible import application


class Invoices(TimesheetWindow):
    """Three invoices of Acme Co, of which the oldest is paid."""

    def fill(self):
        self.settings.write_text(self.settings.read_text() + "mainSection=Invoices\n")
        for month in ("08", "09", "10"):
            self.log(f"2026-{month}-03T09:00", f"2026-{month}-03T11:00", f"Work of {month}")
            self.elmworth("invoice", "create", "--client", "Acme Co", "--from", f"2026-{month}-01",
                          "--through", f"2026-{month}-28")
        for number, day in (("INV-2026-001", "2026-09-01"), ("INV-2026-002", "2026-10-01")):
            self.elmworth("invoice", "set", number, "issueDate", day)
        self.elmworth("invoice", "mark", "INV-2026-001", "paid")
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app"], env=self.environment)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(lambda: find("Invoices", "heading"), "the section")
        self.see("INV-2026-003", "INV-2026-002", "INV-2026-001")
        self.take_keyboard()

    def rows(self):
        return [node for node in walk(application())
                if node.getRoleName() == "list item" and node.name.startswith(("INV-", "R-")) and showing(node)]

    def numbers(self):
        return [self.plain(row).split(", ")[0] for row in self.rows()]

    def see(self, *numbers):
        wait_until(lambda: self.numbers() == list(numbers), lambda: f"{numbers}, not {self.numbers()}")

    @staticmethod
    def wait_for_detail(number):
        wait_until(lambda: find(number, "heading"), f"the invoice {number}")


    def to(self, number):
        """Selects an invoice in the list by the arrows."""
        self.tab_to("Invoices")
        self.key("Home")
        for _ in range(self.numbers().index(number)):
            self.key("Down")
        self.wait_for_detail(number)

    def tab_to(self, name, backwards=False):
        # The sidebar has a button of that name too.
        if name != "Invoices":
            return super().tab_to(name, backwards)
        for _ in range(60):
            if self.is_on_the_list():
                return
            before = focused()
            self.key("Tab")
            wait_until(lambda: focused() != before, "the next focus")
        raise AssertionError("Tab does not reach the list")

    @staticmethod
    def is_on_the_list():
        node = focused()
        return (node is not None and node.name.startswith(("Invoices", "INV-"))
                and node.getRoleName() not in ("page tab", "heading"))

    def test_everything_has_a_name(self):
        self.to("INV-2026-003")
        self.assertEqual(self.nameless(), [])

    def test_a_draft_is_renamed(self):
        self.to("INV-2026-003")
        self.key("F2")
        self.wait_for_focus("Number")
        self.keyboard.type("INV-2026-001")
        self.key("Return")
        wait_until(lambda: find("Another invoice already uses that number."), "the refusal")
        self.assertEqual(self.value("Number"), "INV-2026-003")
        self.keyboard.type("R-7")
        self.key("Return")
        self.wait_for_detail("R-7")
        self.see("R-7", "INV-2026-002", "INV-2026-001")
        self.key("F2")
        self.wait_for_focus("Number")
        self.keyboard.type("never")
        self.key("Escape")
        self.wait_for_detail("R-7")

    def test_an_invoice_is_deleted_and_comes_back(self):
        self.to("INV-2026-002")
        self.key("Delete")
        wait_until(lambda: find("Delete INV-2026-002?"), "the question")
        self.assertTrue(find("Its 1 time entries become unbilled again."))
        self.key("Escape")
        self.wait_for_end("Delete INV-2026-002?")
        self.key("Delete")
        wait_until(lambda: find("Delete INV-2026-002?"), "the question")
        self.tab_to("Delete Invoice")
        self.key("Return")
        self.see("INV-2026-003", "INV-2026-001")
        self.key("Control_L+z")
        self.see("INV-2026-003", "INV-2026-002", "INV-2026-001")


if __name__ == "__main__":
    unittest.main(verbosity=2)
