#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""From the first start over an empty library to a PDF that was paid, as somebody new goes the road: by the keyboard
alone, and as far as the file by the pointer."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from file_manager import FileManager, Viewer
from timesheet_window import TimesheetWindow, find, focused, focused_name, press, wait_until

MOST_PRESSES_TO_A_TIMER = 12  # of keys or buttons, beside the typing of names
MOST_PRESSES_TO_A_PDF = 6     # from the window with unbilled time
LOCKED = "Dates are locked once an invoice is sent"
NUMBER, RENAMED, NEXT = "INV-2026-001", "R-7", "INV-2026-002"
QUESTION = f"Delete {RENAMED}?"
NO_NAME = "Your business name is empty, so the invoice header will be blank."


class FirstTimer(TimesheetWindow):
    def add_master_data(self):
        """None: the library is empty."""

    def setUp(self):
        super().setUp()
        self.settings.write_text(f"[General]\nmainWindowFrame={self.frame}\n")
        self.viewer = Viewer(self.home / "bin")
        self.environment["PATH"] = f"{self.home / 'bin'}:{self.environment['PATH']}"
        self.files = FileManager()
        self.addCleanup(self.files.close)
        self.stored = self.home / "data/Elmworth/Invoices"
        self.presses = 0
        self.start()
        self.take_keyboard()
        wait_until(lambda: find("Welcome to Elmworth", "dialog"), "the welcome")

    # What is done, and counted

    def count(self, *keys):
        self.presses += len(keys)
        self.key(*keys)

    # What is seen

    def wait_for_focus_on(self, start):
        wait_until(lambda: focused_name().startswith(start), lambda: f"the focus on {start}, not {focused_name()}")

    def wait_for_name(self, name, role=None):
        return wait_until(lambda: find(name, role), name)

    def assert_the_timer_runs(self):
        wait_until(lambda: self.running().get("project") == "Website", "the timer")
        self.assertLessEqual(self.presses, MOST_PRESSES_TO_A_TIMER)

    def work_for_an_hour_and_a_half(self):
        self.set_clock("2026-11-19T16:25")
        wait_until(lambda: self.running()["seconds"] >= 80 * 60, "the elapsed time")

    def assert_the_timer_stopped(self):
        wait_until(lambda: not self.running(), "the end of the timer")
        self.presses = 0

    def assert_the_pdf(self, business=""):
        file = self.home / f"{NUMBER} Acme Co.pdf"
        wait_until(lambda: self.viewer.opened() == [file], lambda: f"{file}, not {list(self.home.iterdir())}")
        self.assertLessEqual(self.presses, MOST_PRESSES_TO_A_PDF)
        words = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=True).stdout
        lines = [" ".join(line.split()) for line in words.splitlines() if line.strip()]
        self.assertEqual(lines[0], business or "INVOICE")
        for line in ("BILL TO PERIOD", "Website 1.50 $100.00 $150.00", "Nov 19, 2026 — 1.50", "Subtotal $150.00",
                     "Total $150.00", "Page 1 of 1"):
            self.assertIn(line, lines)
        for part in (NUMBER, "Issued Nov 19, 2026", "Due Dec 3, 2026", "Acme Co Nov 15, 2026 – Nov 21, 2026"):
            self.assertIn(part, " ".join(lines))
        self.assertEqual(self.stored_files(), [NUMBER])
        self.assertEqual(self.pictures(NUMBER), 0)

    def stored_files(self):
        return sorted(file.stem for file in self.stored.iterdir())

    def pictures(self, number):
        listing = subprocess.run(["pdfimages", "-list", self.stored / f"{number}.pdf"], capture_output=True, text=True,
                                 check=True).stdout
        return len(listing.splitlines()) - 2

    def change_logo(self):
        subprocess.run(["convert", "-size", "60x20", "xc:orange", self.stored.parent / "logo.png"], check=True)

    def wait_until_shown(self, times):
        wait_until(lambda: len(self.files.shown) == times, "the file manager")
        self.assertEqual(self.files.shown[-1], self.stored / f"{RENAMED}.pdf")

    def wait_for_status(self, status):
        def now():
            return self.as_json("invoice", "show", RENAMED)["status"]
        wait_until(lambda: now() == status, lambda: f"{status}, not {now()}")

    def assert_the_dates_are_locked(self):
        self.wait_for_name(LOCKED)
        for day in ("Issued", "Due"):
            self.assertEqual(find(day, "text").description, LOCKED)

    def assert_invoiced_again(self):
        invoice, = self.as_json("invoice", "list")
        self.assertEqual((invoice["number"], invoice["totalCents"]), (NEXT, 15000))

    def change_the_logo(self):
        self.change_logo()
        self.show_the_file(2)
        self.assertEqual(self.pictures(RENAMED), 0)
        self.mark("Draft")
        self.show_the_file(3)
        self.assertEqual(self.pictures(RENAMED), 1)


