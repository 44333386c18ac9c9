#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Starting the application from elsewhere: by the bus, by its actions, by the panel command."""

import datetime
import json
import os
import pathlib
import signal
import subprocess
import sys
import unittest

from gi.repository import Gio, GLib

sys.path.insert(0, os.path.dirname(__file__))
from accessible import find
from loop import wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
ELMWORTH = PROGRAMS / "elmworth"
PACKAGING = pathlib.Path(__file__).resolve().parents[2] / "packaging"
NAME = "org.elmworth.Elmworth"
NO_BUS = {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}
NO_DISPLAY = {"DISPLAY": None, "WAYLAND_DISPLAY": None, "QT_QPA_PLATFORM": None}


def run(*arguments, **changes):
    environment = {k: v for k, v in (os.environ | changes).items() if v is not None}
    return subprocess.run([ELMWORTH, *arguments], env=environment, capture_output=True, text=True, timeout=60)


def running():
    return json.loads(run("status", "--format", "json").stdout).get("running")


def applications():
    """The processes of the application in this test's home."""
    found = []
    for process in pathlib.Path("/proc").iterdir():
        try:
            is_ours = f"HOME={os.environ['HOME']}\0".encode() in (process / "environ").read_bytes()
            if is_ours and (process / "exe").readlink() == PROGRAMS / "elmworth-app":
                found.append(int(process.name))
        except OSError:  # not a process, or one that has ended
            continue
    return found


def window():
    return find("Timesheet", "heading")


def end_applications():
    for process in applications():
        os.kill(process, signal.SIGTERM)
    wait_until(lambda: not applications(), "the end of the application")


