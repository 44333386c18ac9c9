#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The timesheet by the keyboard alone."""

import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN
from timesheet_window import TimesheetWindow, find, focused, focused_name, wait_until

BILLED = "Billed entries are read-only"


class Keys(TimesheetWindow):
    place = BERLIN

    def fill(self):
        self.fill_two_weeks()
        self.take_keyboard()

    def to_the_list(self, downs=1):
        self.tab_to("Entries")
        for _ in range(downs):
            self.key("Down")

    def select(self, *notes):
        wait_until(lambda: self.selected() == list(notes), lambda: f"{notes} selected, not {self.selected()}")

    def test_tab_goes_in_reading_order_and_back(self):
        self.elmworth("start", "Website")
        wait_until(lambda: find("Stop timer"), "the timer")
        order = ["Menu", "Timesheet", "Clients", "Projects", "Invoices", "Stop timer", "Export CSV", "New Entry",
                 "What are you working on?", "Stop", self.column(), "Range: This Week", "Client: All Clients",
                 "Project: All Projects", "Unbilled", "Search notes", "Entries"]
        self.tab_to("Menu")
        for before, name in zip(order, order[1:]):
            self.key("Tab")
            wait_until(lambda: focused_name() == name, lambda: f"{name} after {before}, not {focused_name()}")
        for name in reversed(order[:-1]):
            self.key("Shift_L+Tab")
            self.wait_for_focus(name)

    def column(self):
        """The chart's first day."""
        return next(node.name for node in find("Hours by day", "chart") if node.getRoleName() == "list item")

    def test_an_entry_is_added(self):
        self.key("Control_L+n")
        self.wait_for_focus("Start time")
        self.keyboard.type("1415")
        self.tab_to("Start date", backwards=True)
        self.keyboard.type(self.place.date("2026-11-16"))
        self.tab_to("End date")
        self.keyboard.type("2026-11-16")
        self.tab_to("End time")
        self.keyboard.type("16.00")
        self.tab_to("Notes")
        self.keyboard.type("Monday")
        self.key("Control_L+Return")
        self.see("Late", "Early", "Wednesday", "Tuesday", "Monday")
        entry = self.entries()[-2]
        self.assertEqual((entry["notes"], entry["seconds"]), ("Monday", 6300))

    def test_another_section_has_the_keys_for_itself(self):
        self.to_the_list()
        self.select("Late")
        self.key("Control_L+2")
        wait_until(lambda: find("Clients", "heading"), "the other section")
        self.key("Down", "Delete")
        wait_until(lambda: find("Delete Acme Co?", "dialog"), "the question of the other section")
        self.key("Escape")
        self.wait_for_end("Delete Acme Co?", "dialog")
        self.key("Control_L+1")
        self.see("Late", "Early", "Wednesday", "Tuesday")
        self.select("Late")
        self.key("Down")
        self.select("Early")
        self.assertIsNone(find("Delete this entry?", "dialog"))

    def test_undo_in_a_field_undoes_what_was_typed(self):
        self.to_the_list()
        self.key("Delete")
        self.wait_for_focus("Delete")
        self.key("Return")
        self.wait_for_end("Delete this entry?")
        self.see("Early", "Wednesday", "Tuesday")
        self.key("Control_L+f")
        self.wait_for_focus("Search notes")
        self.keyboard.type("tue")
        self.see("Tuesday")
        self.key("Control_L+z")
        self.see("Early", "Wednesday", "Tuesday")
        self.assertNotIn("Late", self.notes())

    def open_menu(self, keys):
        self.key(keys)
        wait_until(lambda: find("Delete", "menu item"), "the menu")

    def choose(self, name):
        """Goes down the open menu."""
        for _ in range(12):
            if focused_name() == name:
                self.key("Return")
                return self.wait_for_end(name, "menu item")
            before = focused_name()
            self.key("Down")
            wait_until(lambda: focused_name() != before, f"the item after {before}")
        raise AssertionError(f"no {name} in the menu")

    def test_the_menu_moves_what_is_selected_and_undo_takes_it_back(self):
        self.to_the_list(downs=2)
        self.key("Shift_L+Down")
        self.select("Early", "Wednesday")
        self.open_menu("Menu")
        self.choose("Move to Project")
        self.wait_for_focus("Search projects")
        self.keyboard.type("app")
        wait_until(lambda: not find("Website — Acme Co", "menu item"), "the search")
        self.key("Return")
        self.wait_for_projects("Website", "App", "App", "Website", "Website")
        self.key("Control_L+z")
        self.wait_for_projects("Website", "Website", "App", "Website", "Website")
        self.key("Control_L+Shift_L+z")
        self.wait_for_projects("Website", "App", "App", "Website", "Website")

    def wait_for_projects(self, *names):
        wait_until(lambda: [entry["project"] for entry in self.entries()] == list(names), f"{names}")

    def test_delete_asks_and_leaves_what_is_billed(self):
        self.elmworth("invoice", "create", "--client", "Acme Co", "--from", "2026-11-17", "--through", "2026-11-17")
        self.to_the_list(downs=2)
        self.key("Shift_L+Down")
        self.key("Shift_L+Down")
        self.select("Early", "Wednesday", "Tuesday")
        self.key("Delete")
        wait_until(lambda: find("Delete 3 entries?", "dialog"), "the question")
        self.key("Escape")
        self.wait_for_end("Delete 3 entries?")
        self.key("Delete")
        wait_until(lambda: find("Delete 3 entries?", "dialog"), "the question")
        self.wait_for_focus("Delete")
        self.key("Return")
        wait_until(lambda: find(BILLED, "dialog"), "the alert")
        self.wait_for_focus("OK")
        self.key("Return")
        self.wait_for_end(BILLED)
        self.see("Late", "Tuesday")
        self.key("Control_L+z")
        self.see("Late", "Early", "Wednesday", "Tuesday")
        self.key("Control_L+Shift_L+z")
        self.see("Late", "Tuesday")

    def test_the_notice_takes_a_delete_back(self):
        self.to_the_list()
        self.key("Delete")
        wait_until(lambda: find("Delete this entry?", "dialog"), "the question")
        self.wait_for_focus("Delete")
        self.key("Return")
        wait_until(lambda: find("Undo"), "the notice")
        self.see("Early", "Wednesday", "Tuesday")
        self.tab_to("Undo")
        self.key("Return")
        self.see("Late", "Early", "Wednesday", "Tuesday")

        self.wait_for_focus("Entries")
        self.key("Down")
        self.select("Late")

    def test_the_windows_menu_says_what_it_undoes_and_redoes(self):
        def offered():
            self.key("F10")
            wait_until(lambda: find("Go", "menu item"), "the menu")
            return {name: find(name, "menu item").description
                    for name in ("Undo", "Redo", "Undo Delete Entry", "Redo Delete Entry") if find(name, "menu item")}

        self.to_the_list()
        self.assertEqual(offered(), {"Undo": "Unavailable", "Redo": "Unavailable"})
        self.key("Escape")
        self.wait_for_end("Go", "menu item")
        self.to_the_list(downs=0)
        self.key("Delete")
        self.wait_for_focus("Delete")
        self.key("Return")
        self.see("Early", "Wednesday", "Tuesday")
        self.wait_for_focus("Entries")  # as long as the question closes, the window's keys do nothing
        self.assertEqual(offered(), {"Undo Delete Entry": "", "Redo": "Unavailable"})
        self.choose("Undo Delete Entry")
        self.see("Late", "Early", "Wednesday", "Tuesday")
        self.assertEqual(offered(), {"Undo": "Unavailable", "Redo Delete Entry": ""})
        self.choose("Redo Delete Entry")
        self.see("Early", "Wednesday", "Tuesday")
        self.key("Control_L+2")
        wait_until(lambda: find("Clients", "heading"), "the other section")
        self.assertEqual(offered(), {"Undo Delete Entry": "", "Redo": "Unavailable"})
        self.choose("Undo Delete Entry")
        self.assertEqual(offered(), {"Undo": "Unavailable", "Redo Delete Entry": ""})

    def test_each_filter(self):
        self.tab_to("Client: All Clients")
        self.key("Return")
        self.wait_for_focus("Search clients")
        self.key("Down", "Down", "Return")
        self.wait_for_focus("Client: Globex")
        self.see("Wednesday")
        self.tab_to("Clear")
        self.key("Return")
        self.see("Late", "Early", "Wednesday", "Tuesday")
        self.tab_to("Project: All Projects", backwards=True)
        self.key("space")
        self.wait_for_focus("Search projects")
        self.keyboard.type("web")
        wait_until(lambda: not find("App", "menu item"), "the search")
        self.key("Return")
        self.see("Late", "Early", "Tuesday")
        self.key("Control_L+f")
        self.wait_for_focus("Search notes")
        self.keyboard.type("tue")
        self.see("Tuesday")
        self.key("Escape")
        self.see("Late", "Early", "Tuesday")
        self.assertEqual(self.value("Search notes"), "")
        self.wait_for_focus("Entries")
        self.key("Down")
        self.select("Late")

    def test_periods(self):
        self.tab_to("Range: This Week")
        self.key("Return")
        wait_until(lambda: find("Last Week", "menu item"), "the periods")
        self.choose("Last Week")
        self.see("Last week")
        self.wait_for_focus("Range: Last Week")
        self.key("Return")
        self.wait_for_focus("Last Week")
        self.choose("Custom")
        wait_until(lambda: find("From", "text"), "the days")
        self.tab_to("From")
        self.keyboard.type(self.place.date("2026-11-17"))
        self.tab_to("To")
        self.keyboard.type(self.place.date("2026-11-18"))
        self.key("Tab")
        self.see("Wednesday", "Tuesday")

    def test_the_banner_takes_notes_and_stops(self):
        self.elmworth("start", "Website")
        wait_until(lambda: find("Stop"), "the banner")
        self.tab_to("What are you working on?")
        self.keyboard.type("Typed")
        self.key("Return")
        wait_until(lambda: self.running().get("notes") == "Typed", "the notes")
        self.key("Tab")
        self.wait_for_focus("Stop")
        self.key("Return")
        wait_until(lambda: not self.running(), "the end of the timer")

    def test_export(self):
        self.tab_to("Export CSV")
        self.key("Return")
        wait_until(lambda: find("Export CSV", "dialog"), "the dialog")
        self.tab_to_text("Elmworth Timesheet.csv")
        self.key("Control_L+a")
        self.keyboard.type("week.csv")
        self.tab_to("Save")
        self.key("space")
        file = self.home / "week.csv"
        rows = wait_until(lambda: self.rows(file), "the file")
        self.assertEqual([row["Notes"] for row in rows], ["Tuesday", "Wednesday", "Early", "Late"])

    def tab_to_text(self, text):
        """Into the field that holds this text."""
        def holds():
            node = focused()
            return node and node.getRoleName() == "text" and node.queryText().getText(0, -1) == text
        for _ in range(20):
            if holds():
                return
            before = focused()
            self.key("Tab")
            wait_until(lambda: focused() != before, "the next focus")
        raise AssertionError(f"Tab does not reach {text}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
