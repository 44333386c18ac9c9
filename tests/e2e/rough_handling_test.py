#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The application under rough handling: a crowd, kills, and a desktop that lacks something."""

import json
import os
import pathlib
import signal
import sqlite3
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, find, focused, wait_until
from keyboard import Keyboard

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
ELMWORTH = PROGRAMS / "elmworth"
APPLICATION = PROGRAMS / "elmworth-app"


class Desktop(unittest.TestCase):
    """The application is open, on the bus and the display of this test."""

    def setUp(self):
        self.program = subprocess.Popen([APPLICATION])
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(application, "the application on the accessibility bus")

    def run_program(self, *arguments, program=ELMWORTH, **changes):
        environment = {k: v for k, v in (os.environ | changes).items() if v is not None}
        return subprocess.run([program, *arguments], env=environment, capture_output=True, text=True, timeout=30)

    def clients(self):
        return len(json.loads(self.run_program("client", "list", "--format", "json").stdout))

    def test_commands_at_once_are_carried_out_by_the_application(self):
        before = self.clients()
        commands = [subprocess.Popen([ELMWORTH, "client", "add", f"Client {i}"], stdout=subprocess.DEVNULL)
                    for i in range(20)]
        self.assertEqual([command.wait(timeout=30) for command in commands], [0] * 20)
        self.assertEqual(self.clients(), before + 20)

    def test_a_command_outlives_an_application_that_is_killed_under_it(self):
        before = self.clients()
        self.program.send_signal(signal.SIGSTOP)
        command = subprocess.Popen([ELMWORTH, "client", "add", "Survivor"], stdout=subprocess.DEVNULL)
        self.program.kill()
        self.assertEqual(command.wait(timeout=30), 0)
        self.assertEqual(self.clients(), before + 1)

    def test_without_the_bus_a_second_start_fails_and_leaves_the_first(self):
        second = self.run_program(program=APPLICATION, DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        self.assertEqual((second.returncode, second.stderr),
                         (1, "The library is in use by another Elmworth process.\n"))
        self.assertIsNone(self.program.poll())

    def test_asked_to_end_it_ends(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.program.send_signal(number)
            self.assertEqual(self.program.wait(timeout=20), 0, number)
            self.setUp()

    def test_a_terminal_that_closes_ends_no_program_that_ignores_it(self):
        self.program.kill()
        self.program.wait()
        self.program = subprocess.Popen(["nohup", APPLICATION], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(application, "the application on the accessibility bus")
        self.program.send_signal(signal.SIGHUP)
        self.assertGreater(self.clients(), -1)
        self.assertIsNone(self.program.poll())

    def test_a_display_that_is_not_there_is_told_in_a_sentence(self):
        for display, platform in ((":4711", None), (os.environ["DISPLAY"], "nonsense")):
            done = self.run_program(DISPLAY=display, QT_QPA_PLATFORM=platform)
            self.assertEqual(done.returncode, 1)
            self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
            self.assertIn("elmworth --help", done.stderr)


class LibraryOfItsOwn(unittest.TestCase):
    """Each test has a library with an invoice, whose file it changes as no program would."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.data = pathlib.Path(folder.name)
        self.elmworth("client", "add", "Acme", "--rate", "100")
        self.elmworth("project", "add", "Website", "--client", "Acme")
        for day in ("02", "03"):
            self.elmworth("log", "Website", "--from", f"2026-03-{day}T09:00", "--to", f"2026-03-{day}T10:00")
        self.number = self.elmworth("invoice", "create", "--client", "Acme", "--from", "2026-03-02",
                                    "--through", "2026-03-02").stdout.strip()

    def environment(self):
        return os.environ | {"XDG_DATA_HOME": str(self.data)}

    def elmworth(self, *arguments, status=0):
        done = subprocess.run([ELMWORTH, *arguments], env=self.environment(), capture_output=True, text=True,
                              timeout=30)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def start(self):
        program = subprocess.Popen([APPLICATION], env=self.environment())
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        wait_until(application, "the application on the accessibility bus")
        return program

    def file(self):
        return self.data / "Elmworth/library.sqlite"

    def damage(self, table):
        library = sqlite3.connect(self.file())
        library.execute("PRAGMA wal_checkpoint(TRUNCATE)")
        page, = library.execute("SELECT rootpage FROM sqlite_schema WHERE name = ?", (table,)).fetchone()
        size, = library.execute("PRAGMA page_size").fetchone()
        library.close()
        with open(self.file(), "r+b") as file:
            file.seek((page - 1) * size)
            file.write(b"\xa5" * size)

    def expect_told(self, status, errors):
        sentence = (f"Part of the library can't be read. Snapshots of it are in “{self.data}/Elmworth/Backups”. In a "
                    "terminal, elmworth check names what is damaged, and elmworth recover FOLDER writes what can be read "
                    "into a new library.")
        program = self.start()
        wait_until(lambda: find(sentence), "the line about the library")
        report = self.elmworth("report", "--period", "This Year", status=status)
        self.assertEqual(report.stderr, (errors or sentence) + "\n")
        self.elmworth("stop")
        self.elmworth("panel")
        self.assertIsNone(program.poll())
        program.terminate()
        self.assertEqual(program.wait(timeout=20), 0)

    def expect_window(self, reason):
        """A start from a menu, where nobody reads standard error, says it in a window, which any way of closing ends."""
        for keys in ("Return", "Escape", "Control_L+q"):
            program = subprocess.Popen([ELMWORTH], env=self.environment(), stderr=subprocess.PIPE, text=True)
            self.addCleanup(program.stderr.close)
            self.addCleanup(program.kill)
            alert = wait_until(lambda: find("The library can't be opened", "alert"), "the window")
            self.assertEqual(alert.description, reason)
            keyboard = Keyboard()
            wait_until(lambda: keyboard.focus("Elmworth") and focused(), "the window's focus")
            keyboard.key(keys)
            self.assertEqual(program.wait(timeout=20), 1)
            self.assertIn("elmworth recover FOLDER", program.stderr.read())
            wait_until(lambda: not application(), "the end of the program")

    def test_a_file_that_is_no_library_is_told_in_a_window_and_left_alone(self):
        self.file().write_bytes(b"No library")
        self.expect_window(f"The file {self.file()} is not an Elmworth library; move it away to start with an empty one.")
        self.assertEqual(self.file().read_bytes(), b"No library")

    def test_a_library_that_another_program_has_is_told_in_a_window(self):
        other = sqlite3.connect(self.file(), isolation_level=None)
        self.addCleanup(other.close)
        other.execute("BEGIN EXCLUSIVE")
        self.expect_window("Another program has the library open. Close it, and try again.")

    def test_projects_that_cannot_be_read_end_nothing_and_are_told(self):
        self.elmworth("start", "Website")
        self.damage("Project")
        self.expect_told(0, "")

    def test_clients_that_cannot_be_read_end_nothing_and_are_told(self):
        self.damage("Client")
        self.expect_told(0, "")

    def test_entries_that_cannot_be_read_end_nothing_and_are_told(self):
        self.damage("TimeEntry")
        self.expect_told(1, "The library is damaged: database disk image is malformed.")

    def test_an_invoice_whose_figures_do_not_fit_ends_nothing(self):
        library = sqlite3.connect(self.file())
        library.execute("UPDATE Invoice SET taxRateBasisPoints = 9223372036854775807")
        library.commit()
        library.close()
        sentence = f"The figures of {self.number} are too large."
        program = None
        for _ in ("alone", "handed over to the application"):
            self.assertIn(sentence, self.elmworth("invoice", "list").stdout)
            self.assertIn(sentence, self.elmworth("invoice", "show", self.number).stdout)
            for arguments in (("pdf", self.number, "-"), ("email", self.number)):
                self.assertEqual(self.elmworth("invoice", *arguments, status=1).stderr, sentence + "\n")
            self.elmworth("client", "list")
            program = program or self.start()
        self.assertIsNone(program.poll())


if __name__ == "__main__":
    unittest.main(verbosity=2)
