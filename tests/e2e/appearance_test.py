#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window is dark or bright as the desktop says, and follows when it changes its mind."""

import os
import pathlib
import subprocess
import sys
import unittest

import dbusmock

sys.path.insert(0, os.path.dirname(__file__))
from accessible import application, wait_until

PROGRAMS = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"])
SETTINGS = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "Elmworth/Elmworth.ini"
PORTAL = ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings")
GROUP = "org.freedesktop.appearance"
DARK, LIGHT = 1, 2


def ground():
    """"dark" or "light", as the window's ground looks on the screen."""
    pixel = subprocess.run(["import", "-window", "root", "-crop", "1x1+900+560", "-format", "%[fx:luminance]",
                            "info:-"], capture_output=True, text=True, check=True).stdout
    return "dark" if float(pixel) < 0.1 else "light" if float(pixel) > 0.9 else None


class Appearance(dbusmock.DBusTestCase):
    def start_portal(self, scheme):
        server = self.spawn_server(*PORTAL, stdout=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        self.portal = self.get_dbus().get_object(*PORTAL[:2])
        self.answer(scheme)

    def answer(self, scheme):
        answers = f'ret = {{"{GROUP}": {{"color-scheme": dbus.UInt32({scheme})}}}}'
        self.portal.AddMethod(PORTAL[2], "ReadAll", "as", "a{sa{sv}}", answers, dbus_interface=dbusmock.MOCK_IFACE)

    def prefer(self, scheme):
        self.answer(scheme)
        value = dbusmock.mockobject.dbus.UInt32(scheme, variant_level=1)
        self.portal.EmitSignal(PORTAL[2], "SettingChanged", "ssv", [GROUP, "color-scheme", value],
                               dbus_interface=dbusmock.MOCK_IFACE)

    def start(self, setting="system"):
        SETTINGS.parent.mkdir(parents=True, exist_ok=True)
        SETTINGS.write_text(f"[General]\nappearance={setting}\nmainWindowFrame=0 0 1020 600\ndidOnboard=true\n")
        program = subprocess.Popen([PROGRAMS / "elmworth-app"])
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        wait_until(application, "the application on the accessibility bus")

    def test_the_desktop_is_followed_live(self):
        self.start_portal(DARK)
        self.start()
        for scheme, expected in ((DARK, "dark"), (LIGHT, "light"), (DARK, "dark")):
            self.prefer(scheme)
            wait_until(lambda: ground() == expected, f"a {expected} window")

    def test_the_user_overrules_the_desktop(self):
        self.start_portal(LIGHT)
        self.start("dark")
        wait_until(lambda: ground() == "dark", "a dark window")

    def test_a_setting_changed_in_an_editor_shows_at_once_and_outlives_other_changes(self):
        self.start("light")
        wait_until(lambda: ground() == "light", "a light window")
        subprocess.run(["sed", "-i", "s/appearance=.*/appearance=dark/", SETTINGS], check=True)
        wait_until(lambda: ground() == "dark", "a dark window")
        with SETTINGS.open("r+") as settings:  # as editors do that write into the file that is there
            text = settings.read().replace("appearance=dark", "appearance=light")
            settings.seek(0)
            settings.truncate()
            settings.write(text)
        wait_until(lambda: ground() == "light", "a light window")
        subprocess.run([PROGRAMS / "elmworth", "profile", "set", "name", "Jane"], check=True)
        self.assertIn("Jane", SETTINGS.read_text())
        self.assertIn("appearance=light", SETTINGS.read_text())

    def test_without_a_portal_the_palette_decides(self):
        self.start()
        wait_until(lambda: ground() == "light", "a light window")


if __name__ == "__main__":
    unittest.main(verbosity=2)
