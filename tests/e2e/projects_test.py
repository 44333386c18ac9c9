#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The projects in the main window, by pointer and by keyboard."""

import os
import subprocess
import sys
import unittest

import pyatspi

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN, NEW_YORK
from pointer import RIGHT
from timesheet_window import (PROGRAMS, TimesheetWindow, find, focused_name, showing,
                              wait_until)

NOTHING_TRACKED = "0:00 tracked · 0:00 unbilled"


class ProjectsWindow(TimesheetWindow):
    """With "Website" of "Acme Co", who pays $100 an hour."""

    rate = "$100.00/h"
    custom_rate = "$120.50/h"

    def fill(self):
        self.fill_library()
        self.settings.write_text(self.settings.read_text() + "mainSection=Projects\n")
        self.program = subprocess.Popen([PROGRAMS / "elmworth-app"], env=self.environment)
        self.addCleanup(self.program.wait)
        self.addCleanup(self.program.kill)
        wait_until(lambda: find("Projects", "heading"), "the projects")
        self.take_keyboard()

    def fill_library(self):
        """What the library holds before the application starts."""

    # What the window shows

    def rows(self):
        return [node for node in find("Projects by client", "list") or []
                if node and node.getRoleName() == "list item" and showing(node)]

    def texts(self):
        return [self.plain(node) for node in self.rows()]

    def names(self):
        return [text.split(", ")[0] for text in self.texts()]

    def see_names(self, *names):
        wait_until(lambda: self.names() == list(names), lambda: f"{names}, not {self.names()}")

    def see_row(self, text):
        wait_until(lambda: text in self.texts(), lambda: f"{text}, not {self.texts()}")

    def row(self, name):
        return wait_until(lambda: next((node for node in self.rows() if self.plain(node).split(", ")[0] == name), None),
                          f"the row of {name}")

    def selected_names(self):
        return [self.plain(node).split(", ")[0] for node in self.rows()
                if node.getState().contains(pyatspi.STATE_SELECTED)]

    def subtitle(self, text):
        wait_until(lambda: find(text), text)

    def wait_for_sheet(self, title):
        wait_until(lambda: find(title, "dialog"), title)
        self.wait_for_focus("Name")

    def question(self, title, message):
        wait_until(lambda: find(title, "dialog"), title)
        wait_until(lambda: find(message), message)

    # What the library holds

    def project(self, name):
        return next((each for each in self.as_json("project", "list", "--all") if each["name"] == name), None)

    def wait_for_project(self, name, **fields):
        def is_so():
            project = self.project(name)
            return project is not None and all(project.get(key) == value for key, value in fields.items())
        wait_until(is_so, lambda: f"{name} with {fields}, not {self.project(name)}")

    def running_project(self):
        return self.running().get("project")

    # Hands

    def to_the_row(self, name):
        """By the keyboard alone."""
        self.tab_to("Project list")
        self.key("Home")
        for _ in range(20):
            if self.selected_names() == [name]:
                return
            before = self.selected_names()
            self.key("Down")
            wait_until(lambda: self.selected_names() != before, f"the row after {before}")
        raise AssertionError(f"the arrows do not reach {name}")

    def clear_and_type(self, text):
        self.key("Control_L+a")
        self.keyboard.type(text)


class Added:
    """What is written as the place has it."""

    def test_a_project_is_added_with_all_its_fields(self):
        self.elmworth("client", "add", "Globex")
        self.key("Control_L+n")
        self.wait_for_sheet("New Project")
        self.keyboard.type("Shop")
        self.key("Tab")
        self.wait_for_focus("Client")
        self.keyboard.type("glo")
        self.key("Return")
        self.wait_for_focus("Client")
        wait_until(lambda: find("for Globex"), "the client")
        self.key("Tab", "space", "Tab")
        self.wait_for_focus("Hourly rate")
        self.keyboard.type("120,50")
        self.key("Tab")
        self.wait_for_focus("Hours budget")
        self.keyboard.type("37,5")
        self.key("Tab")
        wait_until(lambda: focused_name().startswith("Color "), "the colors")
        first = int(focused_name().split()[1])
        self.key("Right")
        self.wait_for_focus(f"Color {first % 9 + 1}")
        self.key("Return")
        self.see_row(f"Shop, Custom rate, 0:00 tracked · 0:00 unbilled · budget 38 h, 0 percent of budget used, "
                     f"{self.custom_rate}")
        wait_until(lambda: self.selected_names() == ["Shop"], "the new project selected")
        self.wait_for_project("Shop", client="Globex")


