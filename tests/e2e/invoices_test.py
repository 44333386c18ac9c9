#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The invoices' section, by pointer and assistive technology, and by the keyboard alone."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from timesheet_window import PROGRAMS, TimesheetWindow, find, focused, focused_name, press, showing, wait_until, walk
from accessible import application


class InvoicesWindow(TimesheetWindow):
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

    def rows(self):
        return [node for node in walk(application())
                if node.getRoleName() == "list item" and node.name.startswith(("INV-", "R-")) and showing(node)]

    def numbers(self):
        return [self.plain(row).split(", ")[0] for row in self.rows()]

    def see(self, *numbers):
        wait_until(lambda: self.numbers() == list(numbers), lambda: f"{numbers}, not {self.numbers()}")

    def choose(self, number):
        press(next(row.name for row in self.rows() if row.name.startswith(number)), "list item")
        self.wait_for_detail(number)

    @staticmethod
    def wait_for_detail(number):
        wait_until(lambda: find(number, "heading"), f"the invoice {number}")

    def status(self, number):
        return self.as_json("invoice", "show", number)["status"]

    def wait_for_status(self, number, status):
        wait_until(lambda: self.status(number) == status, lambda: f"{status}, not {self.status(number)}")

    def scroll_to(self, name):
        self.take_keyboard()
        self.tab_to(name)


class InvoicesByHand(InvoicesWindow):
    def test_everything_has_a_name(self):
        self.choose("INV-2026-003")
        self.assertEqual(self.nameless(), [])

    def test_the_list_is_narrowed_down(self):
        self.assertTrue(find("3 total"))
        press("Paid", "push button")
        self.see("INV-2026-001")
        press("Overdue", "push button")
        wait_until(lambda: find("No overdue invoices"), "a line for none")
        press("Open", "push button")
        self.see("INV-2026-003", "INV-2026-002")

    def test_dates_of_a_draft_keep_their_term(self):
        self.choose("INV-2026-002")
        self.scroll_to("Due")
        self.fill_in("Issued", "10/11/2026")
        wait_until(lambda: self.value("Due") == "10/25/2026", lambda: self.value("Due"))

    def test_notes_are_printed(self):
        self.choose("INV-2026-002")
        self.scroll_to("Notes on invoice")
        self.fill_in("Notes on invoice", "PO 4711")
        wait_until(lambda: find("7/600"), "the counter")
        wait_until(lambda: self.as_json("invoice", "show", "INV-2026-002")["notes"] == "PO 4711", "the notes")
        self.fill_in("Notes on invoice", "x" * 700)
        wait_until(lambda: len(self.value("Notes on invoice")) == 600, "the cut")

    def test_the_text_of_an_email_is_copied(self):
        self.choose("INV-2026-002")
        press("More actions")
        press("Copy Email Text", "menu item")
        wait_until(lambda: find("Email copied"), "the notice")
        self.wait_for_end("Email copied")

    def test_one_that_is_deleted_elsewhere_leaves_the_screen(self):
        self.choose("INV-2026-002")
        self.elmworth("invoice", "delete", "INV-2026-002")
        wait_until(lambda: find("Select an invoice", "heading"), "the empty place")
        self.see("INV-2026-003", "INV-2026-001")


class InvoicesByKeyboard(InvoicesWindow):
    def fill(self):
        super().fill()
        self.take_keyboard()

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

    def test_a_draft_is_renamed_by_the_menu(self):
        self.to("INV-2026-003")
        self.key("Tab")
        self.tab_to("More actions")
        self.key("Return")
        wait_until(lambda: find("Rename…", "menu item"), "the menu")
        for _ in range(10):
            if focused_name() == "Rename…":
                break
            before = focused_name()
            self.key("Down")
            wait_until(lambda: focused_name() != before, "the next line of the menu")
        self.key("Return")
        self.wait_for_focus("Number")
        self.keyboard.type("R-8")
        self.tab_to("Mark as…")  # leaving the field is no Return
        self.wait_for_detail("INV-2026-003")

    def test_a_status_set_by_mistake_is_undone(self):
        self.to("INV-2026-003")
        self.key("Tab")
        self.tab_to("Mark Sent")
        self.key("space")
        self.wait_for_status("INV-2026-003", "sent")
        self.key("Control_L+z")
        self.wait_for_status("INV-2026-003", "draft")

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

    def test_the_menu_key_opens_what_can_be_done(self):
        self.to("INV-2026-002")
        self.key("Menu")
        wait_until(lambda: find("Delete Invoice…", "menu item"), "the menu")
        self.key("Escape")
        self.wait_for_end("Delete Invoice…", "menu item")

    def test_a_new_invoice_is_asked_for(self):
        self.key("Control_L+Shift_L+n")
        wait_until(lambda: find("New Invoice", "dialog") or find("New Invoice", "heading"), "the sheet")


if __name__ == "__main__":
    unittest.main(verbosity=2)
