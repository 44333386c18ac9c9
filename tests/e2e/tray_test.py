#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The tray item on the bus, beside a tray that is played here."""

import os
import pathlib
import subprocess
import sys
import unittest

from gi.repository import GLib

sys.path.insert(0, os.path.dirname(__file__))
from fake_tray import ITEM, FakeTray, connect
from loop import wait_until

DRIVER = pathlib.Path(os.environ["ELMWORTH_PROGRAMS"]) / "tray_driver"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"


class Driver:
    """The program with the tray item, and what it tells."""

    def __init__(self, **environment):
        self.process = subprocess.Popen([DRIVER], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, env=os.environ | environment)
        self.lines = []
        self.tail = b""
        self.watch = GLib.io_add_watch(self.process.stdout.fileno(), GLib.PRIORITY_DEFAULT,
                                       GLib.IO_IN | GLib.IO_HUP, self.read)
        self.expect("ready")

    def read(self, descriptor, _condition):
        data = os.read(descriptor, 65536)
        *lines, self.tail = (self.tail + data).split(b"\n")
        self.lines += [line.decode() for line in lines]
        return bool(data)

    def expect(self, line):
        wait_until(lambda: line in self.lines, f"the line “{line}”, not only {self.lines}")
        self.lines.remove(line)

    def say(self, line):
        self.process.stdin.write(line.encode() + b"\n")
        self.process.stdin.flush()
        self.expect("done")

    def close(self):
        """Ends the program and gives what it wrote to standard error."""
        GLib.source_remove(self.watch)
        _, errors = self.process.communicate(timeout=20)
        return errors.decode()


class TrayTest(unittest.TestCase):
    def tray(self, **how):
        tray = FakeTray(**how)
        self.addCleanup(tray.close)
        return tray

    def driver(self, **environment):
        driver = Driver(**environment)
        self.addCleanup(lambda: driver.process.returncode is not None or driver.close())
        return driver

    def shown_driver(self):
        """A driver whose item is in a tray, by its name on the bus."""
        tray = self.tray()
        driver = self.driver()
        driver.expect("shown")
        self.bus, self.item = connect(), tray.items[0]
        self.addCleanup(self.bus.close_sync)
        return driver

    def call(self, path, interface, method, signature, *arguments):
        return self.bus.call_sync(self.item, path, interface, method,
                                  GLib.Variant(signature, arguments), None, 0, -1, None).unpack()

    def item_properties(self):
        return self.call("/StatusNotifierItem", PROPERTIES, "GetAll", "(s)", ITEM)[0]

    def menu(self, method, signature="()", *arguments):
        return self.call("/MenuBar", MENU, method, signature, *arguments)

    def signals(self, path):
        """What the item emits from now on, as pairs of a name and the arguments."""
        self.call("/MenuBar", MENU, "AboutToShow", "(i)", 0)  # what was emitted before has arrived
        heard = []
        self.bus.signal_subscribe(self.item, None, None, path, None, 0,
                                  lambda *s: heard.append((s[4], s[5].unpack())))
        self.item_properties()  # by now the bus has the subscription
        return heard


class Registration(TrayTest):
    def test_the_item_registers_with_a_tray_that_is_there(self):
        tray = self.tray()
        driver = self.driver()
        driver.expect("shown")
        self.assertEqual(tray.items, [f"org.kde.StatusNotifierItem-{driver.process.pid}-1"])

    def test_the_item_registers_with_a_tray_that_starts_later(self):
        driver = self.driver()
        tray = self.tray()
        driver.expect("shown")
        self.assertEqual(len(tray.items), 1)

    def test_the_item_registers_again_with_a_tray_that_restarts(self):
        first = self.tray()
        driver = self.driver()
        driver.expect("shown")
        first.close()
        driver.expect("hidden")
        second = self.tray()
        driver.expect("shown")
        self.assertEqual(second.items, first.items)

    def test_that_there_is_no_tray_is_told_at_once(self):
        self.driver().expect("hidden")

    def test_a_watcher_without_a_host_shows_nothing_until_a_host_comes(self):
        tray = self.tray(has_host=False)
        driver = self.driver()
        driver.expect("hidden")
        self.assertNotIn("shown", driver.lines)
        tray.host_came()
        driver.expect("shown")

    def test_without_a_session_bus_there_is_no_tray_and_no_complaint(self):
        driver = self.driver(DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere", NO_AT_BRIDGE="1",
                             QT_LINUX_ACCESSIBILITY_ALWAYS_ON="0", QT_QPA_PLATFORM="offscreen")
        driver.say("face running 1:05|1:05|Website")
        driver.say("menu Open;Quit")
        self.assertEqual(driver.close(), "")
        self.assertEqual((driver.lines, driver.process.returncode), (["hidden"], 0))

    def test_a_bus_that_goes_away_takes_the_tray_and_not_the_program(self):
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                               stdout=subprocess.PIPE, text=True)
        self.addCleanup(bus.wait)
        address = bus.stdout.readline().strip()
        driver = self.driver(DBUS_SESSION_BUS_ADDRESS=address)
        driver.say("menu Quit")  # Qt has said to the bus what it says at the start, and waits for
        bus.kill()
        driver.say("face running 1:05|1:05|Website")
        self.assertIsNone(driver.process.poll())
        bus.stdout.close()