class ByKeyboard(Added):
    def test_space_starts_and_stops(self):
        self.elmworth("project", "add", "App", "--client", "Acme Co")
        self.see_names("App", "Website")
        self.to_the_row("Website")
        self.key("space")
        wait_until(lambda: self.running_project() == "Website", "the timer")
        self.key("Up", "space")
        wait_until(lambda: self.running_project() == "App", "the other timer")
        self.key("space")
        wait_until(lambda: self.running_project() is None, "the end of the timer")

    def test_archive_and_unarchive_by_the_menu_key(self):
        self.to_the_row("Website")
        self.key("Menu")
        wait_until(lambda: find("Edit…", "menu item"), "the menu")
        self.key("Down", "Down", "Return")
        wait_until(lambda: find("No projects match “”."), "no projects")
        self.wait_for_project("Website", isArchived=True)
        self.subtitle("0 active")
        self.tab_to("Show Archived")
        self.key("space")
        self.subtitle("1 total")
        self.see_row(f"Website, Archived, {NOTHING_TRACKED}, {self.rate}")
        self.to_the_row("Website")
        self.key("Shift_L+F10")
        wait_until(lambda: find("Unarchive", "menu item"), "the menu")
        self.key("Down", "Down", "Return")
        self.see_row(f"Website, {NOTHING_TRACKED}, {self.rate}")

    def test_what_the_menu_opens_has_the_keyboard(self):
        self.to_the_row("Website")
        self.key("Menu")
        wait_until(lambda: find("Edit…", "menu item"), "the menu")
        self.key("Down", "Return")
        self.wait_for_end("Edit…", "menu item")
        self.wait_for_sheet("Edit Project")
        self.key("Escape")
        self.wait_for_focus("Project list")
        self.key("Menu")
        wait_until(lambda: find("Delete…", "menu item"), "the menu")
        self.key("Down", "Down", "Down", "Return")
        self.wait_for_end("Delete…", "menu item")
        self.question("Delete Website?", "This deletes its 0 time entries.")
        self.wait_for_focus("Delete Project")
        self.key("Escape")
        self.wait_for_focus("Project list")
        self.see_names("Website")

    def test_delete_asks_and_can_be_undone(self):
        self.elmworth("project", "add", "App", "--client", "Acme Co")
        self.log("2026-11-18T09:00", "2026-11-18T10:00")
        self.see_row(f"Website, 1:00 tracked · 1:00 unbilled, {self.rate}")
        self.to_the_row("Website")
        self.key("Delete")
        self.question("Delete Website?", "This deletes its 1 time entry.")
        self.wait_for_focus("Delete Project")
        self.key("Return")
        self.see_names("App")
        wait_until(lambda: find("Deleted Website."), "the notice")
        self.wait_for_focus("Project list")
        self.key("Control_L+z")
        self.see_row(f"Website, 1:00 tracked · 1:00 unbilled, {self.rate}")


class ByPointer:
    def test_the_button_on_a_row_starts_and_the_row_runs(self):
        self.pointer.move_to(find("Projects", "heading"))
        self.wait_for_end("Start Website")
        self.pointer.move_to(self.row("Website"))
        self.pointer.click(wait_until(lambda: find("Start Website", "push button"), "the button"))
        wait_until(lambda: self.running_project() == "Website", "the timer")
        self.see_row(f"Website, {NOTHING_TRACKED}, {self.rate}, Running")
        self.wait_for_end("Start Website")

    def test_the_menu_of_a_right_click(self):
        self.pointer.click(self.row("Website"), button=RIGHT)
        wait_until(lambda: find("Edit…", "menu item"), "the menu")
        self.assertEqual(self.selected_names(), ["Website"])
        self.pointer.click(find("Archive", "menu item"))
        self.wait_for_project("Website", isArchived=True)
        self.pointer.click(wait_until(lambda: find("Undo"), "the notice's button"))
        self.wait_for_project("Website", isArchived=False)
        self.pointer.click(self.row("Website"), button=RIGHT)
        wait_until(lambda: find("Delete…", "menu item"), "the menu")
        self.pointer.click(find("Delete…", "menu item"))
        self.question("Delete Website?", "This deletes its 0 time entries.")
        self.pointer.click(find("Delete Project", "push button"))
        wait_until(lambda: find("No projects yet", "heading"), "the empty section")
        self.wait_for_focus("Add a Project")

    def test_without_clients_the_way_leads_there(self):
        self.elmworth("client", "delete", "Acme Co")
        wait_until(lambda: find("Add a client first", "heading"), "the empty section")
        self.assertEqual(find("Add Project", "push button").description, "Unavailable")
        self.pointer.click(find("Go to Clients", "push button"))
        wait_until(lambda: find("Clients", "heading"), "the clients")

    def test_every_control_has_a_name(self):
        self.elmworth("project", "set", "Website", "budget", "10")
        self.assertEqual(self.nameless(), [])
        self.pointer.double_click(self.row("Website"))
        self.wait_for_sheet("Edit Project")
        self.assertEqual(self.nameless(), [])


class InNewYork(Added, ProjectsWindow):
    place = NEW_YORK


class InBerlin(ByKeyboard, ByPointer, ProjectsWindow):
    place = BERLIN
    rate = "100,00 $/h"
    custom_rate = "120,50 $/h"


if __name__ == "__main__":
    unittest.main(verbosity=2)
