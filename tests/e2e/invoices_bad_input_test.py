#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Invoices that can't leave the house: one clear line, and nothing half done."""

import ctypes
import os
import resource
import signal
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from clipboard import Clipboard
from file_manager import Viewer
from timesheet_window import TimesheetWindow, find, press, wait_until

NUMBER = "INV-2026-001"
NAME = f"{NUMBER} Acme Co.pdf"
NO_PROGRAM = 3  # what xdg-open ends with where there is none
FULL = 1000  # no file may be longer
PR_CAPBSET_DROP, CAP_DAC_OVERRIDE = 24, 1


def obey_permissions():
    """As anybody but root does."""
    ctypes.CDLL(None).prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0)


class InvoicesBadInput(TimesheetWindow):
    def fill(self):
        self.log("2026-11-12T09:00", "2026-11-12T11:00", "Sprint")
        self.elmworth("invoice", "create", "--client", "Acme Co", "--period", "Last Week")
        self.settings.write_text(self.settings.read_text() + "mainSection=Invoices\n")
        self.viewer = Viewer(self.home / "bin", NO_PROGRAM)
        self.environment["PATH"] = f"{self.home / 'bin'}:/usr/bin:/bin"
        self.documents = self.home / "Documents"
        self.documents.mkdir()
        self.stored = self.home / f"data/Elmworth/Invoices/{NUMBER}.pdf"
        # A disk that is full is an error of a write and no signal.
        former = signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        self.addCleanup(signal.signal, signal.SIGXFSZ, former)
        self.start_program(restore_signals=False, preexec_fn=obey_permissions)
        row = wait_until(lambda: next((node for node in self.listed() if NUMBER in node.name), None), "the invoice")
        press(row.name, "list item")
        wait_until(lambda: find(NUMBER, "heading"), "its detail")
        self.take_keyboard()

    @staticmethod
    def listed():
        invoices = find("Invoices", "list")
        return [node for node in invoices or () if node]

    def export(self, button="Save"):
        press("Export PDF…")
        wait_until(lambda: find("Export PDF", "dialog"), "the dialog")
        self.pointer.click(wait_until(lambda: find(button, "push button"), button))
        self.wait_for_end("Export PDF", "dialog")

    def files(self):
        return [file.name for file in self.documents.iterdir()]

    @staticmethod
    def see(text):
        wait_until(lambda: find(text), text)

    def test_a_folder_that_cannot_be_written_to(self):
        self.documents.chmod(0o500)
        self.export()
        self.see(f"Could not create the PDF file. The folder “{self.documents}” can't be written to.")
        self.assertEqual((self.files(), self.stored.exists(), self.viewer.opened()), ([], False, []))
        self.documents.chmod(0o700)
        self.export()
        wait_until(lambda: self.files() == [NAME], "the file")
        self.wait_for_end(f"Could not create the PDF file. The folder “{self.documents}” can't be written to.")

    def test_a_full_disk(self):
        (self.documents / NAME).write_text("former")
        resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE, (FULL, resource.RLIM_INFINITY))
        self.export()
        press("Replace")
        self.see("Could not create the PDF file.")
        self.assertEqual((self.files(), (self.documents / NAME).read_text()), ([NAME], "former"))
        self.assertEqual((self.stored.exists(), self.viewer.opened()), (False, []))

    def test_no_viewer_and_no_file_manager(self):
        self.export()
        self.see(f"“{NAME}” was saved, but there is no program that opens it.")
        self.assertEqual(self.viewer.opened(), [self.documents / NAME])
        press("More actions")
        press("Show PDF in Files", "menu item")
        self.see(f"There is no file manager to show it in. It is here: {self.stored}")
        self.assertTrue(self.stored.read_bytes().startswith(b"%PDF"))

    def test_the_text_of_an_email_outlives_the_window(self):
        press("More actions")
        press("Copy Email Text", "menu item")
        self.see("Email copied")
        self.key("Control_L+w")
        wait_until(lambda: not find("Elmworth", "frame"), "the end of the window")
        self.assertEqual(Clipboard().text().splitlines()[:3],
                         ["Hi Acme Co,", "",
                          f"Please find attached invoice {NUMBER} for $200.00, due Dec 3, 2026."])
        self.assertIsNone(self.program.poll())


if __name__ == "__main__":
    unittest.main(verbosity=2)
