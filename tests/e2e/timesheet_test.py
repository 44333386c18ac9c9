#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The timesheet, worked through the accessibility tree and with the mouse, at two places."""

import datetime
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN, NEW_YORK
from pointer import RIGHT
from timesheet_window import TimesheetWindow, find, press, wait_until

MENU = ["Edit", "Continue Tracking", "Duplicate to Today", "Move to Project", "Delete"]


class Added:
    """What is written as the place has it, over the tracked time of two weeks."""

    def fill(self):
        self.fill_two_weeks()

    def times(self, notes):
        """The local times of an entry."""
        entry = next(entry for entry in self.entries() if entry["notes"] == notes)
        return tuple(datetime.datetime.fromisoformat(entry[key].replace("Z", "+00:00"))
                     .astimezone(self.place.zone_info).strftime("%Y-%m-%dT%H:%M") for key in ("start", "end"))

    def test_a_line_says_all_about_its_entry(self):
        time = self.place.time
        self.assertEqual(self.lines()[:3], [
            f"Today, {self.place.month_day('2026-11-19')}, 1:45",
            f"Website, Acme Co, Late, {time('2026-11-19T11:00')} – {time('2026-11-19T12:00')}, 1:00",
            f"Website, Acme Co, Early, {time('2026-11-19T09:00')} – {time('2026-11-19T09:45')}, 0:45"])
        self.assertTrue(find("Yesterday, " + self.place.month_day("2026-11-18") + ", 1:00", "heading"))
        self.assertTrue(find(self.place.weekday("2026-11-17") + ", " + self.place.month_day("2026-11-17") + ", 1:30"))

    def test_an_entry_is_added(self):
        press("New Entry")
        wait_until(lambda: find("Save"), "the sheet")
        self.fill_in("Start date", self.place.date("2026-11-16"))
        self.fill_in("Start time", "1415")
        self.fill_in("End date", self.place.date("2026-11-16"))
        self.fill_in("End time", "1600")
        self.fill_in("Notes", "Monday")
        press("Save")
        self.see("Late", "Early", "Wednesday", "Tuesday", "Monday")
        self.assertEqual(self.times("Monday"), ("2026-11-16T14:15", "2026-11-16T16:00"))

    def test_an_entry_is_added_on_a_day(self):
        head = find("Yesterday, " + self.place.month_day("2026-11-18") + ", 1:00", "heading")
        head[0].queryAction().doAction(0)
        wait_until(lambda: find("Save"), "the sheet")
        self.assertEqual(self.value("Start time"), self.place.time("2026-11-18T09:00"))
        press("30m")
        self.fill_in("Notes", "Call")
        press("Save")
        self.see("Late", "Early", "Wednesday", "Call", "Tuesday")
        self.assertEqual(self.times("Call"), ("2026-11-18T09:00", "2026-11-18T09:30"))


class Review(Added):
    def hands(self):
        self.take_keyboard()
        return self.pointer

    def menu(self, notes, *items):
        """Opens the menu of an entry with the right button and presses what it offers."""
        self.pointer.click(self.line(notes), button=RIGHT)
        for item in items:
            press(item, "menu item")
        if items:
            wait_until(lambda: not find(items[-1], "menu item"), "the end of the menu")

    def projects(self):
        return {entry["notes"]: entry["project"] for entry in self.entries()}

    def test_an_entry_is_edited_with_a_double_click(self):
        self.hands().double_click(self.line("Early"))
        wait_until(lambda: find("Edit Entry"), "the sheet")
        self.fill_in("Start time", "1200")
        wait_until(lambda: find("End must be after start."), "what is wrong")
        self.assertFalse(self.is_available("Save"))
        self.fill_in("End time", "1230")
        self.fill_in("Notes", "Noon")
        self.wait_for_end("End must be after start.")
        press("Save")
        self.see("Noon", "Late", "Wednesday", "Tuesday")
        self.assertEqual(self.times("Noon"), ("2026-11-19T12:00", "2026-11-19T12:30"))

    def test_the_menu_moves_what_is_selected(self):
        pointer = self.hands()
        pointer.click(self.line("Early"))
        pointer.click(self.line("Tuesday"), held="Control_L")
        self.menu("Early")
        wait_until(lambda: find("Delete", "menu item"), "the menu")
        self.assertEqual([name for name in MENU if find(name, "menu item")], MENU)
        press("Move to Project", "menu item")
        press("App — Globex", "menu item")
        wait_until(lambda: self.projects()["Tuesday"] == "App", "the move")
        self.assertEqual(self.projects()["Early"], "App")
        self.assertEqual(self.projects()["Late"], "Website")

    def test_every_control_has_a_role_and_a_name(self):
        self.elmworth("start", "Website")
        wait_until(lambda: find("Now tracking", "panel"), "the banner")
        self.assertEqual(self.nameless(), [])
        press("New Entry")
        wait_until(lambda: find("Save"), "the sheet")
        self.assertEqual(self.nameless(), [])


class InNewYork(Added, TimesheetWindow):
    place = NEW_YORK


class InBerlin(Review, TimesheetWindow):
    place = BERLIN


if __name__ == "__main__":
    unittest.main(verbosity=2)
