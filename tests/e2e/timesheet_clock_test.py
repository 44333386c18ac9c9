#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The timesheet under a clock that goes on."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN
from timesheet_window import TimesheetWindow, wait_until


class Clock(TimesheetWindow):
    place = BERLIN

    def test_midnight_begins_a_day_under_a_running_timer(self):
        self.set_clock("2026-11-17T23:39:30")
        self.elmworth("start", "Website", "--notes", "Night")
        self.start()
        today = f"Today, {self.place.month_day('2026-11-17')}, 0:00"
        wait_until(lambda: today in self.lines(), today)
        self.set_clock("2026-11-18T00:10:45")
        live = f"Website, Acme Co, Night, Live, {self.place.time('2026-11-17T23:39')} – now, 0:31"
        lines = [f"Today, {self.place.month_day('2026-11-18')}, 0:10", live,
                 f"Yesterday, {self.place.month_day('2026-11-17')}, 0:20", live]
        wait_until(lambda: self.lines() == lines, lambda: f"{lines}, not {self.lines()}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
