#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a person without a tray is told, and how the window comes back."""

import os
import pathlib
import subprocess
import sys
import unittest

from gi.repository import Gio, GLib

sys.path.insert(0, os.path.dirname(__file__))
from accessible import find, wait_until
from fake_tray import FakeTray, connect
from keyboard import Keyboard

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
SERVICE = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
NUMBER = 7

NOTIFICATIONS_XML = """
<node><interface name="org.freedesktop.Notifications">
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
  </method>
</interface></node>"""


class FakeNotifications:
    """What shows sentences on a desktop, on a connection of its own."""

    def __init__(self):
        self.shown = []
        self.bus = connect()
        self.bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(NOTIFICATIONS_XML).interfaces[0],
                                 self.called, None, None)
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           "RequestName", GLib.Variant("(su)", (SERVICE, 4)), None, 0, -1, None)

    def called(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        _, _, _, title, text, *_ = arguments.unpack()
        self.shown.append((title, text))
        invocation.return_value(GLib.Variant("(u)", (NUMBER,)))

    def press(self, number):
        self.bus.emit_signal(None, PATH, SERVICE, "ActionInvoked", GLib.Variant("(us)", (number, "default")))

    def close(self):
        self.bus.close_sync()


def elmworth(*arguments):
    return subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, text=True, check=True).stdout


class ClosedWindow(unittest.TestCase):
    def setUp(self):
        self.notifications = FakeNotifications()
        self.addCleanup(self.notifications.close)

    def start(self, *arguments):
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app", *arguments])
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(lambda: find("Timesheet", "heading"), "the window")

    def start_in_tray(self, *arguments):
        tray = FakeTray()
        self.addCleanup(tray.close)
        self.start(*arguments)
        wait_until(lambda: tray.items and tray.was_asked, "the item in the tray")
        tray.settle()

    def close_window(self):
        keyboard = Keyboard()
        wait_until(lambda: keyboard.focus("Elmworth"), "the window on the display")
        keyboard.key("Control_L+w")
        wait_until(lambda: not find("Timesheet", "heading"), "the window's end")

    def test_without_a_tray_it_is_told_and_a_press_brings_the_window_back(self):
        self.start()
        self.close_window()
        wait_until(lambda: self.notifications.shown, "the sentence")
        title, text = self.notifications.shown[0]
        self.assertEqual(title, "Elmworth goes on")
        self.assertIn("Start Elmworth again to open its window", text)
        self.notifications.press(NUMBER + 1)  # another program's
        elmworth("status")
        self.assertFalse(find("Timesheet", "heading"))
        self.notifications.press(NUMBER)
        wait_until(lambda: find("Timesheet", "heading"), "the window again")

    def test_the_program_can_be_reached_without_any_window(self):
        self.start()
        self.close_window()
        self.assertEqual(subprocess.run([PROGRAMS / "elmworth"], timeout=20).returncode, 0)
        wait_until(lambda: find("Timesheet", "heading"), "the window again")
        self.close_window()
        elmworth("panel")
        wait_until(lambda: find("Elmworth Panel"), "the panel")
        wait_until(lambda: self.notifications.shown, "the sentence")
        self.assertEqual(len(self.notifications.shown), 1)

    def test_a_demo_which_nothing_could_reach_ends_with_its_window(self):
        self.start("-demo")
        self.close_window()
        self.assertEqual(self.program.wait(timeout=20), 0)

    def test_a_demo_in_a_tray_goes_on(self):
        self.start_in_tray("-demo")
        self.close_window()
        elmworth("status")
        self.assertIsNone(self.program.poll())

    def test_with_a_tray_nothing_is_said(self):
        self.start_in_tray()
        self.close_window()
        elmworth("status")
        self.assertEqual(self.notifications.shown, [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
