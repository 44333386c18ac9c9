#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""From unbilled time to an invoice, by the keyboard alone."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from timesheet_window import TimesheetWindow, find, focused, wait_until

SHEET = "New Invoice", "dialog"
NO_TIME = "No unbilled, finished entries for this client in this period."


class NewInvoice(TimesheetWindow):
    def fill(self):
        self.elmworth("profile", "set", "name", "Jane Doe Design")
        self.fill_two_weeks()
        self.take_keyboard()
        self.key("Control_L+4")
        wait_until(lambda: find("Invoices", "heading"), "the invoices")

    def open(self):
        self.key("Control_L+Shift_L+n")
        wait_until(lambda: find(*SHEET), "the sheet")
        self.wait_for_focus("Client")

    def choose_globex(self):
        self.keyboard.type("glob")
        self.wait_for_focus("Search clients")
        self.key("Return")
        wait_until(lambda: focused() and focused().description == "Globex", "the client")

    def invoices(self):
        return self.as_json("invoice", "list")

    @staticmethod
    def wait_for(name):
        wait_until(lambda: find(name), name)

    def test_client_period_and_tax_are_chosen(self):
        self.open()
        self.choose_globex()
        self.wait_for(NO_TIME)
        self.tab_to("Period")
        self.key("Up")
        self.wait_for("App, 1.00 h × $100.00, $100.00")
        self.tab_to("Tax %")
        self.keyboard.type("abc")
        self.wait_for("“abc” is no percentage. Enter a number like 0 or 8.25, at most 100.")
        self.assertFalse(self.is_available("Create Invoice"))
        self.key("Return")
        self.key("Control_L+a")
        self.keyboard.type("8.25")
        self.wait_for("Tax: $8.25")
        self.wait_for("Total: $108.25")
        self.key("Return")
        self.wait_for_end(*SHEET)
        invoice, = self.invoices()
        self.assertEqual((invoice["client"], invoice["totalCents"]), ("Globex", 10825))

    def test_all_controls_have_names(self):
        self.open()
        self.assertEqual(self.nameless(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
