#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The clients, kept in the window: by pointer, by the keyboard alone and through the accessibility tree."""

import os
import sys
import unittest

import pyatspi

sys.path.insert(0, os.path.dirname(__file__))
from place import BERLIN, NEW_YORK
from pointer import RIGHT
from timesheet_window import TimesheetWindow, find, focused_name, press, walk, wait_until

SPACES = str.maketrans({"\u202f": " ", "\u00a0": " "})


class Added:
    """What is written as the place has it."""

    def fill(self):
        with self.settings.open("a") as file:
            file.write("mainSection=Clients\n")
        self.log("2026-11-18T09:00", "2026-11-18T21:30")
        self.start()
        self.take_keyboard()
        self.see(self.card("Acme Co", "1 project", "12:30", 1250))

    def start(self, **options):
        self.start_program(**options)
        wait_until(lambda: find("Clients", "heading"), "the clients")

    def card(self, name, projects, unbilled, value, currency="USD"):
        return f"{name}, {projects}, {unbilled} unbilled, {self.amount(value, currency)}"

    def cards(self):
        grid = find("Clients", "list")
        shown = walk(grid) if grid else []
        return [node.name.translate(SPACES) for node in shown
                if node.getRoleName() == "list item" and node.getState().contains(pyatspi.STATE_SHOWING)]

    def see(self, *cards):
        wait_until(lambda: self.cards() == list(cards), lambda: f"{cards}, not {self.cards()}")

    def card_of(self, name):
        return next(node for node in walk(find("Clients", "list"))
                    if node.getRoleName() == "list item" and node.name.startswith(name + ","))

    def client(self, name):
        return next((client for client in self.as_json("client", "list") if client["name"] == name), None)

    def wait_for_sheet(self, title):
        self.wait_for_focus("Name")
        self.assertTrue(find(title, "dialog"))

    def wait_for_end_of_sheet(self):
        wait_until(lambda: not find("Save"), "the end of the sheet")

    def is_selected(self, name):
        return self.card_of(name).getState().contains(pyatspi.STATE_SELECTED)

    def test_a_client_is_added(self):
        self.key("Control_L+n")
        self.wait_for_sheet("New Client")
        self.assertEqual(find("Save").description, "Unavailable")
        self.keyboard.type("Globex")
        self.tab_to("Currency")
        self.keyboard.type("eur")
        wait_until(lambda: focused_name() != "Currency", "the list of currencies")
        self.key("Return")
        self.wait_for_focus("Currency")
        self.tab_to("Hourly rate")
        self.key("Control_L+a")
        self.keyboard.type("120,50")
        self.key("Return")
        self.wait_for_end_of_sheet()
        self.see(self.card("Acme Co", "1 project", "12:30", 1250), self.card("Globex", "0 projects", "0:00", 0, "EUR"))
        wait_until(lambda: self.is_selected("Globex"), "the new one selected")
        globex = self.client("Globex")
        self.assertEqual((globex["hourlyRateCents"], globex["currencyCode"]), (12050, "EUR"))


class Clients(Added):
    # By the keyboard alone

    def to_the_cards(self):
        self.tab_to("Clients", role="list")
        self.key("Right")
        wait_until(lambda: self.is_selected("Acme Co"), "a current card")

    def tab_to(self, name, backwards=False, role=None):
        """As that of the window, for names that more than one control has."""
        if role is None:
            return super().tab_to(name, backwards)
        self.tab_to("Add Client")
        self.key("Tab")
        self.wait_for_focus(name)
        return None

    def test_a_client_is_deleted_with_its_time_and_comes_back(self):
        self.elmworth("start", "Website")
        self.to_the_cards()
        self.key("Delete")
        wait_until(lambda: find("Delete Acme Co?", "dialog"), "the question")
        self.wait_for_focus("Delete Client")
        self.key("Escape")
        self.wait_for_end("Delete Acme Co?", "dialog")
        self.key("Delete")
        self.wait_for_focus("Delete Client")
        self.key("Return")
        wait_until(lambda: find("Add your first client", "heading"), "the empty section")
        self.wait_for_focus("Add your first client")
        self.assertEqual(self.running(), {})
        self.assertEqual(self.entries(), [])
        self.key("Control_L+z")
        # With the time of the timer that was stopped, some seconds.
        wait_until(lambda: [card for card in self.cards() if card.startswith("Acme Co, 1 project, 12:30 unbilled")],
                   "the client again")
        self.assertEqual(self.running(), {})

    def test_the_menu_key_leads_to_all_that_can_be_done(self):
        self.to_the_cards()
        self.key("Shift_L+F10")
        wait_until(lambda: find("Delete…", "menu item"), "the menu")
        items = [node.name for node in walk(find("Delete…", "menu item").parent)
                 if node.getRoleName() == "menu item"]
        self.assertEqual(items, ["Invoice Unbilled Time…", "Edit…", "Delete…"])
        self.key("Down", "Down", "Return")
        self.wait_for_sheet("Edit Client")
        self.key("Escape")
        self.wait_for_end_of_sheet()

    # By the pointer

    def test_the_pointer_does_the_same(self):
        self.pointer.double_click(self.card_of("Acme Co"))
        self.wait_for_sheet("Edit Client")
        self.pointer.click(find("Custom terms for this client"))
        self.pointer.click(wait_until(lambda: find("Tax %", "text"), "the tax"))
        self.key("Control_L+a")
        self.keyboard.type("8,25")
        self.pointer.click(find("Save"))
        self.wait_for_end_of_sheet()
        acme = self.client("Acme Co")
        self.assertEqual((acme["taxBasisPoints"], acme["dueDays"]), (825, 14))
        self.pointer.click(self.card_of("Acme Co"), button=RIGHT)
        self.pointer.click(wait_until(lambda: find("Delete…", "menu item"), "the menu"))
        self.pointer.click(wait_until(lambda: find("Delete Client"), "the question"))
        wait_until(lambda: find("Add your first client", "heading"), "the empty section")
        self.pointer.click(find("Undo"))
        self.see(self.card("Acme Co", "1 project", "12:30", 1250))

    def test_what_changes_elsewhere_is_followed(self):
        self.pointer.double_click(self.card_of("Acme Co"))
        self.wait_for_sheet("Edit Client")
        self.fill_in("Email", "typed@acme.example")
        self.elmworth("client", "set", "Acme Co", "rate", "75")
        wait_until(lambda: self.value("Hourly rate") == "75", "the other rate")
        self.elmworth("client", "delete", "Acme Co")
        wait_until(lambda: find("This client was deleted elsewhere. Save adds it as a new one."), "the sentence")
        self.assertEqual(self.value("Email"), "typed@acme.example")
        press("Save")
        self.wait_for_end_of_sheet()
        self.see(self.card("Acme Co", "0 projects", "0:00", 0))
        self.assertEqual(self.client("Acme Co")["email"], "typed@acme.example")

    def test_everything_on_the_screen_has_a_name(self):
        self.assertEqual(self.nameless(), [])
        press("Add Client")
        self.wait_for_sheet("New Client")
        self.assertEqual(self.nameless(), [])


class InNewYork(Added, TimesheetWindow):
    place = NEW_YORK

    @staticmethod
    def amount(value, currency):
        return {"USD": "$", "EUR": "€"}[currency] + f"{value:,.2f}"


class InBerlin(Clients, TimesheetWindow):
    place = BERLIN

    @staticmethod
    def amount(value, currency):
        return f"{value:,.2f}".translate(str.maketrans(",.", ".,")) + {"USD": " $", "EUR": " €"}[currency]


if __name__ == "__main__":
    unittest.main(verbosity=2)
