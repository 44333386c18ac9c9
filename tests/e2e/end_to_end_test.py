#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The road of one hour, from a started timer to a PDF, walked from outside the program."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import unittest


sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, find, press, showing, wait_until, walk

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
HOME = pathlib.Path(os.environ["HOME"])


def elmworth(*arguments, status=0):
    """Runs a command, checks its exit status, and gives standard output (or standard error)."""
    done = subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, text=True)
    assert done.returncode == status, (arguments, done.returncode, done.stdout, done.stderr)
    return done.stdout if status == 0 else done.stderr


def as_json(*arguments):
    return json.loads(elmworth(*arguments, "--format", "json"))


class Road(unittest.TestCase):
    """The steps build on each other, in the order of their names."""

    program = None

    @classmethod
    def start_program(cls):
        cls.program = subprocess.Popen([PROGRAMS / "elmworth-app"])
        wait_until(application, "the application on the accessibility bus")

    @classmethod
    def tearDownClass(cls):
        if cls.program and cls.program.poll() is None:
            cls.program.kill()
            cls.program.wait()

    def test_01_a_client_and_a_project_are_added(self):
        elmworth("client", "add", "Acme Co", "--rate", "120", "--email", "billing@acme.example")
        elmworth("project", "add", "Website", "--client", "acme co", "--budget", "40")
        elmworth("project", "add", "<b>Brand</b> & Style", "--client", "Acme Co")
        names = [project["name"] for project in as_json("project", "list")]
        self.assertEqual(names, ["<b>Brand</b> & Style", "Website"])

    def test_02_the_panel_starts_a_timer_with_one_press(self):
        self.start_program()
        elmworth("panel")
        press("Start Website")
        wait_until(lambda: find("Stop timer"), "the card in the window")
        self.assertEqual(as_json("status")["running"]["project"], "Website")

    def test_03_every_control_has_a_role_and_a_name(self):
        for node in walk(application()):
            if node.getRoleName() in ("push button", "text") and showing(node):
                self.assertTrue(node.name, node)

    def test_04_a_command_shows_in_the_open_window_at_once(self):
        elmworth("start", "<b>brand</b> & style", "--notes", "Logo")
        wait_until(lambda: find("<b>Brand</b> & Style"), "the project's name as it is")
        wait_until(lambda: find("Start Website"), "the other project to switch to, in the panel")

    def test_05_a_second_start_ends_and_leaves_the_first_in_charge(self):
        second = subprocess.run([PROGRAMS / "elmworth-app"], timeout=20)
        self.assertEqual(second.returncode, 0)
        self.assertIsNone(self.program.poll())

    def test_06_the_timer_survives_a_kill(self):
        before = as_json("status")["running"]
        self.program.send_signal(signal.SIGKILL)
        self.program.wait()
        after = as_json("status")["running"]
        self.assertEqual(after["start"], before["start"])
        self.assertEqual(after["notes"], "Logo")
        type(self).start_program()
        wait_until(lambda: find("Stop"), "the restored timer")

    def test_07_the_window_stops_the_timer(self):
        press("Stop")
        wait_until(lambda: "running" not in as_json("status"), "the end of the timer")

    def test_08_an_invoice_of_a_period_is_made_while_the_window_is_open(self):
        elmworth("profile", "set", "name", "Jane Doe Design")
        elmworth("log", "website", "--from", "2026-03-02T09:00", "--to", "2026-03-02T11:30")
        elmworth("log", "website", "--from", "2026-03-03T09:00", "--to", "2026-03-03T09:50",
                 "--notes", "日本語 and العربية")
        invoice = as_json("invoice", "create", "--client", "Acme Co", "--from", "2026-03-01",
                          "--through", "2026-03-31", "--tax", "8.25")
        self.assertEqual(invoice["subtotalCents"], 40800)  # 2.5 h and 0.9 h at $120
        self.assertEqual(invoice["taxCents"], 3366)
        self.assertEqual(invoice["pages"], 1)
        self.assertIn("no unbilled", elmworth("invoice", "create", "--client", "Acme Co", "--from",
                                              "2026-03-01", "--through", "2026-03-31", status=1))

    def test_09_its_pdf_holds_the_same_figures(self):
        number = as_json("invoice", "list")[0]["number"]
        file = HOME / "invoice.pdf"
        elmworth("invoice", "pdf", number, str(file), "--paper", "a4")
        text = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True,
                              check=True).stdout
        for expected in (number, "Jane Doe Design", "Acme Co", "$408.00", "Tax (8.25%)", "$33.66",
                         "$441.66", "日本語", "Page 1 of 1"):
            self.assertIn(expected, text)
        stored = pathlib.Path(elmworth("invoice", "pdf", number).strip())
        self.assertEqual(stored.parent, HOME / "data/Elmworth/Invoices")
        self.assertTrue(stored.read_bytes().startswith(b"%PDF"))

    def test_09_named_files_follow_the_umask_of_the_caller_and_not_the_applications(self):
        number = as_json("invoice", "list")[0]["number"]
        for umask in (0o002, 0o077):
            files = [HOME / f"{umask}.{ending}" for ending in ("pdf", "csv", "json")]
            for arguments, file in zip((["invoice", "pdf", number], ["export"], ["backup"]), files):
                subprocess.run([PROGRAMS / "elmworth", *arguments, file], umask=umask, check=True, capture_output=True)
                self.assertEqual(file.stat().st_mode & 0o777, 0o666 & ~umask, file)
        stored = pathlib.Path(elmworth("invoice", "pdf", number).strip())
        self.assertEqual(stored.stat().st_mode & 0o777, 0o600)

    def test_10_the_same_pdf_is_made_without_the_application_and_without_a_display(self):
        self.program.send_signal(signal.SIGTERM)
        self.assertEqual(self.program.wait(timeout=20), 0)
        number = as_json("invoice", "list")[0]["number"]
        environment = {k: v for k, v in os.environ.items()
                       if k not in ("DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS")}
        done = subprocess.run([PROGRAMS / "elmworth", "invoice", "pdf", number, "-"],
                              capture_output=True, env=environment)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertTrue(done.stdout.startswith(b"%PDF"))

    def test_11_without_a_display_the_program_points_to_the_commands(self):
        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "QT_QPA_PLATFORM")}
        done = subprocess.run([PROGRAMS / "elmworth"], capture_output=True, text=True, env=environment)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.count("\n"), 1)
        self.assertIn("elmworth --help", done.stderr)


if __name__ == "__main__":
    unittest.main(failfast=True, verbosity=2)
