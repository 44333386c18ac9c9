#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The panel, worked by presses as an assistive technology makes them, and by the keyboard alone."""

import datetime
import json
import os
import pathlib
import subprocess
import sys
import unittest

import pyatspi
from gi.repository import GLib

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, find, focused, press, showing, wait_until, walk
from fake_tray import ITEM, FakeTray, connect
from keyboard import Keyboard

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
PROJECTS = ["Website", "App", "Billing", "Design", "Hosting", "Research", "Support"]
NOTES = "What are you working on?"
SEARCH = "Search all projects"


def elmworth(*arguments):
    return subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, text=True, check=True).stdout


def running():
    return json.loads(elmworth("status", "--format", "json")).get("running", {})


def becomes(project):
    wait_until(lambda: running().get("project") == project, f"the timer on {project}")


def content_of(field):
    return find(field, "text").queryText().getText(0, -1)


def shown_rows():
    return [node.name for node in walk(application())
            if node.getRoleName() == "push button" and node.name.startswith("Start ") and showing(node)]


class Panel(unittest.TestCase):
    """Each test has an application of its own, on the same library."""

    @classmethod
    def setUpClass(cls):
        elmworth("client", "add", "Acme Co")
        elmworth("client", "add", "Globex")
        for project in PROJECTS:
            elmworth("project", "add", project, "--client", "Globex" if project == "Support" else "Acme Co")

    def setUp(self):
        elmworth("stop")
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app", "--panel"])
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(lambda: find(SEARCH), "the panel")

    def take_keyboard(self):
        keyboard = Keyboard()
        wait_until(lambda: keyboard.focus("Elmworth Panel"), "the panel on the display")
        wait_until(lambda: find("Elmworth Panel").getState().contains(pyatspi.STATE_ACTIVE), "its focus")
        return keyboard

    def test_one_press_starts_switches_and_stops(self):
        press("Start App")
        becomes("App")
        wait_until(lambda: find("Tracking"), "the running card")
        wait_until(lambda: find("Switch to"), "the title over the others")
        self.assertNotIn("Start App", shown_rows())
        press("Start Billing")
        becomes("Billing")
        press("Stop")
        becomes(None)
        wait_until(lambda: not find("Tracking"), "the end of the running card")

    def test_the_last_entry_continues(self):
        # Later than what other tests left.
        now = datetime.datetime.now()
        start, end = (time.isoformat(timespec="seconds") for time in (now, now + datetime.timedelta(hours=1)))
        elmworth("log", "Design", "--from", start, "--to", end, "--notes", "Logo")
        press("Continue Design")
        becomes("Design")
        self.assertEqual(running()["notes"], "Logo")

    def test_the_panel_leads_to_the_main_window_and_the_command_back(self):
        press("Open Elmworth")
        wait_until(lambda: find("Timesheet", "heading"), "the main window")
        wait_until(lambda: not find(SEARCH), "the end of the panel")
        elmworth("panel")
        wait_until(lambda: find(SEARCH), "the panel")

    def test_the_main_window_opens_it_too(self):
        press("Open Elmworth")
        wait_until(lambda: find("Timesheet", "heading"), "the main window")
        press("Menu")
        press("Open Panel", "menu item")
        wait_until(lambda: find(SEARCH), "the panel")

    def test_by_the_keyboard_alone(self):
        keyboard = self.take_keyboard()
        wait_until(lambda: focused() and focused().name == SEARCH, "the focus on the search")
        first = shown_rows()[0].removeprefix("Start ")
        keyboard.key("Control_L+1")
        becomes(first)
        keyboard.key("Control_L+Alt_L+period")
        becomes(None)
        keyboard.key("s")
        keyboard.key("u")
        wait_until(lambda: shown_rows() == ["Start Support"], "the project that the search finds")
        self.assertTrue(find("Results"))
        keyboard.key("Control_L+1")
        becomes("Support")
        wait_until(lambda: find("Switch to"), "the end of the search")
        keyboard.key("Escape")
        wait_until(lambda: not find(SEARCH), "the end of the panel")
        self.assertEqual(running()["project"], "Support")

    def test_return_starts_what_a_search_finds(self):
        keyboard = self.take_keyboard()
        keyboard.key("Return")  # nothing is searched for yet
        keyboard.type("globex")
        wait_until(lambda: shown_rows() == ["Start Support"], "the project of the client")
        keyboard.key("Return")
        becomes("Support")
        wait_until(lambda: find("Switch to"), "the end of the search")
        self.assertEqual(content_of(SEARCH), "")

    def test_arrows_go_through_the_rows_and_back_to_the_search(self):
        keyboard = self.take_keyboard()
        first, second, third = shown_rows()[:3]
        for key, name in (("Down", first), ("Down", second), ("Down", third),
                          ("Up", second), ("Up", first), ("Up", SEARCH)):
            keyboard.key(key)
            wait_until(lambda: focused() and focused().name == name, f"the focus on {name}")

    def test_escape_ends_a_search_before_it_closes_the_panel(self):
        keyboard = self.take_keyboard()
        everything = shown_rows()
        keyboard.type("nothing like it")
        wait_until(lambda: find("No matching projects"), "no results")
        keyboard.key("Escape")
        wait_until(lambda: shown_rows() == everything, "all projects again")
        keyboard.key("Escape")
        wait_until(lambda: not find(SEARCH), "the end of the panel")

    def test_each_opening_begins_in_an_empty_search(self):
        keyboard = self.take_keyboard()
        keyboard.key("Down")
        wait_until(lambda: focused() and focused().name.startswith("Start "), "the focus on a row")
        first = focused().name.removeprefix("Start ")
        keyboard.key("Return")
        becomes(first)
        keyboard.type("left")
        press("Open Elmworth")
        wait_until(lambda: not find(SEARCH), "the end of the panel")
        elmworth("panel")
        wait_until(lambda: find(SEARCH), "the panel")
        keyboard = self.take_keyboard()
        wait_until(lambda: focused() and focused().name == SEARCH, "the focus on the search")
        self.assertEqual(content_of(SEARCH), "")
        self.assertGreater(len(shown_rows()), 1)

    def test_typed_notes_are_kept_by_stop(self):
        press("Start Research")
        becomes("Research")
        elmworth("log", "Billing", "--from", "2026-03-03T09:00", "--to", "2026-03-03T10:00")
        keyboard = self.take_keyboard()
        keyboard.key("Shift_L+Tab")
        for _ in range(12):
            if focused() and focused().name == NOTES:
                break
            keyboard.key("Tab")
            wait_until(focused, "a focus")
        self.assertEqual(focused().name, NOTES)
        for key in ("n", "o", "t", "e"):
            keyboard.key(key)
        wait_until(lambda: running().get("notes") == "note", "the notes on the entry")
        keyboard.key("Return")
        self.assertEqual(running()["notes"], "note")

    def test_every_control_has_a_name(self):
        press("Start App")
        wait_until(lambda: find("Tracking"), "the running card")
        nameless = [node.getRoleName() for node in walk(application())
                    if node.getRoleName() in ("push button", "text", "menu item") and showing(node) and not node.name]
        self.assertEqual(nameless, [])

    def test_quit_ends_the_program(self):
        press("Quit Elmworth")
        self.assertEqual(self.program.wait(timeout=20), 0)


