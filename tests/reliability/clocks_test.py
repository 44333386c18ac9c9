#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The machine's time zone and its clock change under the running application. Needs the right to mount in a namespace
of its own, for an /etc of its own."""

import json
import os
import shutil
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../e2e"))
from process_size import processor_seconds, wake_ups
from timesheet_window import PROGRAMS, TimesheetWindow, find, wait_until

ZONES = ("Europe/Berlin", "America/New_York", "Asia/Kolkata", "Australia/Lord_Howe", "Pacific/Kiritimati",
         "Pacific/Pago_Pago")
CLOCKS = ("2026-11-19T15:00", "2026-11-19T16:00", "2026-11-19T14:00", "2026-11-16T15:00", "1970-01-01T12:00",
          "2038-01-19T03:14:10", "2040-06-01T12:00", "2026-11-19T15:30")


class Clocks(TimesheetWindow):
    def start_program(self, **options):
        """With an /etc in which the test sets the zone."""
        self.etc = self.home / "etc"
        shutil.copytree("/etc", self.etc, symlinks=True, ignore_dangling_symlinks=True)
        self.set_zone(ZONES[0])
        environment = {name: value for name, value in self.environment.items() if name not in ("TZ", "LD_PRELOAD")}
        command = f'mount --bind "$0" /etc && LD_PRELOAD={self.environment["LD_PRELOAD"]} exec "$1"'
        self.program = subprocess.Popen(["unshare", "--mount", "sh", "-c", command, self.etc,
                                         PROGRAMS / "elmworth-app"], env=environment)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)

    def set_zone(self, zone):
        link = self.etc / "localtime.new"
        link.symlink_to("/usr/share/zoneinfo/" + zone)
        link.rename(self.etc / "localtime")

    def fill(self):
        self.log("2026-11-18T13:00", "2026-11-18T14:00", "Wednesday")
        self.log("2026-11-19T09:00", "2026-11-19T09:45", "Early")
        self.elmworth("start", "Website", "--notes", "Running")

    def records(self):
        document = self.home / "backup.json"
        self.elmworth("backup", str(document))
        return json.loads(document.read_text())["clients"]

    def wait_for_a_tick(self):
        """The program has seen the clock once it has woken up again."""
        before = wake_ups(self.program.pid)
        wait_until(lambda: wake_ups(self.program.pid) > before + 1, "the next second")

    def test_no_zone_and_no_clock_changes_what_was_tracked(self):
        self.start()
        before = self.records()
        begin, used = time.monotonic(), processor_seconds(self.program.pid)
        seen = set()
        for zone in ZONES:
            self.set_zone(zone)
            for clock in CLOCKS:
                with self.subTest(zone=zone, clock=clock):
                    self.set_clock(clock)
                    day = f"in {zone} at {clock}"
                    self.assertRegex(self.elmworth("status"), r"^\d+:\d\d:\d\d  Website", day)
                    self.wait_for_a_tick()
                    lines = self.lines() if find("Days", "list") else []  # where there is none, all is yet to come
                    for line in lines:
                        self.assertNotRegex(line, r"(?i)nan|-\d+:|invalid|1969", line)
                    seen.update(lines)
                    self.assertIsNone(self.program.poll())
                    self.assertEqual(self.records(), before)
        spent = processor_seconds(self.program.pid) - used
        print(f"{len(ZONES)} zones with {len(CLOCKS)} clocks each; {len(seen)} different lines; "
              f"{spent:.0f} s of processor time in {time.monotonic() - begin:.0f} s")
        self.assertLess(spent, (time.monotonic() - begin) / 2)


if __name__ == "__main__":
    unittest.main(verbosity=2)
