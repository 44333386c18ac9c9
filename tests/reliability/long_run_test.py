#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Hours of the application in minutes: its clock runs faster, and it is used all the time. ELMWORTH_HOURS says how many
hours, ELMWORTH_SPEED how fast they pass."""

import os
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../e2e"))
from process_size import handles, kilobytes
from timesheet_window import PROGRAMS, TimesheetWindow, find, wait_until

HOURS = float(os.environ.get("ELMWORTH_HOURS", "8"))
SPEED = float(os.environ.get("ELMWORTH_SPEED", "40"))


class LongRun(TimesheetWindow):
    def start_program(self, **options):
        fast = ("FAKETIME_TIMESTAMP_FILE", "FAKETIME_NO_CACHE", "FAKETIME_DONT_FAKE_MONOTONIC", "FAKETIME_DONT_RESET")
        environment = {name: value for name, value in self.environment.items() if name not in fast}
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app"], env=environment | {"FAKETIME": f"+0 x{SPEED}"})
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)

    def one_round(self, number):
        """Half an hour of a busy person: the timer, time that was forgotten, the panel, and the window."""
        self.elmworth("start", "Website", "--notes", f"Round {number}")
        self.elmworth("panel")
        wait_until(lambda: find("Elmworth Panel"), "the panel")
        self.elmworth("stop")
        self.elmworth("log", "Website", "--from", "2026-11-02T09:00", "--to", "2026-11-02T09:30")
        self.elmworth("report", "--period", "This Week")
        subprocess.run([PROGRAMS / "elmworth-app"], env=self.environment, check=True)  # brings the window back
        self.elmworth("start", "Website")

    def test_memory_and_handles_stay_flat(self):
        self.start()
        begin = time.monotonic()
        half_hour = 1800 / SPEED
        sizes = []
        for number in range(round(HOURS * 2)):
            self.one_round(number)
            time.sleep(max(0, begin + (number + 1) * half_hour - time.monotonic()))
            sizes.append((handles(self.program.pid), kilobytes(self.program.pid)))
            print(f"{(time.monotonic() - begin) * SPEED / 3600:.1f} h: {sizes[-1][0]} handles, {sizes[-1][1]} kB",
                  flush=True)
        warm, last = sizes[len(sizes) // 4], sizes[-1]
        self.assertLessEqual(last[0], warm[0] + 2)
        self.assertLess(last[1] - warm[1], 4096)
        self.assertIsNone(self.program.poll())


if __name__ == "__main__":
    unittest.main(verbosity=2)
