#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The settings window and a new user's first steps, worked by presses, by typing, and by the keyboard alone."""

import configparser
import json
import os
import subprocess
import sys
import unittest

import gi
import pyatspi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib

sys.path.insert(0, os.path.dirname(__file__))
from timesheet_window import TimesheetWindow, find, press, wait_until, walk


class SettingsWindow(TimesheetWindow):
    """Each test has a library with a client, a project and an hour."""

    def fill(self):
        self.log("2026-11-18T09:00", "2026-11-18T10:00", "An hour")

    def setting(self, name):
        settings = configparser.ConfigParser()
        settings.optionxform = str
        settings.read(self.settings)
        return settings.get("General", name, fallback=None)

    def profile(self, field):
        return self.as_json("profile")[field]

    def stop(self):
        self.program.terminate()
        self.program.wait()

    def open_settings(self, tab="Business"):
        """By the menu, as a pointer does."""
        press("Menu")
        press("Settings…", "menu item")
        self.show_tab(tab)

    def show_tab(self, tab):
        tabs = wait_until(lambda: find("Settings", "page tab list"), "the tabs")
        button = next(node for node in walk(tabs) if node.name == tab)
        action = button.queryAction()
        action.doAction([action.getName(i) for i in range(action.nActions)].index("Press"))
        wait_until(lambda: button.getState().contains(pyatspi.STATE_SELECTED), tab)

    def pick(self, picker, option):
        """An option of a picker that shows all of them."""
        group = wait_until(lambda: find(picker), picker)
        button = next(node for node in walk(group) if node.name == option)
        action = button.queryAction()
        action.doAction([action.getName(i) for i in range(action.nActions)].index("Press"))

    def is_chosen(self, picker, option):
        group = wait_until(lambda: find(picker), picker)
        return next(node for node in walk(group) if node.name == option).getState().contains(pyatspi.STATE_CHECKED)

    @staticmethod
    def press_below(name):
        """What may have to be scrolled to, which a press doesn't need."""
        button = next(node for node in walk(find("Settings", "frame")) if node.name == name)
        action = button.queryAction()
        action.doAction([action.getName(i) for i in range(action.nActions)].index("Press"))

    def is_on(self, name):
        return find(name, "check box").getState().contains(pyatspi.STATE_CHECKED)

    def read(self, text):
        """Waits for the alert and closes it."""
        alert = wait_until(lambda: find("Import", "dialog"), "the alert")
        wait_until(lambda: alert.description.startswith(text), lambda: f"{text}, not {alert.description}")
        press("OK")
        wait_until(lambda: not find("OK"), "the alert's end")


