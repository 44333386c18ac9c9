#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The demo leaves the user's files alone, and shows the same each time."""

import os
import pathlib
import re
import signal
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, showing
from timesheet_window import PROGRAMS, TimesheetWindow, find, press, wait_until, walk

# What belongs to the libraries that the program uses, below the user's folders: how fonts are found, what Qt logs,
# the keyboard's compose table, and caches, of which the tests switch off those of QML.
OF_LIBRARIES = re.compile(
    r"^(\.(fonts|fontconfig|icons|XCompose|Xauthority|Xdefaults|dbus|cache|local/share/(fonts|icons|mime))|"
    r"data/(fonts|icons|mime)|config/(fontconfig|QtProject|user-dirs\.dirs|mimeapps\.list))")
QUOTED = re.compile(r'"([^"]*)"')


class Demo(TimesheetWindow):
    """Beside a library, an invoice's PDF, a logo and settings of the user's."""

    maxDiff = None

    def fill(self):
        self.log("2026-11-16T09:00", "2026-11-16T10:00", "Of the user's own")
        self.elmworth("invoice", "create", "--client", "Acme Co", "--from", "2026-11-01", "--through", "2026-11-30")
        self.elmworth("invoice", "pdf", "INV-2026-001")
        subprocess.run(["convert", "-size", "40x40", "xc:red", self.home / "data/Elmworth/logo.png"], check=True)
        self.settings.write_text(self.settings.read_text() + "appearance=dark\nmainSection=Clients\n")

    def files(self):
        """All that the user has, with its content."""
        return {str(file): file.read_bytes() for folder in ("data", "config")
                for file in sorted((self.home / folder).rglob("*")) if file.is_file()}

    def run_demo(self, work, *prefix):
        environment = self.environment | {"XDG_CACHE_HOME": str(self.home / ".cache")}
        program = subprocess.Popen([*prefix, PROGRAMS / "elmworth-app", "-demo"], env=environment)
        try:
            wait_until(lambda: find("Timesheet", "heading"), "the demo")
            work()
        finally:
            os.kill(self.demo_process(program), signal.SIGTERM)
            program.wait(timeout=60)
        wait_until(lambda: not application(), "the end of the demo")

    @staticmethod
    def demo_process(program):
        """Which a tracer has for its child."""
        children = pathlib.Path(f"/proc/{program.pid}/task/{program.pid}/children").read_text().split()
        return int(children[0]) if children and "strace" in program.args[0] else program.pid

    def visit_everything(self):
        for section in ("Clients", "Projects", "Invoices"):
            press(section, "page tab")
            wait_until(lambda: find(section, "heading"), section)
        press("Menu")
        press("Settings…", "menu item")
        wait_until(lambda: find("Settings", "frame"), "the settings")
        press("Restart numbering each year", "check box")

    def test_no_file_of_the_users_is_opened(self):
        before, log = self.files(), self.home / "trace"
        # The library that sets the clock reads files of its own there.
        del self.environment["LD_PRELOAD"]
        self.run_demo(self.visit_everything, "strace", "-f", "-e", "trace=file", "-o", str(log))
        self.assertEqual(self.files(), before)
        own = sorted(self.below_home(log.read_text(errors="replace")))
        self.assertEqual([], [name for name in own if not OF_LIBRARIES.match(name)])

    def below_home(self, trace):
        """The files and folders below the user's that the trace names, without the folders above them."""
        home = str(self.home) + "/"
        names = {name.removeprefix(home) for name in QUOTED.findall(trace) if name.startswith(home)}
        return names - {"", "data", "config", ".cache", "clock"}

    def test_deleting_and_exporting_in_the_demo_leaves_the_users_invoices(self):
        before = self.files()
        self.demo_command("invoice", "delete", "INV-2026-002")
        self.demo_command("invoice", "pdf", "INV-2026-001", str(self.home / "demo.pdf"))
        self.assertTrue((self.home / "demo.pdf").exists())
        refused = self.demo_command("invoice", "pdf", "INV-2026-001", status=2)
        self.assertIn("Name the file", refused.stderr)
        self.assertEqual(self.files(), before)

    def demo_command(self, *arguments, status=0):
        done = subprocess.run([PROGRAMS / "elmworth", "-demo", *arguments], env=self.environment, capture_output=True,
                              text=True, timeout=60)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def test_each_demo_shows_the_same(self):
        seen = []
        # Time stands still.
        self.environment |= {"FAKETIME": "2026-11-19 16:30:00"}
        del self.environment["FAKETIME_TIMESTAMP_FILE"]
        for _ in range(2):
            self.run_demo(lambda: seen.append(self.content()))
        self.assertGreater(len(seen[0]), 40)
        self.assertEqual(seen[0], seen[1])

    @staticmethod
    def content():
        """What stands in each section, but for the time that runs."""
        texts = []
        for section in ("Timesheet", "Clients", "Projects", "Invoices"):
            press(section, "page tab")
            wait_until(lambda: find(section, "heading"), section)
            texts += [node.name for node in walk(application())
                      if node.name and showing(node) and not re.search(r"\d:\d\d:\d\d|Elapsed", node.name)]
        return texts


if __name__ == "__main__":
    unittest.main(verbosity=2)
