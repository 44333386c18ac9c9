#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What changes under an open editor, and what can't be written: nothing crashes, and nothing typed is lost
without a word."""

import os
import resource
import signal
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session_manager import SessionManager
from timesheet_window import TimesheetWindow, find, press, wait_until

FAILED = "“Elmworth Timesheet.csv” can't be written: "
FULL = 1000  # no file may be longer


class BadInput(TimesheetWindow):
    def fill(self):
        self.elmworth("project", "add", "App", "--client", "Acme Co")
        self.log("2026-11-18T13:00", "2026-11-18T14:00", "Wednesday", project="App")
        self.log("2026-11-19T09:00", "2026-11-19T09:45", "Early")
        # A disk that is full is an error of a write and no signal.
        former = signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        self.addCleanup(signal.signal, signal.SIGXFSZ, former)
        self.start(restore_signals=False)
        self.see("Early", "Wednesday")
        self.take_keyboard()

    def limit_files(self, size):
        resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE, (size, resource.RLIM_INFINITY))

    def edit(self, notes):
        self.pointer.double_click(self.line(notes))
        wait_until(lambda: find("Save"), "the sheet")

    def test_a_full_disk_is_told_of_and_leaves_the_former_file(self):
        former = self.home / "Elmworth Timesheet.csv"
        former.write_text("former")
        for hour in range(9, 15):
            self.log(f"2026-11-17T{hour:02}:00", f"2026-11-17T{hour:02}:30", "A long note " * 20)
        save = self.ask_for_a_file()
        self.limit_files(FULL)
        self.pointer.click(save)
        press("Replace")
        wait_until(lambda: find(FAILED + "File too large."), "what went wrong")
        self.assertEqual(former.read_text(), "former")
        self.assertEqual([file for file in self.home.iterdir() if "Timesheet" in file.name], [former])

    def ask_for_a_file(self):
        press("Export CSV")
        return wait_until(lambda: find("Save"), "the dialog")

    def test_what_a_full_disk_keeps_from_being_saved_is_saved_later(self):
        self.limit_files(FULL)
        self.edit("Early")
        self.fill_in("Notes", "Kept")
        press("Save")
        self.see("Kept", "Wednesday")
        self.wait_for_end("Save")  # the sheet takes the clicks until it has faded
        self.limit_files(resource.RLIM_INFINITY)
        self.edit("Wednesday")
        self.fill_in("Notes", "Kept too")
        press("Save")
        self.see("Kept", "Kept too")
        self.program.kill()
        self.program.wait()
        self.assertEqual(self.notes(), ["Kept", "Kept too"])

    def test_what_could_not_be_saved_is_when_the_session_ends(self):
        self.program.kill()
        self.program.wait()
        session = SessionManager()
        self.addCleanup(session.close)
        self.environment["SESSION_MANAGER"] = session.address
        self.start(restore_signals=False)
        self.see("Early", "Wednesday")
        wait_until(lambda: session.is_registered and session.saves == 1, "the application in the session")
        self.limit_files(FULL)
        self.edit("Early")
        self.fill_in("Notes", "Kept")
        press("Save")
        self.see("Kept", "Wednesday")
        self.limit_files(resource.RLIM_INFINITY)
        session.end_session()
        wait_until(lambda: session.saves == 2, "the answer that all is saved")
        self.program.kill()
        self.program.wait()
        self.assertEqual(self.notes(), ["Kept", "Wednesday"])

    def test_notes_of_a_book_survive_the_banner(self):
        book = "0123456789" * 10_000
        self.elmworth("start", "Website", "--notes", book)
        wait_until(lambda: find("What are you working on?", "text"), "the banner")
        self.tab_to("What are you working on?")
        self.key("End")
        self.keyboard.type("x")
        self.key("Return")
        wait_until(lambda: self.running()["notes"] == book + "x", "the notes")


if __name__ == "__main__":
    unittest.main(verbosity=2)