class Settings(SettingsWindow):
    def setUp(self):
        super().setUp()
        self.start(cwd=self.home)

    def test_the_keyboard_alone_reaches_and_sets_everything(self):
        self.take_keyboard()
        self.key("Control_L+comma")
        wait_until(lambda: find("Settings", "frame"), "the settings")
        wait_until(lambda: self.keyboard.focus("Settings"), "the settings on the display")
        self.wait_for_focus("Business")
        self.tab_to("Business name")
        self.keyboard.type("Mine")
        self.tab_to("Next number")
        self.key("Control_L+a")
        self.keyboard.type("0")
        self.tab_to("Restart numbering each year")
        self.assertEqual(self.value("Next number"), "1")
        self.key("space")
        self.key("Control_L+2")
        wait_until(lambda: find("Paper size", "combo box"), "the invoices' tab")
        self.tab_to("Paper size")
        self.key("Down")
        wait_until(lambda: self.profile("paperSize") == "a4", "the paper")
        self.tab_to("6 min")
        self.key("Right")
        self.wait_for_focus("15 min")
        self.tab_to("Due in 14 days")
        self.key("Up")
        wait_until(lambda: find("Due in 15 days"), "the due days")
        self.key("Control_L+3")
        wait_until(lambda: find("Appearance"), "the general tab")
        self.tab_to("System")
        self.key("Right")
        wait_until(lambda: self.setting("appearance") == "dark", "the appearance")
        self.tab_to("Tray while tracking")
        self.key("Down")
        wait_until(lambda: self.setting("menuBarStyle") == "timeAndProject", "the tray")
        self.tab_to("Weekly hours goal: off")
        self.key("Up")
        wait_until(lambda: find("Weekly hours goal: 5 h"), "the goal")
        self.tab_to("Launch Elmworth at login")
        self.key("space")
        wait_until(lambda: self.is_on("Launch Elmworth at login"), "the login item")
        for name in ("Import CSV…", "Export Backup…", "Show in Files",
                     "Restore Backup…"):
            self.tab_to(name)
        self.key("Escape")
        wait_until(lambda: not find("Settings", "frame"), "the settings' end")
        self.assertEqual((self.profile("name"), self.profile("nextInvoiceNumber"), self.profile("resetNumberingYearly"),
                          self.profile("roundingMinutes"), self.profile("defaultDueDays")), ("Mine", 1, True, 15, 15))
        self.assertEqual(self.setting("weeklyGoalHours"), "5")
        self.stop()
        self.start(cwd=self.home)
        self.take_keyboard()
        self.key("Control_L+comma")
        wait_until(lambda: self.keyboard.focus("Settings"), "the settings on the display")
        wait_until(lambda: find("Next invoice: INV-2026-001"), "the business")
        self.assertEqual(self.value("Business name"), "Mine")
        self.key("Control_L+3")
        wait_until(lambda: find("Weekly hours goal: 5 h"), "the goal")
        self.assertTrue(self.is_chosen("Appearance", "Dark"))
        self.assertEqual(find("Tray while tracking", "combo box").description, "Time and project")
        self.assertTrue(self.is_on("Launch Elmworth at login"))

    def test_commands_show_in_the_open_window(self):
        self.open_settings("General")
        self.elmworth("settings", "set", "appearance", "dark")
        wait_until(lambda: self.is_chosen("Appearance", "Dark"), "the appearance")
        self.elmworth("settings", "set", "menuBarStyle", "icon")
        wait_until(lambda: find("Tray while tracking", "combo box").description == "Icon only", "the tray")
        self.elmworth("settings", "set", "weeklyGoalHours", "40")
        wait_until(lambda: find("Weekly hours goal: 40 h"), "the goal")
        self.elmworth("settings", "set", "launchAtLogin", "true")
        wait_until(lambda: self.is_on("Launch Elmworth at login"), "the login item")
        self.assertEqual(self.as_json("settings"), {
            "appearance": "dark", "menuBarStyle": "icon", "weeklyGoalHours": 40, "installUpdatesAutomatically": False,
            "launchAtLogin": True})

    def test_the_login_item_starts_the_program(self):
        self.open_settings("General")
        press("Launch Elmworth at login", "check box")
        entry = self.home / "config/autostart/elmworth.desktop"
        wait_until(entry.exists, "the entry")
        checked = subprocess.run(["desktop-file-validate", entry], capture_output=True, text=True, timeout=60)
        self.assertEqual((checked.returncode, checked.stdout), (0, ""))
        self.stop()
        context = Gio.AppLaunchContext()
        for name, value in self.environment.items():
            context.setenv(name, value)
        started = []
        flags = GLib.SpawnFlags.DO_NOT_REAP_CHILD | GLib.SpawnFlags.SEARCH_PATH
        launched = Gio.DesktopAppInfo.new_from_filename(str(entry)).launch_uris_as_manager(
            [], context, flags, None, None, lambda info, pid, data: started.append(pid), None)
        self.assertTrue(launched)
        self.addCleanup(os.waitpid, started[0], 0)
        self.addCleanup(os.kill, started[0], 9)
        wait_until(lambda: find("Timesheet", "heading"), "the program that the entry starts")

    def test_a_library_is_exported_wiped_and_restored(self):
        self.elmworth("profile", "set", "name", "Mine")
        before = self.statistics()
        self.open_settings("General")
        press("Export Backup…")
        self.click_in_dialog("Save")
        file = self.home / "Elmworth Backup 2026-11-19.json"
        wait_until(file.exists, "the backup")
        wait_until(lambda: not find("Save"), "the dialog's end")
        self.assertEqual(len(json.loads(file.read_text())["clients"]), 1)
        self.restore(file)
        self.read("Restoring needs an empty library.")
        self.elmworth("client", "delete", "Acme Co")
        self.elmworth("profile", "set", "name", "")
        self.restore(file)
        self.read("Restored 1 clients and 0 invoices.")
        wait_until(lambda: self.notes() == ["An hour"], "the restored hour")
        self.assertEqual(self.statistics(), before)
        self.assertEqual(self.profile("name"), "Mine")
        self.see("An hour")  # in the main window, as if it had been there from the start

    def statistics(self):
        return self.as_json("report", "--from", "2026-11-01", "--through", "2026-11-30")["statistics"]

    def restore(self, file):
        self.press_below("Restore Backup…")
        self.click_in_dialog(file.name, times=2)
        wait_until(lambda: not find(file.name), "the dialog's end")

    def click_in_dialog(self, name, **how):
        self.take_keyboard()
        self.pointer.click(wait_until(lambda: find(name), f"{name} in the dialog"), **how)

    def test_every_control_has_a_role_and_a_name(self):
        self.open_settings()
        for tab in ("Business", "Invoices", "General"):
            self.show_tab(tab)
            self.assertEqual(self.nameless(), [])

    def test_a_closed_window_comes_back_and_ends_nothing(self):
        self.take_keyboard()
        for _ in range(2):
            self.keyboard.focus("Elmworth")
            self.key("Control_L+comma")
            wait_until(lambda: find("Settings", "frame"), "the settings")
            wait_until(lambda: self.keyboard.focus("Settings"), "the settings on the display")
            self.key("Control_L+w")
            wait_until(lambda: not find("Settings", "frame"), "the settings' end")
        self.assertTrue(find("Timesheet", "heading"))


