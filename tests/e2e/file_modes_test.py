#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Who else on the computer can read what the program writes: nobody, but for the files that a person names."""

import os
import pathlib
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from accessible import find
from loop import wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
OLD_LIBRARIES = pathlib.Path(__file__).resolve().parents[1] / "data/library"


class FileModes(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        self.environment = os.environ | {"XDG_DATA_HOME": str(self.home / "data"),
                                         "XDG_CONFIG_HOME": str(self.home / "config")}

    def run_with(self, umask, *arguments):
        done = subprocess.run([PROGRAMS / "elmworth", *arguments], env=self.environment, umask=umask, timeout=60,
                              capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout.strip()

    def work(self, umask):
        """A bit of everything that writes."""
        self.run_with(umask, "client", "add", "Acme Co")
        self.run_with(umask, "project", "add", "Website", "--client", "Acme Co")
        self.run_with(umask, "log", "Website", "--from", "2026-03-02T09:00", "--to", "2026-03-02T10:00")
        self.run_with(umask, "profile", "set", "name", "Jane Doe Design")
        number = self.run_with(umask, "invoice", "create", "--client", "Acme Co", "--from", "2026-03-01",
                               "--through", "2026-03-31")
        self.run_with(umask, "invoice", "pdf", number)
        self.run_with(umask, "settings", "set", "launchAtLogin", "true")

    def assert_private(self, folder):
        found = [folder, *folder.rglob("*")]
        for path in found:
            mode = stat.S_IMODE(path.lstat().st_mode)
            self.assertEqual(oct(mode), oct(0o700 if path.is_dir() else 0o600), path)
        return found

    def test_what_it_keeps_is_the_owners_alone_whatever_the_umask(self):
        for umask in (0, 0o002, 0o022):
            with self.subTest(oct(umask)):
                self.work(umask)
                found = self.assert_private(self.home / "data/Elmworth") + self.assert_private(self.home / "config")
                names = {path.name for path in found}
                self.assertLessEqual({"library.sqlite", "library.lock", "Invoices", "Elmworth.ini"}, names)
                shutil.rmtree(self.home / "data")
                shutil.rmtree(self.home / "config")

    def test_the_application_keeps_it_so(self):
        self.work(0)
        application = subprocess.Popen([PROGRAMS / "elmworth-app"], env=self.environment, umask=0)
        self.addCleanup(lambda: (application.terminate(), application.wait(60)))
        backups = self.home / "data/Elmworth/Backups"
        wait_until(lambda: find("Timesheet", "heading"), "the window")
        wait_until(lambda: any(backups.glob("*.json")), "the first snapshot, 20 seconds after the start")
        found = self.assert_private(self.home / "data/Elmworth")
        self.assertIn("library.sqlite-wal", {path.name for path in found})

    def test_the_copy_before_a_migration_is_private_too(self):
        folder = self.home / "data/Elmworth"
        folder.mkdir(parents=True, mode=0o700)
        shutil.copyfile(sorted(OLD_LIBRARIES.glob("library-*.sqlite"))[0], folder / "library.sqlite")
        (folder / "library.sqlite").chmod(0o600)
        self.run_with(0, "status")
        self.assert_private(folder)


if __name__ == "__main__":
    unittest.main(verbosity=2)
