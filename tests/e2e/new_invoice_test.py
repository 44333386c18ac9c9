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

    def test_two_presses_make_an_invoice(self):
        self.open()
        self.wait_for("Dates: Nov 8, 2026 – Nov 14, 2026")
        self.wait_for("Website, 1.00 h × $100.00, $100.00")
        self.wait_for("Total: $100.00")
        self.wait_for("Next number INV-2026-001")
        self.key("Return")
        self.wait_for_end(*SHEET)
        invoice, = self.invoices()
        self.assertEqual((invoice["number"], invoice["client"], invoice["totalCents"]),
                         ("INV-2026-001", "Acme Co", 10000))

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

    def test_days_are_typed(self):
        self.open()
        self.tab_to("Period")
        for _ in range(4):
            self.key("Down")
        self.tab_to("From")
        self.keyboard.type("11/19/2026")
        self.tab_to("Through")
        self.keyboard.type("11/17/2026")
        self.wait_for("3 entries")
        self.wait_for("Total: $330.00")
        self.key("Return")
        self.wait_for_end(*SHEET)
        invoice, = self.invoices()
        self.assertEqual(invoice["totalCents"], 33000)

    def test_escape_leaves_everything_as_it_was(self):
        self.open()
        self.key("Escape")
        self.wait_for_end(*SHEET)
        self.assertEqual(self.invoices(), [])
        self.open()
        self.tab_to("Cancel")
        self.key("space")
        self.wait_for_end(*SHEET)
        self.assertEqual(self.invoices(), [])

    def test_it_follows_what_happens_elsewhere(self):
        self.elmworth("profile", "set", "name", "")
        self.open()
        self.wait_for("Your business name is empty, so the invoice header will be blank.")
        self.log("2026-11-13T09:00", "2026-11-13T11:00")
        self.wait_for("Total: $300.00")
        self.elmworth("profile", "set", "name", "Jane Doe Design")
        wait_until(lambda: not find("Your business name is empty, so the invoice header will be blank."), "the end")
        self.elmworth("invoice", "create", "--client", "Acme Co", "--period", "last week")
        self.wait_for(NO_TIME)
        self.wait_for("Next number INV-2026-002")
        self.key("Return")
        self.assertTrue(find(*SHEET))
        self.choose_globex()
        self.elmworth("client", "delete", "Globex")
        self.wait_for("The client was deleted elsewhere. Choose another one.")
        self.assertEqual(focused().description, "Choose…")

    def test_all_controls_have_names(self):
        self.open()
        self.assertEqual(self.nameless(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