class Item(TrayTest):
    def test_the_properties_are_what_trays_read(self):
        driver = self.shown_driver()
        driver.say("face running 1:05 · Website|1:05|<Website> & more")
        properties = self.item_properties()
        for name, value in (("Category", "ApplicationStatus"), ("Id", "org.elmworth.Elmworth"),
                            ("Title", "Elmworth"), ("Status", "Active"), ("ItemIsMenu", False),
                            ("Menu", "/MenuBar"), ("IconName", ""), ("WindowId", 0),
                            ("XAyatanaLabel", "1:05 · Website"),
                            ("XAyatanaLabelGuide", "0:00 · Website"),
                            ("ToolTip", ("", [], "<Website> & more", "Elmworth"))):
            self.assertEqual(properties[name], value)

    def test_with_nothing_to_tell_the_tool_tip_is_the_programs_name(self):
        self.shown_driver()
        self.assertEqual(self.item_properties()["ToolTip"], ("", [], "Elmworth", ""))

    def test_the_pictures_hold_four_bytes_for_each_pixel(self):
        self.shown_driver()
        pictures = self.item_properties()["IconPixmap"]
        self.assertGreater(len(pictures), 3)
        for width, height, pixels in pictures:
            self.assertEqual(len(pixels), width * height * 4)
        width, height, pixels = pictures[-1]
        middle_of_top_row = pixels[width // 2 * 4:width // 2 * 4 + 4]
        self.assertEqual(bytes(middle_of_top_row), b"\xff\x26\x26\x2b")  # alpha, red, green, blue

    def test_a_new_minute_is_told_and_the_same_minute_is_not(self):
        driver = self.shown_driver()
        heard = self.signals("/StatusNotifierItem")
        for _ in range(2):
            driver.say("face running 1:05|1:05|Website")
            self.item_properties()
        driver.say("face running 1:06|1:06|Website")
        wait_until(lambda: ("XAyatanaNewLabel", ("1:06", "0:00")) in heard, "the new label")
        self.assertEqual([name for name, _ in heard],
                         ["NewIcon", "NewToolTip", "XAyatanaNewLabel", "NewIcon", "XAyatanaNewLabel"])

    def test_the_time_is_drawn_only_for_trays_that_show_no_labels(self):
        pictures = []
        for names in ((), ("org.ayatana.indicator.application",)):
            tray = self.tray(other_names=names)
            driver = self.driver()
            driver.expect("shown")
            self.bus, self.item = connect(), tray.items[0]
            for time in ("1:05", "2:17"):
                driver.say(f"face running {time}|{time}|")
                pictures.append(self.item_properties()["IconPixmap"])
            self.bus.close_sync()
            driver.close()
            tray.close()
        self.assertNotEqual(pictures[0], pictures[1])
        self.assertEqual(pictures[2], pictures[3])

    def test_a_tray_that_reads_no_pictures_finds_the_icon_in_a_folder(self):
        tray = self.tray(other_names=["org.ayatana.indicator.application"])
        driver = self.driver()
        driver.expect("shown")
        self.bus, self.item = connect(), tray.items[0]
        self.addCleanup(self.bus.close_sync)
        names = []
        for state in ("idle", "running"):
            driver.say(f"face {state} 1:05|1:05|Website")
            properties = self.item_properties()
            names.append(properties["IconName"])
            icon = pathlib.Path(properties["IconThemePath"]) / f"{names[-1]}.png"
            self.assertTrue(icon.read_bytes().startswith(b"\x89PNG"))
            self.assertEqual(properties["IconAccessibleDesc"], "Website")
        self.assertNotEqual(*names)

    def test_a_tray_may_tell_later_that_it_shows_labels(self):
        tray = self.tray()
        driver = self.driver()
        driver.expect("shown")
        self.bus, self.item = connect(), tray.items[0]
        self.addCleanup(self.bus.close_sync)
        self.assertEqual(self.item_properties()["IconName"], "")
        tray.take_name("org.ayatana.indicator.application")
        wait_until(lambda: self.item_properties()["IconName"], "the name of the icon")
        tray.close()
        driver.expect("hidden")
        wait_until(lambda: not self.item_properties()["IconName"], "the end of the name")

    def test_presses_arrive_with_their_place(self):
        driver = self.shown_driver()
        self.call("/StatusNotifierItem", ITEM, "Activate", "(ii)", 1400, 12)
        self.call("/StatusNotifierItem", ITEM, "SecondaryActivate", "(ii)", 3, 4)
        self.call("/StatusNotifierItem", ITEM, "ContextMenu", "(ii)", 3, 4)
        self.call("/StatusNotifierItem", ITEM, "Scroll", "(is)", 1, "vertical")
        driver.expect("activated 1400 12")
        driver.expect("middle 3 4")
        self.assertEqual(driver.lines, [])


class Menu(TrayTest):
    def setUp(self):
        self.program = self.shown_driver()
        self.program.say("menu !1:05 Website;-;*Sound;Stop at…>Now,!Later;Quit")

    def labels(self, depth=-1):
        revision, (_, _, children) = self.menu("GetLayout", "(iias)", 0, depth, [])
        return revision, [(i, p.get("label", "-"), len(c)) for i, p, c in children]

    def test_the_layout_holds_what_was_set(self):
        _, root = self.menu("GetLayout", "(iias)", 0, -1, [])
        self.assertEqual(root, (0, {"children-display": "submenu"}, [
            (1, {"label": "1:05 Website", "enabled": False}, []),
            (2, {"type": "separator"}, []),
            (3, {"label": "Sound", "toggle-type": "checkmark", "toggle-state": 1}, []),
            (4, {"label": "Stop at…", "children-display": "submenu"}, [
                (5, {"label": "Now"}, []), (6, {"label": "Later", "enabled": False}, [])]),
            (7, {"label": "Quit"}, [])]))

    def test_the_layout_is_as_deep_as_asked_for(self):
        self.assertEqual(self.labels(depth=0)[1], [])
        self.assertEqual(self.labels(depth=1)[1][3], (4, "Stop at…", 0))
        self.assertEqual(self.labels(depth=2)[1][3], (4, "Stop at…", 2))
        self.assertEqual(self.menu("GetLayout", "(iias)", 4, 0, ["label"])[1], (4, {"label": "Stop at…"}, []))

    def test_properties_are_given_by_name(self):
        self.assertEqual(self.menu("GetGroupProperties", "(aias)", [1, 99, 7], ["enabled"])[0],
                         [(1, {"enabled": False}), (7, {})])
        self.assertEqual(len(self.menu("GetGroupProperties", "(aias)", [], [])[0]), 8)
        self.assertEqual(self.menu("GetProperty", "(is)", 3, "toggle-state"), (1,))

    def test_what_is_not_there_is_an_error(self):
        for method, signature, arguments in (("GetLayout", "(iias)", (99, -1, [])),
                                             ("GetProperty", "(is)", (99, "label")),
                                             ("GetProperty", "(is)", (7, "enabled")),
                                             ("AboutToShow", "(i)", (99,)),
                                             ("Event", "(isvu)", (99, "clicked", GLib.Variant("i", 0), 0)),
                                             ("EventGroup", "(a(isvu))",
                                              ([(99, "clicked", GLib.Variant("i", 0), 0)],))):
            with self.assertRaisesRegex(GLib.Error, "InvalidArgs", msg=method):
                self.menu(method, signature, *arguments)

    def test_a_click_carries_out_the_item(self):
        self.menu("Event", "(isvu)", 5, "clicked", GLib.Variant("i", 0), 0)
        self.program.expect("chosen Now")

    def test_of_several_events_the_unknown_are_told(self):
        nothing = GLib.Variant("i", 0)
        events = [(0, "opened", nothing, 0), (99, "clicked", nothing, 0), (7, "hovered", nothing, 0),
                  (7, "clicked", nothing, 0), (6, "clicked", nothing, 0)]
        self.assertEqual(self.menu("EventGroup", "(a(isvu))", events), ([99],))
        self.program.expect("chosen Quit")
        self.assertEqual(self.program.lines, [])  # neither hovered nor disabled items do anything

    def test_the_menu_is_brought_up_to_date_before_it_shows(self):
        self.assertEqual(self.menu("AboutToShow", "(i)", 0), (False,))
        self.program.say("refresh Start Website;Quit")
        self.assertEqual(self.menu("AboutToShow", "(i)", 0), (True,))
        self.assertEqual(self.labels()[1], [(8, "Start Website", 0), (7, "Quit", 0)])
        self.assertEqual(self.menu("AboutToShowGroup", "(ai)", [0, 99]), ([], [99]))

    def test_another_layout_is_told_with_its_revision(self):
        before, _ = self.labels()
        heard = self.signals("/MenuBar")
        self.program.say("menu Start Website;Quit")
        wait_until(lambda: heard, "the change of the layout")
        self.assertEqual(heard, [("LayoutUpdated", (before + 1, 0))])
        self.assertEqual(self.labels()[0], before + 1)

    def test_another_text_changes_the_open_menu_in_place(self):
        self.program.say("menu #now=!1:05 Website;Quit")
        heard = self.signals("/MenuBar")
        self.program.say("menu #now=!1:05 Website;Quit")
        self.program.say("menu #now=1:06 Website;Quit")
        wait_until(lambda: heard, "the change of the text")
        self.assertEqual(heard, [("ItemsPropertiesUpdated",
                                  ([(8, {"label": "1:06 Website"})], [(8, ["enabled"])]))])

    def test_the_menus_own_properties_are_those_of_version_3(self):
        properties = self.call("/MenuBar", PROPERTIES, "GetAll", "(s)", MENU)[0]
        self.assertEqual(properties, {"Version": 3, "TextDirection": "ltr", "Status": "normal",
                                      "IconThemePath": []})


if __name__ == "__main__":
    unittest.main(verbosity=2)