class Activation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        """The bus may start the application, as it may when the package is installed."""
        folder = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "dbus-1/services"
        folder.mkdir(parents=True)
        service = (PACKAGING / f"{NAME}.service.in").read_text()
        (folder / f"{NAME}.service").write_text(service.replace("@ELMWORTH_PROGRAMS@", str(PROGRAMS)))
        cls.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        cls.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "ReloadConfig", "()")
        run("client", "add", "Acme Co")
        run("project", "add", "Website", "--client", "Acme Co")

    def setUp(self):
        self.addCleanup(end_applications)

    @classmethod
    def call(cls, name, path, method, signature, *arguments):
        return cls.bus.call_sync(name, path, name.replace(NAME, "org.freedesktop.Application"), method,
                                 GLib.Variant(signature, arguments), None, 0, 60_000, None)

    def owner(self):
        """The process that has the name on the bus, or None."""
        try:
            return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "GetConnectionUnixProcessID", "(s)",
                             NAME).unpack()[0]
        except GLib.Error:
            return None

    def action(self, name):
        self.call(NAME, "/org/elmworth/Elmworth", "ActivateAction", "(sava{sv})", name, [], {})

    def activate(self):
        self.call(NAME, "/org/elmworth/Elmworth", "Activate", "(a{sv})",
                  {"activation-token": GLib.Variant("s", "token")})

    def test_the_bus_starts_the_application_for_its_window(self):
        self.activate()
        wait_until(window, "the window")
        self.assertEqual(len(applications()), 1)

    def test_the_bus_starts_the_application_for_an_action_and_no_window_opens(self):
        # Ends later than what other tests left.
        now = datetime.datetime.now()
        end = now + datetime.timedelta(hours=1)
        run("log", "Website", "--from", now.isoformat(timespec="seconds"), "--to", end.isoformat(timespec="seconds"),
            "--notes", "Draft")
        self.action("continue")
        self.assertEqual((running()["project"], running()["notes"]), ("Website", "Draft"))
        self.action("stop")
        self.assertIsNone(running())
        self.assertIsNone(window())
        self.activate()
        wait_until(window, "the window")

    def test_an_action_of_another_version_brings_the_window(self):
        self.action("fly")
        wait_until(window, "the window")

    def test_files_are_not_opened_but_the_window_comes(self):
        self.call(NAME, "/org/elmworth/Elmworth", "Open", "(asa{sv})", ["file:///etc/passwd"], {})
        wait_until(window, "the window")

    def test_the_panel_command_starts_the_application_and_ends(self):
        done = run("panel")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        first = applications()
        self.assertEqual(len(first), 1)
        wait_until(lambda: find("Start Website"), "the panel")
        self.assertEqual(run("panel", **NO_DISPLAY).returncode, 0)
        self.assertEqual(applications(), first)

    def test_the_new_invoice_command_opens_its_sheet_in_the_one_application(self):
        before = run("invoice", "list").stdout
        for _ in range(2):
            done = run("new-invoice")
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
            wait_until(lambda: find("Create Invoice"), "the sheet")
            self.assertEqual(len(applications()), 1)
        self.assertEqual(run("invoice", "list").stdout, before)

    def test_the_panel_command_reaches_an_application_without_windows(self):
        self.action("stop")
        self.assertEqual(run("panel").returncode, 0)
        wait_until(lambda: find("Start Website"), "the panel")

    def test_without_a_bus_the_panel_command_starts_one_application_and_no_second(self):
        done = run("panel", **NO_BUS)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(len(applications()), 1)
        second = run("panel", **NO_BUS)
        self.assertEqual((second.returncode, second.stderr),
                         (1, "The library is in use by another Elmworth process.\n"))

    def test_without_a_display_the_panel_command_fails_in_a_sentence(self):
        for changes in (NO_DISPLAY, {"DISPLAY": ":4711"}):
            done = run("panel", **changes)
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
            self.assertIn("elmworth --help", done.stderr)
            self.assertEqual(applications(), [])

    def test_what_works_in_memory_leaves_the_name_to_the_application(self):
        self.assertEqual(run("panel", XCTestConfigurationFilePath="").returncode, 0)
        self.assertEqual(run("-demo", "panel").returncode, 0)
        self.assertEqual(len(applications()), 2)
        self.assertIsNone(self.owner())
        self.activate()
        self.assertEqual(len(applications()), 3)
        self.assertIn(self.owner(), applications())
        self.assertEqual(run("start", "Website", "--notes", "Kept").returncode, 0)
        end_applications()
        self.assertEqual(running()["notes"], "Kept")
        run("stop")

    def test_the_application_takes_the_name_when_it_becomes_free(self):
        dbus = ("org.freedesktop.DBus", "/org/freedesktop/DBus")
        self.call(*dbus, "RequestName", "(su)", NAME, 0)
        run("panel")
        self.assertEqual(self.owner(), os.getpid())
        self.call(*dbus, "ReleaseName", "(s)", NAME)
        self.assertEqual([self.owner()], applications())
        self.assertEqual(run("start", "Website").returncode, 0)
        wait_until(lambda: find("Tracking"), "the timer that the command started, in the panel")
        self.action("stop")

    def test_a_command_reads_as_its_caller_writes_whoever_carries_it_out(self):
        theirs = {"LC_ALL": None, "LANG": "en_US.UTF-8", "LC_MONETARY": "de_DE.UTF-8", "LC_TIME": "fr_FR.UTF-8",
                  "TZ": "Pacific/Kiritimati"}  # where it is tomorrow already
        run("log", "Website", "--from", "2026-04-30T20:00", "--to", "2026-04-30T21:00")
        number = run("invoice", "create", "--client", "Acme Co", "--from", "2026-04-01", "--through", "2026-04-30")
        number = number.stdout.strip()
        commands = (("client", "list"), ("invoice", "list"), ("invoice", "show", number),
                    ("invoice", "email", number), ("report", "--period", "This Year"), ("status",))
        alone = [run(*command, **theirs).stdout for command in commands]
        self.assertIn("100,00\u00a0$", alone[0])
        self.assertIn("avr. 2026", alone[2])
        self.activate()
        self.assertEqual([run(*command, **theirs).stdout for command in commands], alone)

    def test_a_demo_opens_beside_the_application(self):
        self.activate()
        self.assertEqual(run("-demo", "panel").returncode, 0)
        self.assertEqual(len(applications()), 2)


if __name__ == "__main__":
    unittest.main(verbosity=2)
