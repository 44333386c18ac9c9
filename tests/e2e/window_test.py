#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main window, worked by presses as an assistive technology makes them, and by the keyboard alone."""

import configparser
import json
import os
import pathlib
import subprocess
import sys
import unittest

import pyatspi

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, find, press, showing, wait_until, walk
from keyboard import Keyboard

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
SETTINGS = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "Elmworth/Elmworth.ini"
SECTIONS = ["Timesheet", "Clients", "Projects", "Invoices"]
LONG_NAME = "A very long name " * 24 + "<b>&amp;</b> \U0001f389"


def elmworth(*arguments):
    return subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, text=True, check=True).stdout


def running_project():
    return json.loads(elmworth("status", "--format", "json")).get("running", {}).get("project")


def setting(name):
    settings = configparser.ConfigParser()
    settings.optionxform = str
    settings.read(SETTINGS)
    return settings.get("General", name, fallback=None)


def change_setting(name, value):
    """While the application doesn't run."""
    settings = configparser.ConfigParser()
    settings.optionxform = str
    settings.read(SETTINGS)
    if not settings.has_section("General"):
        settings.add_section("General")
    settings.set("General", name, value)
    SETTINGS.parent.mkdir(parents=True, exist_ok=True)
    with open(SETTINGS, "w", encoding="utf-8") as file:
        settings.write(file, space_around_delimiters=False)


def has_state(node, state):
    return node.getState().contains(state)


class Window(unittest.TestCase):
    """Each test has an application of its own, on the same library."""

    @classmethod
    def setUpClass(cls):
        elmworth("client", "add", "Acme Co")
        elmworth("project", "add", "Website", "--client", "Acme Co")
        elmworth("project", "add", "App", "--client", "Acme Co")

    def setUp(self):
        elmworth("stop")
        change_setting("mainSection", "Timesheet")
        self.start()

    def start(self):
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app"])
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(lambda: find("Timesheet"), "the window")

    def test_sections_are_page_tabs_of_which_the_chosen_one_is_selected(self):
        tabs = wait_until(lambda: find("Sections", "page tab list"), "the sections")
        for chosen in ("Clients", "Timesheet"):
            press(chosen, "page tab")
            self.heading(chosen)
            self.assertEqual([tab.name for tab in tabs if tab.getRoleName() == "page tab"], SECTIONS)
            selected = [tab.name for tab in walk(tabs) if has_state(tab, pyatspi.STATE_SELECTED)]
            self.assertEqual(selected, [chosen])
            self.assertEqual(setting("mainSection"), chosen)

    def heading(self, name):
        wait_until(lambda: find(name, "heading"), f"the section {name}")

    def take_keyboard(self):
        keyboard = Keyboard()
        wait_until(lambda: keyboard.focus("Elmworth"), "the window on the display")
        wait_until(lambda: has_state(find("Elmworth", "frame"), pyatspi.STATE_ACTIVE), "the window's focus")
        return keyboard

    def test_every_control_has_a_role_and_a_name(self):
        elmworth("start", "Website")
        press("Menu")
        wait_until(lambda: find("Quit Elmworth"), "the menu")
        roles = ("push button", "page tab", "text", "menu item", "check box", "combo box")
        for node in walk(application()):
            if node.getRoleName() in roles and showing(node):
                self.assertTrue(node.name, node)

    def test_the_keyboard_alone_stops_and_resumes(self):
        elmworth("start", "Website")
        keyboard = self.take_keyboard()
        keyboard.key("Control_L+Alt_L+period")
        wait_until(lambda: running_project() is None, "the end of the timer")
        elmworth("log", "App", "--from", "2026-03-02T09:00", "--to", "2026-03-02T10:00")
        keyboard.key("Control_L+Shift_L+r")
        wait_until(running_project, "the resumed timer")
        keyboard.key("F10")
        wait_until(lambda: find("Timer", "menu item"), "the menu")
        for key in ("Down", "Right"):
            keyboard.key(key)
        wait_until(lambda: find("Stop Timer", "menu item"), "the submenu")
        keyboard.key("Return")
        wait_until(lambda: running_project() is None, "the end of the timer by the menu")

    def test_sections_have_keys(self):
        keyboard = self.take_keyboard()
        for digit in (4, 2, 3, 1):
            keyboard.key(f"Control_L+{digit}")
            self.heading(SECTIONS[digit - 1])
        keyboard.key("Alt_L+g")
        wait_until(lambda: find("Projects", "menu item"), "the menu Go")
        keyboard.key("Escape")

    def test_closing_the_window_ends_nothing_and_a_second_start_brings_it_back(self):
        elmworth("start", "Website")
        keyboard = self.take_keyboard()
        keyboard.key("Control_L+w")
        wait_until(lambda: not find("Timesheet"), "the window's end")
        self.assertEqual(running_project(), "Website")
        second = subprocess.run([PROGRAMS / "elmworth-app"], timeout=20)
        self.assertEqual(second.returncode, 0)
        wait_until(lambda: find("Stop timer"), "the window again")
        self.assertIsNone(self.program.poll())

    def test_ctrl_q_quits(self):
        self.take_keyboard().key("Control_L+q")
        self.assertEqual(self.program.wait(timeout=20), 0)

    def test_the_window_is_where_it_was(self):
        self.program.terminate()
        self.program.wait()
        change_setting("mainWindowFrame", "120 60 1100 640")
        self.start()
        frame = find("Elmworth", "frame").queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.assertEqual((frame.x, frame.y, frame.width, frame.height), (120, 60, 1100, 640))

    def test_a_long_name_is_shown_as_it_is_and_leaves_room_for_the_button(self):
        elmworth("project", "add", LONG_NAME, "--client", "Acme Co")
        elmworth("start", LONG_NAME)
        wait_until(lambda: find(LONG_NAME), "the name")
        window = find("Elmworth", "frame").queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        for name in ("Stop", "Stop timer"):
            button = find(name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            self.assertGreater(button.x, window.x)
            self.assertLess(button.x + button.width, window.x + window.width)
        elmworth("stop")
        elmworth("project", "archive", LONG_NAME)


if __name__ == "__main__":
    unittest.main(verbosity=2)
