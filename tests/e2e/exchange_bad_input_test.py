#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Bad files end an import, a restore, a backup or an export in one sentence, in bounded time and memory, and leave
the library and the target as they were."""

import contextlib
import json
import os
import pathlib
import random
import resource
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import unittest

ELMWORTH = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "elmworth"
NOT_OF_A_TERMINAL = ("DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS")
MEGABYTE = 1 << 20
HEADER = b"User,Client,Project,Description,Start date,Start time,End date,End time\n"
ROW = b"Jane,Acme,Website,Notes,2026-03-02,09:00:00,2026-03-02,10:00:00\n"
UNKNOWN = "This CSV isn't in a format Elmworth knows. Use an Elmworth export or a Toggl Track detailed report."
EMPTY = "No time entries were found in this file."


def limits(memory=None, file_size=None):
    def set_limits():
        if memory:
            resource.setrlimit(resource.RLIMIT_AS, (memory, memory))
        if file_size is not None:
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (file_size, file_size))
    return set_limits


class Exchange(unittest.TestCase):
    """Each test has a home of its own, whose library holds one client."""

    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        self.file = self.home / "file"
        self.environment = {k: v for k, v in os.environ.items() if k not in NOT_OF_A_TERMINAL}
        self.environment |= {"HOME": str(self.home), "TZ": "UTC"}
        self.use_library("data")
        self.ok("client", "add", "Acme")
        self.ok("project", "add", "Website", "--client", "Acme")
        self.ok("log", "Website", "--from", "2026-10-01T10:00", "--to", "2026-10-01T11:00")

    def use_library(self, name):
        self.environment |= {"XDG_DATA_HOME": str(self.home / name), "XDG_CONFIG_HOME": str(self.home / name)}

    def run_program(self, *arguments, memory=None, file_size=None, **options):
        options = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | options
        return subprocess.run([ELMWORTH, *arguments], env=self.environment, cwd=self.home, timeout=60,
                              preexec_fn=limits(memory, file_size), restore_signals=False, **options)

    def ok(self, *arguments):
        done = self.run_program(*arguments)
        self.assertEqual((done.returncode, done.stderr), (0, b""), arguments)
        return done.stdout.decode()

    def state(self):
        """The whole library, without the instant at which it is looked at."""
        document = json.loads(self.ok("backup", "-"))
        del document["exportedAt"]
        return document

    def refused(self, *arguments, says, **options):
        before = self.state()
        done = self.run_program(*arguments, **options)
        sentence = done.stderr.decode()
        self.assertEqual((done.returncode, done.stdout or b""), (1, b""), (arguments, sentence))
        self.assertIn(says, sentence)
        self.assertEqual(sentence.count("\n"), 1, sentence)
        self.assertLess(len(sentence), 400)
        self.assertEqual(self.state(), before)

    # --- restore and the profile ---------------------------------------------------------------

    def test_a_restore_whose_profile_cannot_be_written_changes_nothing_and_can_be_repeated(self):
        self.ok("profile", "set", "name", "Jane")
        self.ok("backup", "file")
        self.use_library("new")
        settings = self.home / "new-settings"
        settings.write_text("in the way of the folder")
        self.environment["XDG_CONFIG_HOME"] = str(settings)
        self.refused("restore", "file", says="The settings file can't be written, so nothing was restored.")
        settings.unlink()
        self.assertEqual(self.ok("restore", "file"), "Restored 1 clients and 0 invoices.\n")
        self.assertIn("Jane", self.ok("profile"))

    # --- damaged texts -------------------------------------------------------------------------

    def test_a_damaged_byte_costs_one_character_and_not_the_backup(self):
        with contextlib.closing(sqlite3.connect(self.home / "data/Elmworth/library.sqlite")) as library:
            library.execute("UPDATE TimeEntry SET notes = CAST(x'636166e9' AS TEXT)")
            library.commit()
        done = self.run_program("backup", "file")
        self.assertEqual((done.returncode, done.stderr.decode()), (
            0, "1 text of the library held damaged bytes, which stand as \ufffd in the document.\n"))
        self.use_library("new")
        self.ok("restore", "file")
        self.assertEqual(self.state()["clients"][0]["projects"][0]["entries"][0]["notes"], "caf\ufffd")

    # --- import --------------------------------------------------------------------------------

    def test_what_is_no_report_is_not_imported(self):
        chance = random.Random(20261121)
        for name, content, says in (
                ("empty", b"", EMPTY),
                ("blank lines", b"\n\r\n" * 1000, EMPTY),
                ("byte order mark alone", b"\xef\xbb\xbf", EMPTY),
                ("header alone", HEADER, EMPTY),
                ("binary", chance.randbytes(MEGABYTE), UNKNOWN),
                ("program", ELMWORTH.read_bytes()[:MEGABYTE], UNKNOWN),
                ("NUL bytes", bytes(MEGABYTE), UNKNOWN),
                ("UTF-16 with half a pair", b"\xff\xfe" + HEADER.decode().encode("utf-16-le") + b"\x00\xd8,\0", UNKNOWN),
                ("cut UTF-16", b"\xff\xfe" + (HEADER + ROW).decode().encode("utf-16-le")[:-1], UNKNOWN),
                ("JSON", b'{"clients": []}', UNKNOWN),
                ("header in quotes never closed", b'"' + HEADER + ROW, UNKNOWN),
                ("times that are none", HEADER + ROW.replace(b"2026", b"20x6"), EMPTY)):
            with self.subTest(name):
                self.file.write_bytes(content)
                self.refused("import", "file", says=says, memory=512 * MEGABYTE)

    def test_an_unclosed_quote_over_100_megabytes_ends_in_a_sentence(self):
        with open(self.file, "wb") as file:
            file.write(HEADER + b'Jane,"')
            for _ in range(100):
                file.write(ROW * (MEGABYTE // len(ROW)))
        self.refused("import", "file", says=EMPTY, memory=1024 * MEGABYTE)

    def test_a_million_columns_are_a_report_or_none(self):
        columns = b",".join(b"x" for _ in range(1_000_000))
        self.file.write_bytes(columns + b"\n" + columns + b"\n")
        self.refused("import", "file", says=UNKNOWN, memory=512 * MEGABYTE)
        self.file.write_bytes(columns + b"," + HEADER + columns + b"," + ROW)
        self.assertEqual(self.ok("import", "file"), "Imported 1 entry.\n")

    def test_odd_characters_come_through_an_import(self):
        notes = "nul \0, mark \ufeff, private \ue000, escape \x1b[31m"
        self.file.write_bytes(HEADER + ROW.replace(b"Notes", b'"' + notes.encode() + b'"'))
        self.assertEqual(self.ok("import", "file"), "Imported 1 entry.\n")
        entries = self.state()["clients"][0]["projects"][0]["entries"]
        self.assertEqual(entries[0]["notes"], notes)
        self.file.write_bytes((HEADER + ROW).replace(b"Notes", b"half \xed\xa0\x80 a pair").replace(b"09:", b"08:"))
        self.assertEqual(self.ok("import", "file"), "Imported 1 entry.\n")
        self.state()

    # --- restore -------------------------------------------------------------------------------

    def test_what_is_no_backup_is_not_restored(self):
        good = self.ok("backup", "-").encode()
        self.use_library("empty")
        deep = 100_000
        chance = random.Random(20261121)
        for name, content, says in (
                ("empty", b"", "The document is empty"),
                ("binary", chance.randbytes(MEGABYTE), "This file is no JSON document"),
                ("NUL bytes", bytes(MEGABYTE), "This file is no JSON document"),
                ("a NUL byte behind it", good + b"\0", "NUL byte"),
                ("two documents", good + good, "This file is no JSON document"),
                ("cut short", good[:-20], "This file is no JSON document"),
                ("a list", b"[]", "The document: not an object"),
                ("nothing required", b"{}", "is missing"),
                ("deep", b"[" * deep + b"]" * deep, "The document: not an object"),
                ("deep in an unknown key", b'{"x":' + b"[" * deep + b"]" * deep + b"}", "is missing"),
                ("deep and cut short", b'{"x":' + b'[{"y":' * deep, "This file is no JSON document"),
                ("deep in the clients", good.replace(b'"clients": [', b'"clients": [' + b"[" * deep),
                 "clients[0]: not an object"),
                ("half a pair", good.replace(b"Acme", rb"\ud83d"), "This file is no JSON document"),
                ("the other half", good.replace(b"Acme", rb"\ude00"), "clients[0].name: not a text"),
                ("no UTF-8", good.replace(b"Acme", b"M\xfcller"), "This file is no JSON document"),
                ("UTF-16", good.decode().encode("utf-16"), "This file is no JSON document"),
                ("a number too large", good.replace(b'"version": 1', b'"version": ' + b"9" * MEGABYTE), "too big")):
            with self.subTest(name):
                self.file.write_bytes(content)
                self.refused("restore", "file", says=says, memory=512 * MEGABYTE)
        self.file.write_bytes(good)
        self.ok("restore", "file")

    # --- what is no file -----------------------------------------------------------------------

    def test_what_is_no_regular_file_is_not_read(self):
        (self.home / "folder").mkdir()
        os.mkfifo(self.home / "pipe")
        (self.home / "link").symlink_to("nowhere")
        self.file.write_bytes(HEADER + ROW)
        self.use_library("empty")
        for command in ("import", "restore"):
            for name, says in (("folder", "Is a directory"), ("pipe", "pipe: "), ("/dev/zero", "/dev/zero: "),
                               ("link", "No such file"), ("nowhere", "No such file"), ("", "Is a directory"),
                               ("file/file", "Not a directory"), ("n" * 300, "File name too long"),
                               ("/proc/self/mem", "/proc/self/mem: ")):
                with self.subTest(command=command, name=name):
                    self.refused(command, name, says=says, memory=512 * MEGABYTE)

    def test_a_sparse_file_of_two_gigabytes_ends_in_a_sentence(self):
        with open(self.file, "wb") as file:
            file.truncate(900 * MEGABYTE)
        self.refused("import", "file", says="There is not enough memory for this.", memory=512 * MEGABYTE)
        os.truncate(self.file, 2 << 30)
        self.refused("import", "file", says="This file is larger than 1 GB.", memory=512 * MEGABYTE)
        self.use_library("empty")
        self.refused("restore", "file", says="This file is no JSON document", memory=512 * MEGABYTE)

    def test_a_file_that_vanishes_or_is_cut_short_while_it_is_read_is_read_whole_or_not_at_all(self):
        rows = b"".join(ROW.replace(b"10:00:00", b"%02d:%02d:%02d" % (10 + n // 3600, n // 60 % 60, n % 60))
                        .replace(b"Jane", b"%d" % day) for day in range(40) for n in range(900))
        whole = 900
        for take_away in (lambda: self.file.unlink(), lambda: os.truncate(self.file, 0)):
            self.use_library(f"library of {take_away.__code__.co_firstlineno} {take_away.__code__.co_names}")
            self.file.write_bytes(HEADER + rows)
            command = subprocess.Popen([ELMWORTH, "import", "file"], env=self.environment, cwd=self.home,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            take_away()
            _, errors = command.communicate(timeout=60)
            self.assertIn(command.returncode, (0, 1))
            self.assertEqual(errors.count(b"\n"), command.returncode, errors)
            entries = [entry for client in self.state()["clients"] for project in client["projects"]
                       for entry in project["entries"]]
            self.assertLessEqual(len(entries), whole)
            self.assertEqual(len(entries) > 0, command.returncode == 0)

    # --- targets -------------------------------------------------------------------------------

    def targets(self):
        return {path.name: path.read_bytes() if path.is_file() else None for path in (self.home / "targets").iterdir()}

    def test_a_disk_that_fills_while_a_file_is_written_leaves_the_old_one(self):
        (self.home / "targets").mkdir()
        (self.home / "targets/file").write_bytes(b"the old one")
        before = self.targets()
        for size in (0, 1, 1000):
            for command in (("-demo", "backup", "targets/file"), ("-demo", "backup", "targets/new"),
                            ("-demo", "export", "targets/file", "--period", "This Year")):
                with self.subTest(command=command, size=size):
                    done = self.run_program(*command, file_size=size)
                    self.assertEqual((done.returncode, done.stdout), (1, b""))
                    self.assertIn(b"File too large", done.stderr)
                    self.assertEqual(self.targets(), before)

    def test_a_disk_that_fills_during_an_import_or_a_restore_leaves_the_library_as_it_was(self):
        backup = json.loads(self.ok("backup", "backup.json") and (self.home / "backup.json").read_text())
        self.assertEqual(len(backup["clients"]), 1)
        self.file.write_bytes(HEADER + b"".join(ROW.replace(b"Website", b"Project %d" % n) for n in range(500)))
        for size in (0, 10000, 60000):
            self.refused("import", "file", says="", file_size=size)
        self.use_library("empty")
        self.ok("client", "list")
        self.refused("restore", "backup.json", says="", file_size=0)
        self.ok("restore", "backup.json")

    def test_what_is_no_file_is_not_replaced(self):
        targets = self.home / "targets"
        targets.mkdir()
        (targets / "folder").mkdir()
        os.mkfifo(targets / "pipe")
        before = self.targets()
        for command in ("backup", "export"):
            for name in ("folder", "pipe", "none/file", "n" * 300):
                with self.subTest(command=command, name=name):
                    self.refused(command, f"targets/{name}", says="targets/")
        self.assertEqual(self.targets(), before)
        self.assertTrue((targets / "pipe").is_fifo())

    def test_a_result_that_nobody_gets_is_a_failure(self):
        with open("/dev/full", "wb") as full:
            for command in ("backup", "export"):
                self.refused(command, "-", says="could not be written to standard output", stdout=full)


if __name__ == "__main__":
    unittest.main(verbosity=2)