class PanelByTray(unittest.TestCase):
    """The panel beside an item in a tray."""

    SCALE = "1"

    @classmethod
    def setUpClass(cls):
        client = f"Initech {cls.SCALE}"
        elmworth("client", "add", client)
        elmworth("project", "add", "Another", "--client", client)

    def setUp(self):
        elmworth("stop")
        self.tray = FakeTray()
        self.addCleanup(self.tray.close)
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app"],
                                        env=os.environ | {"QT_SCALE_FACTOR": self.SCALE})
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(lambda: self.tray.items, "the item in the tray")
        self.bus = connect()
        self.addCleanup(self.bus.close_sync)

    def press_item(self, x, y):
        self.bus.call_sync(self.tray.items[0], "/StatusNotifierItem", ITEM, "Activate",
                           GLib.Variant("(ii)", (x, y)), None, 0, -1, None)

    @staticmethod
    def frame():
        panel = find("Elmworth Panel")
        return panel and panel.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)

    def bottom(self):
        frame = self.frame()
        return frame and frame.y + frame.height

    def test_a_press_opens_it_and_another_closes_it(self):
        self.press_item(700, 880)
        wait_until(lambda: find("Elmworth Panel"), "the panel")
        self.press_item(700, 880)
        wait_until(lambda: not find("Elmworth Panel"), "its end")

    def test_it_stands_over_a_bar_at_the_bottom_and_grows_upwards(self):
        self.press_item(700, 880)
        wait_until(lambda: self.bottom() == 872, lambda: f"the panel over the item, not {self.bottom()}")
        height = self.frame().height
        press("Start Another")
        wait_until(lambda: self.frame().height != height, "a panel of another height")
        wait_until(lambda: self.bottom() == 872, lambda: f"the panel over the item, not {self.bottom()}")
        self.press_item(700, 880)
        wait_until(lambda: not find("Elmworth Panel"), "its end")
        elmworth("stop")
        self.press_item(700, 880)
        wait_until(lambda: self.bottom() == 872, lambda: f"the panel over the item, not {self.bottom()}")

    def test_it_hangs_from_a_bar_at_the_top(self):
        self.press_item(700, 12)
        wait_until(lambda: self.frame() and self.frame().y == 20, "the panel under the item")

class PanelByTrayAtDoubleSize(PanelByTray):
    """Two device pixels for each of the program's: trays count the device's, assistive technology the program's."""

    SCALE = "2"

    def test_it_stands_over_a_bar_at_the_bottom_and_grows_upwards(self):
        self.press_item(700, 880)
        wait_until(lambda: self.bottom() == 432, lambda: f"the panel over the item, not {self.bottom()}")
        self.assertEqual(self.frame().x + self.frame().width // 2, 350)

    def test_it_hangs_from_a_bar_at_the_top(self):
        self.press_item(700, 12)
        wait_until(lambda: self.frame() and self.frame().y == 14, "the panel under the item")


if __name__ == "__main__":
    unittest.main(verbosity=2)
