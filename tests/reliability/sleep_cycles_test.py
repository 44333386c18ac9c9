#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A machine that sleeps and wakes again and again under a running timer. ELMWORTH_SLEEPS says how often."""

import os
import re
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../e2e"))
import power_test
from accessible import application, walk
from loop import wait_until
from process_size import handles, kilobytes

COUNT = int(os.environ.get("ELMWORTH_SLEEPS", "20"))
WARM_UP = min(100, COUNT // 2)
AWAKE = 300
ASLEEP = 700


def questions():
    return [node.name for node in walk(application()) if node.name.startswith("Computer slept for ")]


class Cycles(power_test.Machine):
    def test_sleeps_add_up_in_one_question_and_cost_nothing(self):
        self.start_logind()
        power_test.set_clock(0)
        power_test.elmworth("start", "Website")
        start = power_test.status()["running"]["start"]
        program = self.start_program("--panel")
        wait_until(self.locks, "the lock")
        clock = 0
        for cycle in range(COUNT):
            clock += AWAKE
            self.sleep(at=clock, until=clock + ASLEEP)
            clock += ASLEEP
            if cycle + 1 == WARM_UP:
                before = handles(program.pid), kilobytes(program.pid)
        after = handles(program.pid), kilobytes(program.pid)
        print(f"after {WARM_UP} sleeps {before[0]} handles and {before[1]} kB, after {COUNT} {after[0]} and {after[1]}")
        self.assertLessEqual(after[0], before[0] + 1)
        self.assertLess(after[1] - before[1], 2048)
        asked, = wait_until(questions, "the question")
        hours, minutes = map(int, re.search(r"slept for (\d+):(\d\d)\.", asked).groups())
        # The clock of the test stands still between two sleeps, and that of the machine goes on.
        self.assertIn(hours * 60 + minutes - COUNT * ASLEEP // 60, range(10))
        now = power_test.status()["running"]
        self.assertEqual(now["start"], start)
        self.assertGreaterEqual(now["seconds"], clock)
        power_test.press("Discard")
        wait_until(lambda: not questions(), questions)
        self.assertLess(power_test.status()["running"]["seconds"], 600)
        power_test.elmworth("stop")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "Cycles.test_sleeps_add_up_in_one_question_and_cost_nothing"], verbosity=2)
