#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What other programs on the session bus can ask of the running application, and what they cannot."""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

from gi.repository import Gio, GLib

sys.path.insert(0, os.path.dirname(__file__))
from accessible import find
from loop import wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
LIBRARY = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "Elmworth"
NAME, PATH = "org.elmworth.Elmworth", "/org/elmworth/Elmworth"
FREEDESKTOP = "org.freedesktop.DBus"
REFUSED = "Only programs that may write this library can give it commands.\n"


def run(*arguments):
    done = subprocess.run([PROGRAMS / "elmworth", *arguments], capture_output=True, text=True, timeout=60)
    if done.returncode:
        raise AssertionError(done.stderr)
    return done.stdout


def records():
    return {kind: json.loads(run(kind, "list", "--format", "json")) for kind in ("client", "project", "invoice")}


class Bus(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        run("client", "add", "Acme Co")
        run("project", "add", "Website", "--client", "Acme Co")
        run("log", "Website", "--from", "2026-03-02T09:00", "--to", "2026-03-02T10:00")
        run("invoice", "create", "--client", "Acme Co", "--from", "2026-03-01", "--through", "2026-03-31")
        cls.application = subprocess.Popen([PROGRAMS / "elmworth-app"])
        cls.addClassCleanup(lambda: (cls.application.terminate(), cls.application.wait(60)))
        cls.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        wait_until(lambda: find("Timesheet", "heading"), "the window")

    def call(self, interface, method, arguments, descriptors=None, path=PATH):
        return self.bus.call_with_unix_fd_list_sync(NAME, path, interface, method, arguments, None, 0, 60_000,
                                                    descriptors, None)[0]

    def hand_over(self, command, shown):
        """Gives the application a command; what stands for the library is `shown`, a path and how to open it."""
        descriptors = Gio.UnixFDList()
        reading, writing = os.pipe()
        opened = os.open(*shown)
        for descriptor in (2, reading, 0, opened):
            descriptors.append(descriptor)
        try:
            output, errors, status = self.call(
                "org.elmworth.Commands", "Run",
                GLib.Variant("(assssshhhhu)", (command, tempfile.gettempdir(), "en_US", "en_US", "UTC", 0, 1, 2, 3, 0o22)),
                descriptors).unpack()
        finally:
            for descriptor in (reading, writing, opened):
                os.close(descriptor)
        return bytes(output).decode(), bytes(errors).decode(), status

    def test_commands_are_taken_from_those_alone_who_may_write_the_library(self):
        before = records()
        target = pathlib.Path(tempfile.mkdtemp()) / "all.json"
        copy = target.with_name("library.lock")
        copy.touch()
        strangers = ((LIBRARY / "library.lock", os.O_RDONLY), (LIBRARY / "library.lock", os.O_PATH),
                     ("/dev/null", os.O_RDWR), (copy, os.O_RDWR))
        commands = (["backup", str(target)], ["export", str(target)], ["client", "delete", "Acme Co"],
                    ["project", "delete", "Website"], ["invoice", "delete", "INV-2026-001"], ["client", "list"],
                    ["profile", "set", "name", "Mallory"])
        for shown in strangers:
            for command in commands:
                self.assertEqual(self.hand_over(command, shown), ("", REFUSED, 1), (shown, command))
        self.assertEqual(records(), before)
        self.assertFalse(target.exists())
        output, errors, status = self.hand_over(["client", "list"], (LIBRARY / "library.lock", os.O_RDWR))
        self.assertEqual((errors, status), ("", 0))
        self.assertIn("Acme Co", output)

    def test_what_it_offers_is_known(self):
        """A new method must be thought about: anybody on the bus may call it."""
        document = ElementTree.fromstring(
            self.call(FREEDESKTOP + ".Introspectable", "Introspect", None).unpack()[0])
        offered = {f"{interface.get('name')}.{method.get('name')}" for interface in document.iter("interface")
                   for method in interface.iter("method")}
        self.assertEqual({name for name in offered if not name.startswith(FREEDESKTOP)},
                         {"org.elmworth.Commands.Run", "org.freedesktop.Application.Activate",
                          "org.freedesktop.Application.ActivateAction", "org.freedesktop.Application.Open"})

    def test_no_action_exports_or_deletes(self):
        before = records()
        actions = ["export", "backup", "delete", "restore", "import", "invoice", "quit", "client delete", "", "settings"]
        for action in [*actions, "panel", "new-invoice"]:
            self.call("org.freedesktop.Application", "ActivateAction",
                      GLib.Variant("(sava{sv})", (action, [GLib.Variant("s", "Acme Co")], {})))
        self.call("org.freedesktop.Application", "Open", GLib.Variant("(asa{sv})", (["file:///etc/passwd"], {})))
        self.assertEqual(records(), before)
        self.assertIsNone(self.application.poll())
        wait_until(lambda: find("Create Invoice"), "the sheet, in which a person decides")
        self.assertEqual(records(), before)

    def test_its_actions_start_and_stop(self):
        def act(action):
            self.call("org.freedesktop.Application", "ActivateAction", GLib.Variant("(sava{sv})", (action, [], {})))
        act("continue")
        self.assertEqual(json.loads(run("status", "--format", "json"))["running"]["project"], "Website")
        act("stop")
        self.assertNotIn("running", json.loads(run("status", "--format", "json")))

    def test_the_desktop_file_names_the_actions_that_there_are(self):
        packaging = pathlib.Path(__file__).resolve().parents[2] / "packaging"
        text = (packaging / f"{NAME}.desktop").read_text()
        source = (packaging.parent / "src/app/Activation.cpp").read_text()
        self.assertEqual(set(re.search(r"^Actions=(.*);$", text, re.M)[1].split(";")),
                         set(re.findall(r'action == "([a-z-]+)"', source)))


if __name__ == "__main__":
    unittest.main(verbosity=2)
