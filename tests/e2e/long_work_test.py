#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Commands that take long: they tell how far they are, and Ctrl-C stops them with nothing changed."""

import datetime
import json
import os
import pathlib
import pty
import re
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
ELMWORTH = PROGRAMS / "elmworth"
ROWS = 300_000
SHOWN = re.compile(rb"\w+\xe2\x80\xa6 \d+%")


def write_table(file):
    with open(file, "w", encoding="utf-8") as table:
        table.write("Start,End,Hours,Client,Project\n")
        begin = datetime.datetime(2005, 1, 1)
        for row in range(ROWS):
            start = begin + datetime.timedelta(minutes=30 * row)
            end = start + datetime.timedelta(minutes=25)
            table.write(f"{start.isoformat()}Z,{end.isoformat()}Z,,Acme,Project {row % 40}\n")


class OnATerminal:
    """A command whose standard error is a terminal."""

    def __init__(self, *arguments):
        self.terminal, other = pty.openpty()
        self.process = subprocess.Popen([ELMWORTH, *arguments], stdout=subprocess.PIPE, stderr=other)
        os.close(other)
        self.text = b""

    def read(self):
        """More of what the terminal shows; empty at the end."""
        try:
            more = os.read(self.terminal, 1 << 16)
        except OSError:  # the last one who had the terminal open is gone
            more = b""
        self.text += more
        return more

    def read_until(self, pattern):
        while not pattern.search(self.text):
            if not self.read():
                raise AssertionError(f"{pattern.pattern!r} is not in {self.text!r}")

    def end(self):
        while self.read():
            pass
        os.close(self.terminal)
        self.process.stdout.close()
        return self.process.wait(timeout=60)


class LongWork(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.table = os.path.join(cls.folder.name, "time.csv")
        write_table(cls.table)

    def clients(self):
        done = subprocess.run([ELMWORTH, "client", "list", "--format", "json"],
                              capture_output=True, text=True, timeout=60, check=True)
        return [client["name"] for client in json.loads(done.stdout)]

    def delete_client(self, name):
        subprocess.run([ELMWORTH, "client", "delete", name], capture_output=True, timeout=60, check=True)

    def test_a_command_of_its_own_stops_at_an_interrupt_and_says_so(self):
        command = OnATerminal("import", self.table)
        command.read_until(SHOWN)
        command.process.send_signal(signal.SIGINT)
        self.assertEqual(command.end(), 1)
        self.assertTrue(command.text.endswith(b"Stopped. Nothing was changed.\r\n"), command.text[-200:])
        self.assertEqual(self.clients(), [])

    def test_the_application_shows_progress_and_stops_when_the_caller_is_interrupted(self):
        program = subprocess.Popen([PROGRAMS / "elmworth-app"])
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        wait_until(application, "the application on the accessibility bus")
        command = OnATerminal("import", self.table)
        command.read_until(SHOWN)
        command.process.send_signal(signal.SIGINT)
        self.assertEqual(command.process.wait(timeout=60), -signal.SIGINT)
        self.assertEqual(self.clients(), [])  # asked when the application is done with the import
        os.close(command.terminal)
        command.process.stdout.close()

    def test_the_application_goes_on_while_a_pipe_brings_a_table(self):
        program = subprocess.Popen([PROGRAMS / "elmworth-app"])
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        wait_until(application, "the application on the accessibility bus")
        command = subprocess.Popen([ELMWORTH, "import", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        command.stdin.write("Start,End,Hours,Client,Project\n")
        command.stdin.flush()
        self.assertEqual(self.clients(), [])  # answered while the table is not there yet
        command.stdin.write("2026-03-02T09:00:00Z,2026-03-02T10:00:00Z,,Acme,Website\n")
        told, _ = command.communicate(timeout=60)
        self.assertEqual((command.returncode, told.splitlines()[0][:17]), (0, "Imported 1 entry."))
        self.assertEqual(self.clients(), ["Acme"])
        document = subprocess.run([ELMWORTH, "backup", "-"], capture_output=True, timeout=60, check=True).stdout
        refused = subprocess.run([ELMWORTH, "restore", "-"], input=document, capture_output=True, timeout=60)
        self.assertEqual((refused.returncode, refused.stderr[:32]), (1, b"Restoring needs an empty library"))
        self.delete_client("Acme")
        restored = subprocess.run([ELMWORTH, "restore", "-"], input=document, capture_output=True, timeout=60)
        self.assertEqual((restored.stdout, restored.stderr), (b"Restored 1 clients and 0 invoices.\n", b""))
        self.delete_client("Acme")

    def test_without_a_terminal_there_is_nothing_to_read_but_the_result(self):
        done = subprocess.run([ELMWORTH, "-demo", "import", self.table], capture_output=True, text=True, timeout=120)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertTrue(done.stdout.startswith(f"Imported {ROWS} entries."), done.stdout)


if __name__ == "__main__":
    unittest.main(verbosity=2)
