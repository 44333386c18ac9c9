#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The application on a machine that sleeps, is shut down, or loses its display."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import unittest

import dbusmock

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, find, press
from loop import wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
DATA = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "Elmworth"
FAKETIME = str(next(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1")))
CLOCK = pathlib.Path(os.environ["HOME"]) / "clock"
MANAGER = "org.freedesktop.login1.Manager"


def set_clock(offset_seconds):
    """How far the clock of the program and of its commands is ahead of the machine's."""
    written = CLOCK.with_suffix(".new")
    written.write_text(f"{offset_seconds:+d}\n")
    written.rename(CLOCK)


MOVED_CLOCK = {"LD_PRELOAD": FAKETIME, "FAKETIME_TIMESTAMP_FILE": str(CLOCK), "FAKETIME_NO_CACHE": "1",
               "FAKETIME_DONT_FAKE_MONOTONIC": "1", "FAKETIME_DONT_RESET": "1"}


def elmworth(*arguments):
    return subprocess.run([PROGRAMS / "elmworth", *arguments], env=os.environ | MOVED_CLOCK,
                          capture_output=True, text=True, timeout=60, check=True).stdout


def status():
    return json.loads(elmworth("status", "--format", "json"))


class Machine(dbusmock.DBusTestCase):
    @classmethod
    def setUpClass(cls):
        cls.start_system_bus()
        cls.system_bus = cls.get_dbus(system_bus=True)
        set_clock(0)
        elmworth("client", "add", "Acme Co")
        elmworth("project", "add", "Website", "--client", "Acme Co")

    def start_logind(self):
        """It has its methods when its name appears, unlike one that gets its template later."""
        logind = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--template", "logind"],
                                  stdout=subprocess.DEVNULL)
        self.addCleanup(self.end, logind)
        self.wait_for_bus_object("org.freedesktop.login1", "/org/freedesktop/login1", system_bus=True)
        self.manager = self.system_bus.get_object("org.freedesktop.login1", "/org/freedesktop/login1",
                                                  introspect=False)
        return logind

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.wait()

    def start_program(self, *arguments, **environment):
        program = subprocess.Popen([PROGRAMS / "elmworth-app", *arguments],
                                   env=os.environ | MOVED_CLOCK | environment)
        self.addCleanup(self.end, program)
        wait_until(application, "the application on the accessibility bus")
        return program

    def locks(self):
        return [tuple(map(str, lock[:4])) for lock in self.manager.ListInhibitors(dbus_interface=MANAGER)]

    def tell(self, signal_name, value):
        self.manager.EmitSignal(MANAGER, signal_name, "b", [value],
                                dbus_interface=dbusmock.MOCK_IFACE)

    def sleep(self, at, until):
        """A sleep between two offsets of the clock; logind waits for the lock."""
        set_clock(at)
        self.tell("PrepareForSleep", True)
        wait_until(lambda: not self.locks(), "the release of the lock")
        set_clock(until)
        self.tell("PrepareForSleep", False)
        wait_until(self.locks, "the lock after the sleep")

    def test_the_program_holds_a_delay_lock_while_it_runs(self):
        self.start_logind()
        program = self.start_program()
        wait_until(self.locks, "the lock")
        self.assertEqual(self.locks(), [("sleep:shutdown", "Elmworth", "Saves the library", "delay")])
        program.send_signal(signal.SIGINT)
        self.assertEqual(program.wait(timeout=20), 0)
        wait_until(lambda: not self.locks(), "the end of the lock")

    def test_a_sleep_stays_counted_and_the_wake_makes_a_snapshot(self):
        self.start_logind()
        set_clock(0)
        elmworth("start", "Website")
        start = status()["running"]["start"]
        self.start_program()
        wait_until(self.locks, "the lock")
        self.sleep(at=3600, until=3600 + 599)
        self.assertEqual(len(list((DATA / "Backups").glob("*.json"))), 1)
        self.sleep(at=8000, until=8000 + 600)
        now = status()
        self.assertEqual(now["running"]["start"], start)
        self.assertGreaterEqual(now["running"]["seconds"], 8600)
        self.assertEqual(len(list((DATA / "Backups").glob("*.json"))), 1)  # one a day
        elmworth("stop")

    def begin_with_panel(self):
        self.start_logind()
        set_clock(0)
        elmworth("start", "Website", "--notes", self.id())
        self.addCleanup(elmworth, "stop")
        self.start_program("--panel")
        wait_until(self.locks, "the lock")
        wait_until(lambda: find("Tracking"), "the running timer in the panel")

    def sleep_twice(self):
        self.sleep(at=8000, until=8000 + 5400)
        wait_until(lambda: find("Computer slept for 1:30. Keep that time?"), "the question")
        self.sleep(at=20000, until=20000 + 2700)
        wait_until(lambda: find("Computer slept for 2:15. Keep that time?"), "the question about both sleeps")

    def test_a_short_sleep_asks_nothing_and_kept_ones_change_nothing(self):
        self.begin_with_panel()
        self.sleep(at=3600, until=3600 + 599)
        self.assertIsNone(find("Keep"))
        self.sleep_twice()
        press("Keep")
        wait_until(lambda: not find("Keep"), "the end of the question")
        self.assertGreaterEqual(status()["running"]["seconds"], 22700)

    def test_discarded_sleeps_split_the_entry(self):
        self.begin_with_panel()
        self.sleep_twice()
        press("Discard")
        wait_until(lambda: not find("Discard"), "the end of the question")
        self.assertLess(status()["running"]["seconds"], 600)
        report = elmworth("report", "--from", "2000-01-01", "--through", "2100-01-01", "--format", "json")
        ended = [entry for entry in json.loads(report)["entries"] if entry["notes"] == self.id() and "end" in entry]
        self.assertEqual(len(ended), 2)
        for entry, expected in zip(ended, (20000 - 13400, 8000)):
            self.assertAlmostEqual(entry["seconds"], expected, delta=60)

    def test_after_ten_hours_the_panel_asks_whether_the_timer_was_forgotten(self):
        self.begin_with_panel()
        self.assertIsNone(find("Running a long time — forgot to stop?"))
        set_clock(10 * 3600 + 1)
        wait_until(lambda: find("Running a long time — forgot to stop?"), "the warning")
        press("Stop at…")
        press("Now", "menu item")
        wait_until(lambda: "running" not in status(), "the end of the timer")

    def test_a_logind_that_restarts_gets_asked_for_a_lock_again(self):
        self.start_program()
        for _ in range(2):
            logind = self.start_logind()
            wait_until(self.locks, "the lock")
            self.sleep(at=0, until=10)
            self.end(logind)

    def test_a_shutdown_waits_for_the_save(self):
        self.start_logind()
        program = self.start_program()
        wait_until(self.locks, "the lock")
        self.tell("PrepareForShutdown", True)
        wait_until(lambda: not self.locks(), "the release of the lock")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(timeout=20), 0)

    def test_without_a_system_bus_the_program_runs(self):
        program = self.start_program(DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nowhere")
        self.assertNotIn("running", status())
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(timeout=20), 0)

    def test_a_display_that_goes_away_ends_the_program_and_leaves_the_timer(self):
        display = subprocess.Popen(["Xvfb", "-displayfd", "1", "-nolisten", "tcp", "-noreset"],
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(display.stdout.close)
        self.addCleanup(self.end, display)
        program = self.start_program(DISPLAY=":" + display.stdout.readline().strip())
        elmworth("start", "Website")
        display.kill()
        self.assertEqual(program.wait(timeout=20), 1)
        self.assertEqual(status()["running"]["project"], "Website")
        elmworth("stop")


if __name__ == "__main__":
    unittest.main(verbosity=2)
