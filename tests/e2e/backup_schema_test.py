#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The published schema describes the documents that the program writes, and what it refuses, restore refuses."""

import copy
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parents[2]
ELMWORTH = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "elmworth"
NOT_OF_A_TERMINAL = ("DISPLAY", "QT_QPA_PLATFORM", "DBUS_SESSION_BUS_ADDRESS")
SCHEMA = json.loads((ROOT / "docs/backup.schema.json").read_text())
VALIDATOR = jsonschema.Draft202012Validator(SCHEMA)
REMOVED = object()


def parts(document):
    """Each object of a document with its place and its definition in the schema."""
    yield (), SCHEMA
    yield ("profile",), SCHEMA["$defs"]["profile"]
    for i, client in enumerate(document["clients"]):
        yield ("clients", i), SCHEMA["$defs"]["client"]
        for j, project in enumerate(client["projects"]):
            yield ("clients", i, "projects", j), SCHEMA["$defs"]["project"]
            for k in range(len(project["entries"])):
                yield ("clients", i, "projects", j, "entries", k), SCHEMA["$defs"]["entry"]
    for i, invoice in enumerate(document["invoices"]):
        yield ("invoices", i), SCHEMA["$defs"]["invoice"]
        if "business" in invoice:
            yield ("invoices", i, "business"), SCHEMA["$defs"]["profile"]


def at(document, place):
    for step in place:
        document = document[step]
    return document


def changed(document, place, key, value):
    document = copy.deepcopy(document)
    if value is REMOVED:
        del at(document, place)[key]
    else:
        at(document, place)[key] = value
    return document


class BackupSchema(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        self.environment = {k: v for k, v in os.environ.items() if k not in NOT_OF_A_TERMINAL}
        self.use_library("data")

    def use_library(self, name):
        self.environment |= {"HOME": str(self.home), "XDG_DATA_HOME": str(self.home / name),
                             "XDG_CONFIG_HOME": str(self.home / name)}

    def run_program(self, *arguments):
        return subprocess.run([ELMWORTH, *arguments], env=self.environment, cwd=self.home, timeout=30,
                              capture_output=True, text=True)

    def ok(self, *arguments):
        done = self.run_program(*arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
        return done.stdout

    def backup(self, *before):
        self.ok(*before, "backup", "backup.json")
        return json.loads((self.home / "backup.json").read_text())

    def library_with_every_key(self):
        self.ok("profile", "set", "name", "Jane")
        self.ok("client", "add", "Acme", "--rate", "120", "--due-days", "30", "--tax", "8.25")
        self.ok("project", "add", "Website", "--client", "Acme", "--rate", "90", "--budget", "40")
        self.ok("log", "Website", "--from", "2026-10-01T10:00", "--to", "2026-10-01T11:00", "--notes", "“Größe” 😀")
        number = self.ok("invoice", "create", "--client", "Acme", "--from", "2026-10-01",
                         "--through", "2026-10-31").strip()
        self.ok("invoice", "mark", number, "paid")
        self.ok("start", "Website")
        return self.backup()

    def test_the_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_documents_that_the_program_writes_are_valid(self):
        documents = [self.backup(), self.backup("-demo"), self.library_with_every_key()]
        self.assertEqual(documents[0]["clients"], [])
        self.assertGreater(len(documents[1]["clients"]), 1)
        for document in documents:
            VALIDATOR.validate(document)
            self.assertNotIn("null", json.dumps(document))

    def test_every_key_of_a_document_is_in_the_schema(self):
        document = self.library_with_every_key()
        for place, definition in parts(document):
            self.assertLessEqual(set(at(document, place)), set(definition["properties"]), place)

    def refused_both_ways(self, document, key):
        self.assertFalse(VALIDATOR.is_valid(document), key)
        (self.home / "broken.json").write_text(json.dumps(document))
        done = self.run_program("restore", "broken.json")
        self.assertEqual((done.returncode, done.stdout), (1, ""), key)
        self.assertIn(key, done.stderr)
        self.assertEqual(done.stderr.count("\n"), 1)

    def test_what_the_schema_refuses_is_refused_by_restore(self):
        document = self.library_with_every_key()
        self.use_library("empty")
        for place, definition in parts(document):
            for key, value in at(document, place).items():
                if key in definition.get("required", ()):
                    self.refused_both_ways(changed(document, place, key, REMOVED), key)
                    self.refused_both_ways(changed(document, place, key, None), key)
                wrong = 1.5 if isinstance(value, (int, str)) else "text"
                self.refused_both_ways(changed(document, place, key, wrong), key)
        for date in ("2026-03-01T09:00:00.5Z", "2026-03-01T09:00:00", "2026-03-01", "2026-03-01T25:00:00Z",
                     "2026-13-01T09:00:00Z", "2026-03-01 09:00:00Z", "", "2026-03-01T09:00:00+24:00"):
            self.refused_both_ways(changed(document, (), "exportedAt", date), "exportedAt")
        self.refused_both_ways(changed(document, (), "version", 2**63), "version")
        self.refused_both_ways(changed(document, ("profile",), "paperSize", "a5"), "paperSize")
        self.refused_both_ways(changed(document, ("invoices", 0), "clientIndex", -1), "clientIndex")
        self.assertEqual(self.ok("client", "list", "--format", "json").strip(), "[]")
        self.ok("restore", "backup.json")

    def test_optional_keys_may_be_missing_or_null(self):
        document = self.library_with_every_key()
        self.use_library("empty")
        for place, definition in reversed(list(parts(document))):  # what is inside first
            for key in definition["properties"]:
                if key not in definition.get("required", ()) and key in at(document, place):
                    at(document, place)[key] = None
        VALIDATOR.validate(document)
        (self.home / "nulls.json").write_text(json.dumps(document))
        self.ok("restore", "nulls.json")


if __name__ == "__main__":
    unittest.main(verbosity=2)
