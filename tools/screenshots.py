#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the pictures of the program; see tools/screenshots."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import dbusmock

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests/e2e"))
from accessible import application, find, press, press_node, walk
from keyboard import Keyboard
from loop import wait_until

PROGRAM = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "elmworth-app"
FAKETIME = next(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1"))
NOW = "2026-11-19 16:30:00"  # a Thursday afternoon
PORTAL = ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings")
THEMES = {"dark": 1, "light": 2}  # what the portal calls them
MAIN, PANEL, SETTINGS = "Elmworth", "Elmworth Panel", "Settings"
OUTSIDE = (2200, 1790)  # of the main window and of the panel in the corner
CARET_SECONDS, FEWEST_PICTURES = 1.2, 8  # in which the caret of a field comes and goes


class Desktop:
    """The settings of a desktop that is light or dark and moves nothing about."""

    def __init__(self, theme):
        self.server = dbusmock.DBusTestCase.spawn_server(*PORTAL, stdout=subprocess.DEVNULL)
        portal = dbusmock.DBusTestCase.get_dbus().get_object(*PORTAL[:2])
        answer = ('ret = {"org.freedesktop.appearance": {"color-scheme": dbus.UInt32(%d), '
                  '"reduced-motion": dbus.UInt32(1)}}' % THEMES[theme])
        portal.AddMethod(PORTAL[2], "ReadAll", "as", "a{sa{sv}}", answer, dbus_interface=dbusmock.MOCK_IFACE)

    def close(self):
        self.server.terminate()
        self.server.wait()


class Program:
    """The program on a clock that stands still, twice as large as on an ordinary display."""

    def __init__(self, keyboard, folder, theme, *arguments):
        self.keyboard, self.folder, self.theme = keyboard, folder, theme
        self.home = tempfile.mkdtemp(dir=os.environ["HOME"])
        home = {"HOME": self.home, "XDG_DATA_HOME": self.home + "/data", "XDG_CONFIG_HOME": self.home + "/config"}
        clock = {"LD_PRELOAD": str(FAKETIME), "FAKETIME": NOW, "FAKETIME_DONT_FAKE_MONOTONIC": "1"}
        self.process = subprocess.Popen([PROGRAM, *arguments],
                                        env=os.environ | home | clock | {"QT_SCALE_FACTOR": "2"})

    def close(self):
        self.process.terminate()
        self.process.wait()
        shutil.rmtree(self.home)
        wait_until(lambda: not application(), "the end of the program")

    def take_keyboard(self, title=MAIN):
        wait_until(lambda: self.keyboard.focus(title), title)

    def key(self, *keys):
        for keys_together in keys:
            self.keyboard.key(keys_together)

    def window(self, title):
        return next((window for window in self.keyboard.top_level_windows()
                     if self.keyboard.title(window) == title and self.keyboard.is_viewable(window)), None)

    def picture(self, title):
        return subprocess.run(["import", "-silent", "-window", hex(self.window(title)), "-depth", "8", "ppm:-"],
                              capture_output=True, check=True, env=os.environ | {"LC_ALL": "C"}).stdout

    def resting_picture(self, title):
        """Once nothing moves but a caret. Of the two pictures with and without it always the same one."""
        while True:
            pictures, end = [], time.monotonic() + CARET_SECONDS
            while time.monotonic() < end or len(pictures) < FEWEST_PICTURES:
                pictures.append(self.picture(title))
            changes = sum(before != after for before, after in zip(pictures, pictures[1:]))
            if len(set(pictures)) <= 2 and (changes != 1 or pictures[0] == pictures[-1]):
                return min(pictures)

    def shoot(self, name, title=MAIN, expected=None):
        """The picture of a window, once it shows what has the name `expected`."""
        if expected:
            wait_until(lambda: find(expected), expected)
        file = self.folder / f"{name}-{self.theme}.png"
        # A third of the size, and the eye finds no difference.
        subprocess.run(["convert", "ppm:-", "+dither", "-colors", "256", "-strip", "-define",
                        "png:compression-level=9", "-define", "png:exclude-chunks=date,time", f"PNG8:{file}"],
                       input=self.resting_picture(title), check=True, env=os.environ | {"LC_ALL": "C"})
        print(file.name)

    def sheet(self, name, keys, expected):
        """The picture of a sheet that the keys open, and its end."""
        self.key(keys)
        self.shoot(name, expected=expected)
        self.key("Escape")
        wait_until(lambda: not find(expected), f"the end of {expected}")


def shoot_sections(program):
    program.take_keyboard()
    program.shoot("timesheet", expected="Timesheet")
    program.sheet("new-entry", "Control_L+n", "Save")
    program.key("Control_L+2")
    program.shoot("clients", expected="Acme Co")
    program.key("Home")
    program.sheet("client", "Return", "Save")
    program.key("Control_L+3")
    program.shoot("projects", expected="Clients")
    program.key("Home")
    program.sheet("project", "Return", "Save")
    program.key("Control_L+4")
    wait_until(lambda: find("Invoices", "heading"), "the invoices")
    program.key("Down")
    program.shoot("invoices", expected="Invoice preview")
    program.sheet("new-invoice", "Control_L+Shift_L+n", "Period")
    program.key("F10")
    program.shoot("menu", expected="Quit Elmworth")
    program.key("Escape")


def shoot_settings(program):
    program.key("Control_L+comma")
    program.take_keyboard(SETTINGS)
    for tab in ("Business", "Invoices", "General"):
        tabs = wait_until(lambda: find("Settings", "page tab list"), "the tabs")
        press_node(next(node for node in walk(tabs) if node.name == tab))
        program.shoot(f"settings-{tab.lower()}", SETTINGS)
    program.key("Control_L+w")


def shoot_panel(program):
    press("Menu")
    press("Open Panel", "menu item")
    program.take_keyboard(PANEL)
    program.shoot("panel", PANEL, "Open Elmworth")


def shoot_first_run(program):
    program.take_keyboard()
    program.shoot("welcome", expected="Continue")
    program.key("Escape")
    program.shoot("getting-started", expected="Get set up")


def put_pointer_aside(keyboard):
    """Nothing shows as if it was pointed at."""
    keyboard.xtest.XTestFakeMotionEvent(keyboard.display, -1, *OUTSIDE, 0)
    keyboard.x11.XSync(keyboard.display, False)


def main():
    folder, keyboard = pathlib.Path(sys.argv[1]), Keyboard()
    put_pointer_aside(keyboard)
    for theme in THEMES:
        desktop = Desktop(theme)
        program = Program(keyboard, folder, theme, "-demo")
        shoot_sections(program)
        shoot_settings(program)
        shoot_panel(program)
        program.close()
        program = Program(keyboard, folder, theme)
        shoot_first_run(program)
        program.close()
        desktop.close()


if __name__ == "__main__":
    main()