class FirstRun(SettingsWindow):
    def setUp(self):
        super().setUp()
        self.settings.write_text(f"[General]\nmainWindowFrame={self.frame}\n")

    def test_the_welcome_is_shown_once(self):
        self.start()
        for button in ("Continue", "Continue", "Get Started"):
            self.assertTrue(wait_until(lambda: find("Welcome to Elmworth", "dialog"), "the welcome"))
            press(button)
        wait_until(lambda: not find("Welcome to Elmworth"), "the welcome's end")
        self.assertEqual(self.setting("didOnboard"), "true")
        self.stop()
        self.start()
        wait_until(lambda: find("New Entry"), "the window")
        self.assertFalse(find("Welcome to Elmworth"))

    def test_the_checklist_leads_to_the_first_invoice_and_is_hidden_for_good(self):
        self.settings.write_text(f"[General]\nmainWindowFrame={self.frame}\ndidOnboard=true\n")
        self.start()
        wait_until(lambda: find("3 of 5 done"), "what is done")  # a client, a project, an hour
        press("First invoice")
        wait_until(lambda: find("Invoices", "heading"), "the invoices")
        press("Timesheet", "page tab")
        press("Business details")
        wait_until(lambda: find("Settings", "frame"), "the settings")
        self.fill_in("Business name", "Mine")
        wait_until(lambda: find("4 of 5 done"), "what is done")
        press("Hide checklist")
        wait_until(lambda: not find("Get set up"), "the checklist's end")
        self.stop()
        self.start()
        wait_until(lambda: find("New Entry"), "the window")
        self.assertFalse(find("Get set up"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