class FirstTimerByKeyboard(FirstTimer):
    def test_the_whole_road(self):
        self.go_to_a_running_timer()
        self.work_for_an_hour_and_a_half()
        self.key("Control_L+Alt_L+period")
        self.assert_the_timer_stopped()
        self.go_to_a_pdf()
        self.assert_the_pdf()
        self.rename()
        self.show_the_file(1)
        self.be_paid()
        self.change_the_logo()
        self.invoice_again()

    def go_to_a_running_timer(self):
        self.wait_for_focus("Continue")
        self.count("Return", "Return", "Return")
        self.wait_for_end("Welcome to Elmworth")
        self.count("Control_L+2")
        self.wait_for_focus_on("Add your first client")
        self.count("Return")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Acme Co")
        self.count("Return")
        self.wait_for_end("Save")
        self.count("Control_L+3")
        self.wait_for_focus_on("Add a Project")
        self.count("Return")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Website")
        self.count("Return")
        self.wait_for_end("Save")
        self.count("space")
        self.assert_the_timer_runs()

    def go_to_a_pdf(self):
        self.count("Control_L+4")
        self.wait_for_focus("New Invoice")
        self.count("Return")
        self.wait_for_name("Total: $150.00")
        self.count("Return")
        self.wait_for_name(NUMBER, "heading")
        self.wait_for_end("New Invoice", "dialog")
        self.count("Control_L+e")
        self.wait_for_name("Export PDF", "dialog")
        wait_until(lambda: focused().getRoleName() == "text", "the name of the file")
        self.count("Return")

    def choose(self, line):
        """In a menu that is open."""
        self.wait_for_name(line, "menu item")
        for _ in range(10):
            if focused_name() == line:
                break
            before = focused_name()
            self.key("Down")
            wait_until(lambda: focused_name() != before, "the next line of the menu")
        self.key("Return")
        self.wait_for_end(line, "menu item")

    def rename(self):
        self.key("F2")
        self.wait_for_focus("Number")
        self.keyboard.type(RENAMED)
        self.key("Return")
        self.wait_for_name(RENAMED, "heading")
        self.assertEqual(self.stored_files(), [])

    def show_the_file(self, times):
        self.tab_to("More actions")
        self.key("Return")
        self.choose("Show PDF in Files")
        self.wait_until_shown(times)

    def mark(self, status):
        self.tab_to("Mark as…", backwards=True)
        self.key("Return")
        self.choose(status)
        self.wait_for_status(status.lower())

    def be_paid(self):
        self.tab_to("Mark Sent", backwards=True)
        self.key("space")
        self.wait_for_status("sent")
        self.tab_to("List individual entries on the PDF")
        self.assert_the_dates_are_locked()
        self.tab_to("Mark Paid", backwards=True)
        self.key("space")
        self.wait_for_status("paid")
        self.mark("Sent")

    def invoice_again(self):
        self.tab_to("More actions")
        self.key("Return")
        self.choose("Delete Invoice…")
        self.wait_for_name(QUESTION)
        self.tab_to("Delete Invoice")
        self.key("Return")
        self.wait_for_name("No invoices yet", "heading")
        self.assertEqual(self.stored_files(), [])
        self.key("Control_L+Shift_L+n")
        self.wait_for_name("Total: $150.00")
        self.key("Return")
        self.wait_for_name(NEXT, "heading")
        self.assert_invoiced_again()


class FirstTimerByPointer(FirstTimer):
    def test_the_whole_road(self):
        self.go_to_a_running_timer()
        self.work_for_an_hour_and_a_half()
        self.click("Timesheet", "page tab")
        wait_until(lambda: find("2 of 5 done"), "the checklist")  # a client and a project
        self.click("Stop timer")
        self.assert_the_timer_stopped()
        self.go_to_a_pdf()
        self.assert_the_pdf("Jane Doe")
        self.rename()
        self.click("Timesheet", "page tab")
        self.wait_for_end("Get set up")

    def click(self, name, role="push button", **options):
        self.presses += 1
        self.pointer.click(self.wait_for_name(name, role), **options)

    def go_to_a_running_timer(self):
        for button in ("Continue", "Continue", "Get Started"):
            self.click(button)
        self.wait_for_end("Welcome to Elmworth")
        self.click("Clients", "page tab")
        self.click("Add your first client")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Acme Co")
        self.click("Save")
        self.wait_for_end("Save")
        self.click("Projects", "page tab")
        self.click("Add a Project")
        self.wait_for_focus_on("Name")
        self.keyboard.type("Website")
        self.click("Save")
        self.wait_for_end("Save")
        self.click("Start Website")
        self.assert_the_timer_runs()

    def go_to_a_pdf(self):
        self.click("Invoices", "page tab")
        self.click("New Invoice")
        self.wait_for_name("Total: $150.00")
        self.name_the_business()
        self.click("Create Invoice")
        self.wait_for_name(NUMBER, "heading")
        self.wait_for_end("New Invoice", "dialog")
        self.click("Export PDF…")
        self.wait_for_name("Export PDF", "dialog")
        self.click("Save")

    def name_the_business(self):
        """Which is not needed for a PDF, so that it doesn't count."""
        self.wait_for_name(NO_NAME)
        press("Open Settings")
        self.wait_for_name("Settings", "frame")
        self.fill_in("Business name", "Jane Doe")
        self.wait_for_end(NO_NAME)
        wait_until(lambda: self.keyboard.focus("Settings"), "the settings on the display")
        self.key("Control_L+w")
        self.wait_for_end("Settings", "frame")
        wait_until(lambda: self.keyboard.focus("Elmworth"), "the window on the display")

    def rename(self):
        self.pointer.double_click(self.wait_for_name(NUMBER, "heading"))
        self.wait_for_name("Number", "text")
        self.keyboard.type(RENAMED)
        self.key("Return")
        self.wait_for_name(RENAMED, "heading")
        self.assertEqual(self.stored_files(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
