#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The application under rough handling: a crowd, kills, and a desktop that lacks something."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, wait_until

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


if __name__ == "__main__":
    unittest.main(verbosity=2)
