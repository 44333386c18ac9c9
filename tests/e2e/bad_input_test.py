#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Bad input from outside ends in one sentence and a status, and changes nothing."""

import json
import os
import pathlib
import random
import resource
import shutil
import signal
import sqlite3
import struct
import subprocess
import tempfile
import unittest
import zlib

ELMWORTH = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "elmworth"
NOT_OF_A_TERMINAL = ("DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS")
OCTOBER = ("--client", "Acme", "--from", "2026-10-01", "--through", "2026-10-31")


class Terminal(unittest.TestCase):
    """Each test has a home of its own, with one client, one project and an hour to bill."""

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        self.environment = {k: v for k, v in os.environ.items() if k not in NOT_OF_A_TERMINAL}
        self.environment |= {"HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"),
                             "XDG_CONFIG_HOME": str(self.home / "config")}
        self.folder = self.home / "data/Elmworth"
        self.library = self.folder / "library.sqlite"
        self.settings = self.home / "config/Elmworth/Elmworth.ini"
        self.ok("client", "add", "Acme", "--rate", "100")
        self.ok("project", "add", "Website", "--client", "Acme")
        self.log_hour(1)

    def run_program(self, *arguments, **options):
        environment = self.environment | options.pop("env", {})
        options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "cwd": self.home} | options
        return subprocess.run([ELMWORTH, *arguments], env=environment, timeout=30, **options)

    def ok(self, *arguments, **options):
        done = self.run_program(*arguments, **options)
        self.assertEqual((done.returncode, done.stderr), (0, b""), arguments)
        return done.stdout

    def refused(self, *arguments, says="", status=1, **options):
        done = self.run_program(*arguments, **options)
        self.assertEqual((done.returncode, done.stdout or b""), (status, b""), (arguments, done.stderr))
        sentence = done.stderr.decode()  # which is UTF-8, whatever the input was
        self.assertIn(says, sentence)
        self.assertEqual(sentence.count("\n"), 1 if status == 1 else sentence.count("\n"), sentence)

    def log_hour(self, day):
        self.ok("log", "Website", "--from", f"2026-10-{day:02}T10:00", "--to", f"2026-10-{day:02}T11:00")

    def records(self):
        return [json.loads(self.ok(kind, "list", "--format", "json"))
                for kind in ("client", "project", "invoice")]

    def files(self):
        return {path: path.read_bytes() for path in self.folder.rglob("*") if path.is_file()}

    def move_log_into_library(self):
        with sqlite3.connect(self.library) as database:
            database.execute("PRAGMA wal_checkpoint(TRUNCATE)")
        database.close()

    # --- the library's place -------------------------------------------------------------------

    def test_what_is_no_library_is_refused_and_left_as_it_is(self):
        def put(content):
            return lambda: self.library.write_bytes(content)

        def newer():
            self.move_log_into_library()
            library = bytearray(self.library.read_bytes())
            library[60:64] = struct.pack(">I", 20000)
            self.library.write_bytes(library)

        def truncated():
            self.move_log_into_library()
            os.truncate(self.library, 8192)

        def other_database():
            self.library.unlink()
            (self.folder / "library.sqlite-wal").unlink()
            with sqlite3.connect(self.library) as database:
                database.execute("CREATE TABLE notes (text)")
            database.close()

        def folder():
            self.library.unlink()
            self.library.mkdir()

        def pipe():
            self.library.unlink()
            os.mkfifo(self.library)

        good = self.home / "good"
        shutil.copytree(self.folder, good)
        for name, damage, says in (
                ("text", put(b"My hours, by hand. " * 20), "is not an Elmworth library"),
                ("empty", put(b""), "is not an Elmworth library"),
                ("another database", other_database, "is not an Elmworth library"),
                ("a folder", folder, "is not an Elmworth library"),
                ("a pipe", pipe, "is not an Elmworth library"),
                ("newer", newer, "needs a newer Elmworth"),
                ("truncated", truncated, "malformed")):
            with self.subTest(name):
                damage()
                before = self.files()
                for command in (("status",), ("start", "Website"), ("invoice", "create", *OCTOBER)):
                    self.refused(*command, says=says)
                self.assertEqual(self.files(), before)
                shutil.rmtree(self.folder)
                shutil.copytree(good, self.folder)

    def test_damage_never_ends_a_command_by_a_signal_or_passes_for_nothing_running(self):
        self.ok("invoice", "create", *OCTOBER)
        self.ok("start", "Website")
        self.move_log_into_library()
        good = self.library.read_bytes()
        chance = random.Random(20261121)
        pages = [bytearray(good[:page] + bytes(4096) + good[page + 4096:])
                 for page in range(4096, len(good), 4096)]
        flipped = [bytearray(good) for _ in range(12)]
        used = [i for i, byte in enumerate(good) if byte and i >= 100]
        for library in flipped:
            library[chance.choice(used)] ^= 1 << chance.randrange(8)
        for library in pages + flipped:
            for command in (("status",), ("invoice", "list"), ("client", "delete", "Acme")):
                self.library.write_bytes(library)
                (self.folder / "library.sqlite-wal").unlink(missing_ok=True)
                done = self.run_program(*command)
                self.assertIn(done.returncode, (0, 1), (command, done.stderr))
                if library in pages:
                    self.assertNotIn(b"Nothing is running", done.stdout)

    def test_on_a_full_disk_a_command_fails_and_changes_nothing(self):
        def full_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))

        before = self.records()
        for command in (("client", "add", "Globex"), ("start", "Website"), ("client", "delete", "Acme"),
                        ("project", "archive", "Website"), ("invoice", "create", *OCTOBER)):
            self.refused(*command, preexec_fn=full_disk, restore_signals=False)
        self.assertEqual(self.records(), before)

    # --- words ---------------------------------------------------------------------------------

    def test_what_cannot_be_read_changes_nothing(self):
        before = self.records(), self.ok("profile")
        for status, says, *command in (
                (1, "Candidates: Website — Acme", "start", "Webs"),
                (1, "Candidates: Acme", "project", "add", "X", "--client", "Nobody"),
                (1, "is no amount", "client", "set", "Acme", "rate", "abc"),
                (1, "is no amount", "client", "set", "Acme", "rate", "1000000000.01"),
                (1, "is no percentage", "client", "set", "Acme", "tax", "100.01"),
                (1, "whole number", "client", "set", "Acme", "due-days", "9" * 40),
                (1, "whole number", "profile", "set", "roundingMinutes", "-6"),
                (1, "is no budget", "project", "set", "Website", "budget", "nan"),
                (1, "is no color", "project", "set", "Website", "color", "red"),
                (1, "in the future", "log", "Website", "--from", "2999-01-01T10:00", "--to", "2999-01-01T11:00"),
                (1, "in the future", "stop", "--at", "2999-01-01T10:00"),
                (1, "End must be after", "log", "Website", "--from", "2026-10-01T10:00", "--to", "2026-10-01T10:00"),
                (1, "no unbilled", "invoice", "create", "--client", "Acme", "--from", "2020-01-01", "--through", "2020-01-31"),
                (1, "There is no invoice", "invoice", "pdf", "INV-1"),
                (1, "control characters", "client", "add", "\x1b[31mred"),
                (1, "can't be empty", "client", "add", "  "),
                (2, "UTF-8", "client", "add", b"M\xfcller"),
                (2, "UTF-8", "start", "Website", "--notes", b"\xff"),
                (2, "is no time", "stop", "--at", "25:00"),
                (2, "is no period", "invoice", "create", "--client", "Acme", "--period", "Someday"),
                (2, "", "nonsense"), (2, "", "start"), (2, "", "status", "--format", "xml")):
            with self.subTest(command=command):
                self.refused(*command, says=says, status=status)
        self.assertEqual((self.records(), self.ok("profile")), before)

    def test_names_of_any_kind_come_back_as_they_were(self):
        names = ["n" * 400, "<b>Brand</b> & \"Style\"", "👩‍👩‍👧‍👦 日本語 العربية", "-x", "%s %n", "Robert'); DROP"]
        for name in names:
            self.ok("client", "add", "--", name)
        listed = json.loads(self.ok("client", "list", "--format", "json"))
        self.assertCountEqual([client["name"] for client in listed], names + ["Acme"])

    def test_files_of_invoices_stay_in_their_folder_and_apart(self):
        numbers = ["../../evil", "a/b", "a:b", "a-b", "..", "new\nline", "9" * 300, "9" * 299, ".hidden"]
        for day, number in enumerate(numbers, 2):
            self.log_hour(day)
            made = self.ok("invoice", "create", "--client", "Acme", "--from", f"2026-10-{day:02}",
                           "--through", f"2026-10-{day:02}").decode().strip()
            self.ok("invoice", "rename", made, number)
        self.refused("invoice", "rename", "a/b", "a:b", says="already uses that number")
        self.refused("invoice", "rename", "a/b", " ", says="can't be empty")
        paths = [self.ok("invoice", "pdf", number).decode().strip() for number in numbers]
        self.assertEqual(len(set(paths)), len(numbers))
        for path in map(pathlib.Path, paths):
            self.assertEqual(path.parent, self.folder / "Invoices")
            self.assertTrue(path.is_file(), path)

    # --- surroundings --------------------------------------------------------------------------

    def test_settings_that_cannot_be_read_mean_the_defaults(self):
        defaults = self.ok("profile")
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        for content in (b"[General]\nbusinessProfile=\"@ByteArray({no json)\"\n",
                        b"[General]\nbusinessProfile=text\n", b"just a note\n", bytes(range(256)) * 20):
            self.settings.write_bytes(content)
            self.assertEqual(self.ok("profile"), defaults)
        self.settings.unlink()
        self.settings.mkdir()
        self.refused("profile", "set", "name", "Jane", says="settings file can't be written")

    def test_a_logo_that_is_no_picture_is_left_out(self):
        number = self.ok("invoice", "create", *OCTOBER).decode().strip()
        header = struct.pack(">IIBBBBB", 20000, 10000, 8, 2, 0, 0, 0)
        huge = b"\x89PNG\r\n\x1a\n" + b"".join(
            struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
            for kind, body in ((b"IHDR", header), (b"IDAT", zlib.compress(bytes(100))), (b"IEND", b"")))
        for logo in (b"no picture", b"", huge):
            (self.folder / "logo.png").write_bytes(logo)
            self.assertTrue(self.ok("invoice", "pdf", number, "-").startswith(b"%PDF"))

    def test_any_locale_and_zone_will_do(self):
        for variable, values in (("LC_ALL", ("xx_YY", "th_TH", "ar_EG", "fa_IR", "de_DE", "C", "@@@", "x" * 3000)),
                                 ("TZ", ("nonsense", "Pacific/Apia", "", ":", "UTC+25", "/etc/passwd", "x" * 3000))):
            for value in values:
                self.ok("status", env={variable: value})
                self.ok("invoice", "preview", *OCTOBER, env={variable: value})

    def test_a_result_that_nobody_gets_is_a_failure(self):
        number = self.ok("invoice", "create", *OCTOBER).decode().strip()
        with open("/dev/full", "wb") as full:
            for command in (("client", "list"), ("--help",), ("invoice", "pdf", number, "-")):
                self.refused(*command, says="could not be written to standard output", stdout=full)
        closed = self.run_program("client", "list", preexec_fn=lambda: (os.close(0), os.close(1)))
        self.assertEqual(closed.returncode, 1)
        self.assertEqual(closed.stderr.count(b"\n"), 1)

    def test_a_home_that_cannot_hold_a_library_is_told(self):
        nowhere = {"HOME": "/proc", "XDG_DATA_HOME": "", "XDG_CONFIG_HOME": ""}
        self.refused("status", says="/proc/", env=nowhere)

    def test_a_deleted_working_folder_is_in_the_way_of_relative_paths_only(self):
        number = self.ok("invoice", "create", *OCTOBER).decode().strip()
        gone = self.home / "gone"
        for command, status in ((("status",), 0), (("invoice", "pdf", number, "x.pdf"), 1)):
            gone.mkdir()
            done = self.run_program(*command, cwd=gone, preexec_fn=gone.rmdir)
            self.assertEqual(done.returncode, status, done.stderr)
            self.assertEqual(done.stderr.count(b"\n"), status)

    def test_twenty_commands_at_once_are_all_carried_out(self):
        shutil.rmtree(self.folder)  # so that each may be the one that makes the library
        commands = [subprocess.Popen([ELMWORTH, "client", "add", f"Client {i}"], env=self.environment,
                                     stdout=subprocess.DEVNULL) for i in range(20)]
        self.assertEqual([command.wait(timeout=30) for command in commands], [0] * 20)
        self.assertEqual(len(json.loads(self.ok("client", "list", "--format", "json"))), 20)


if __name__ == "__main__":
    unittest.main(verbosity=2)
