#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The timesheet around midnight, and on days of 23 and 25 hours, at two places."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN, NEW_YORK
from timesheet_window import TimesheetWindow, find, press, wait_until


class Clock:
    def custom(self, first, last):
        self.choose_period("Custom")
        self.fill_in("From", self.place.date(first))
        self.fill_in("To", self.place.date(last))

    def head(self, day, total):
        return f"{self.place.weekday(day)}, {self.place.month_day(day)}, {total}"

    def entry(self, notes, start, end, total):
        return f"Website, Acme Co, {notes}, {self.place.time(start)} – {self.place.time(end)}, {total}"

    def sees(self, *lines):
        wait_until(lambda: self.lines() == list(lines), lambda: f"{lines}, not {self.lines()}")

    def test_an_entry_across_midnight_stands_on_both_days(self):
        self.log("2026-11-16T23:30", "2026-11-17T00:30", "Night")
        self.start()
        line = self.entry("Night", "2026-11-16T23:30", "2026-11-17T00:30", "1:00")
        self.sees(self.head("2026-11-17", "0:30"), line, self.head("2026-11-16", "0:30"), line)
        self.custom("2026-11-17", "2026-11-17")
        self.sees(self.head("2026-11-17", "0:30"), line)
        self.fill_in("To", self.place.date("2026-11-18"))
        self.fill_in("From", self.place.date("2026-11-18"))
        wait_until(lambda: find("No entries here"), "the empty day")

    def test_midnight_begins_a_day_under_a_running_timer(self):
        self.set_clock("2026-11-17T23:39:30")
        self.elmworth("start", "Website", "--notes", "Night")
        self.start()
        today = f"Today, {self.place.month_day('2026-11-17')}, 0:00"
        wait_until(lambda: today in self.lines(), today)
        self.set_clock("2026-11-18T00:10:45")
        live = f"Website, Acme Co, Night, Live, {self.place.time('2026-11-17T23:39')} – now, 0:31"
        self.sees(f"Today, {self.place.month_day('2026-11-18')}, 0:10", live,
                  f"Yesterday, {self.place.month_day('2026-11-17')}, 0:20", live)
        self.choose_period("Yesterday")
        self.sees(f"Yesterday, {self.place.month_day('2026-11-17')}, 0:20", live)

    def test_the_hours_of_a_night_of_which_one_comes_twice(self):
        day = self.long_day
        self.log(day + "T00:30", day + "T03:30", "Long night")
        self.start()
        self.custom(day, day)
        self.sees(self.head(day, "4:00"), self.entry("Long night", day + "T00:30", day + "T03:30", "4:00"))
        self.elmworth("project", "set", "Website", "name", "Site")
        wait_until(lambda: self.lines()[1].startswith("Site, "), "the other name")

    def test_the_hours_of_a_night_of_which_one_is_left_out(self):
        day = self.short_day
        self.set_clock(day + "T15:00")
        self.start()
        press("New Entry")
        wait_until(lambda: find("Save"), "the sheet")
        self.fill_in("Start time", "0030")
        self.fill_in("End time", "0430")
        wait_until(lambda: find("3:00 · 3.00 h"), "the three hours")
        self.fill_in("Notes", "Short night")
        press("Save")
        self.sees(f"Today, {self.place.month_day(day)}, 3:00",
                  self.entry("Short night", day + "T00:30", day + "T04:30", "3:00"))

    def test_a_copy_of_a_time_that_is_left_out_today_begins_after_the_gap(self):
        self.set_clock(self.short_day + "T15:00")
        self.log(self.day_before + "T02:30", self.day_before + "T03:00", "In the gap")
        self.start()
        self.take_keyboard()
        self.choose_period("This Month")
        wait_until(lambda: self.line("In the gap"), "the entry")
        self.line("In the gap").queryAction().doAction(0)
        self.tab_to("Entries")
        self.key("Menu")
        press("Duplicate to Today", "menu item")
        start, end = self.gap_copy
        self.sees(f"Today, {self.place.month_day(self.short_day)}, 0:30", self.entry("In the gap", start, end, "0:30"),
                  f"Yesterday, {self.place.month_day(self.day_before)}, 0:30",
                  self.entry("In the gap", self.day_before + "T02:30", self.day_before + "T03:00", "0:30"))


class InNewYork(Clock, TimesheetWindow):
    place = NEW_YORK
    long_day, short_day, day_before = "2026-11-01", "2026-03-08", "2026-03-07"
    gap_copy = "2026-03-08T03:00", "2026-03-08T03:30"


class InBerlin(Clock, TimesheetWindow):
    place = BERLIN
    long_day, short_day, day_before = "2026-10-25", "2026-03-29", "2026-03-28"
    gap_copy = "2026-03-29T03:00", "2026-03-29T03:30"


if __name__ == "__main__":
    unittest.main(verbosity=2)
