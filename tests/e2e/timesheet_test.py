#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The timesheet, worked through the accessibility tree and with the mouse, at two places."""

import datetime
import os
import sys
import unittest

import pyatspi

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN, NEW_YORK
from pointer import RIGHT
from timesheet_window import TimesheetWindow, find, press, wait_until

MENU = ["Edit", "Continue Tracking", "Duplicate to Today", "Move to Project", "Delete"]


class Review:
    """What is done with the tracked time of two weeks."""

    def fill(self):
        self.fill_two_weeks()

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

    def times(self, notes):
        """The local times of an entry."""
        entry = next(entry for entry in self.entries() if entry["notes"] == notes)
        return tuple(datetime.datetime.fromisoformat(entry[key].replace("Z", "+00:00"))
                     .astimezone(self.place.zone_info).strftime("%Y-%m-%dT%H:%M") for key in ("start", "end"))

    def projects(self):
        return {entry["notes"]: entry["project"] for entry in self.entries()}

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

    def test_a_period_chosen_again_keeps_its_check_mark(self):
        def is_marked():
            press("Range: Today")
            item = wait_until(lambda: find("Today", "menu item"), "the periods")
            return item.getState().contains(pyatspi.STATE_CHECKED)

        self.choose_period("Today")
        pointer = self.hands()
        for _ in range(3):
            self.assertTrue(is_marked())
            pointer.click(find("Today", "menu item"))
            self.wait_for_end("Today", "menu item")

    def test_several_are_selected_with_ctrl_and_shift(self):
        pointer = self.hands()
        pointer.click(self.line("Late"))
        wait_until(lambda: self.selected() == ["Late"], "one")
        pointer.click(self.line("Wednesday"), held="Shift_L")
        wait_until(lambda: self.selected() == ["Late", "Early", "Wednesday"], "three")
        pointer.click(self.line("Early"), held="Control_L")
        wait_until(lambda: self.selected() == ["Late", "Wednesday"], "two")
        self.line("Tuesday").queryAction().doAction(0)
        wait_until(lambda: self.selected() == ["Tuesday"], "what was pressed")

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

    def test_a_click_outside_the_projects_closes_them_and_leaves_the_rows(self):
        pointer = self.hands()
        pointer.click(self.line("Late"))
        wait_until(lambda: self.selected() == ["Late"], "one")
        self.menu("Late", "Move to Project")
        wait_until(lambda: find("App — Globex", "menu item"), "the projects")
        pointer.click(find("Timesheet", "heading"))
        self.wait_for_end("App — Globex", "menu item")
        self.menu("Late", "Move to Project")
        wait_until(lambda: find("App — Globex", "menu item"), "the projects")
        pointer.click(self.line("Tuesday"))
        self.wait_for_end("App — Globex", "menu item")
        self.assertEqual(self.selected(), ["Late"])
        self.assertEqual(self.projects()["Late"], "Website")
        pointer.click(self.line("Tuesday"))
        wait_until(lambda: self.selected() == ["Tuesday"], "the next click")

    def test_what_shows_is_exported(self):
        press("Project: All Projects")
        press("Website", "menu item")
        self.see("Late", "Early", "Tuesday")
        press("Export CSV")
        self.hands().click(wait_until(lambda: find("Save"), "the dialog"))
        file = self.home / "Elmworth Timesheet.csv"
        rows = wait_until(lambda: self.rows(file), "the file")
        self.assertEqual([row["Notes"] for row in rows], ["Tuesday", "Early", "Late"])  # the oldest first
        start = datetime.datetime(2026, 11, 17, 10, tzinfo=self.place.zone_info)
        self.assertEqual((rows[0]["Start"], rows[0]["Hours"]), (start.isoformat(), "1.50"))

    def test_every_control_has_a_role_and_a_name(self):
        self.elmworth("start", "Website")
        wait_until(lambda: find("Now tracking", "panel"), "the banner")
        self.assertEqual(self.nameless(), [])
        press("New Entry")
        wait_until(lambda: find("Save"), "the sheet")
        self.assertEqual(self.nameless(), [])


class InNewYork(Review, TimesheetWindow):
    place = NEW_YORK


class InBerlin(Review, TimesheetWindow):
    place = BERLIN


if __name__ == "__main__":
    unittest.main(verbosity=2)
