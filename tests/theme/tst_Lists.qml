// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Elmworth.Theme

Item {
    id: stage

    width: 900
    height: 400

    Component {
        id: card

        Rectangle {
            required property int index
            required property string text

            width: 200
            height: 86
            Accessible.role: Accessible.ListItem
            Accessible.name: text
        }
    }

    Component {
        id: list

        KeyedList {
            anchors.fill: parent
            label: "Projects"
            selection: sample.selection
            model: sample.rows
            delegate: card
            rowHeight: 86
        }
    }

    Component {
        id: grid

        KeyedGrid {
            anchors.fill: parent
            label: "Clients"
            selection: sample.selection
            model: sample.rows
            delegate: card
            cardHeight: 86
        }
    }

    Component {
        id: spy

        SignalSpy {}
    }

    TestCase {
        name: "Lists"
        when: windowShown

        function shown(component, count) {
            sample.show(count);
            const view = createTemporaryObject(component, stage);
            view.takeKeyboard(Qt.TabFocusReason);
            return view;
        }

        function press(keys) {
            for (const key of keys)
                keyClick(key);
        }

        function current() {
            return sample.selection.currentRow + 1;
        }

        function test_arrows_move_over_the_rows_of_a_list() {
            shown(list, 30);
            press([Qt.Key_Down, Qt.Key_Down]);
            compare(sample.selected(), "2");
            press([Qt.Key_Up, Qt.Key_Up]);
            compare(current(), 1);
            press([Qt.Key_End]);
            compare(current(), 30);
            press([Qt.Key_PageUp]);
            compare(current(), 27);
            press([Qt.Key_Left, Qt.Key_Right]);
            compare(current(), 27);
            press([Qt.Key_Home]);
            compare(current(), 1);
        }

        function test_shift_and_ctrl_select_several_and_escape_none() {
            const view = shown(list, 30);
            press([Qt.Key_Down]);
            keyClick(Qt.Key_Down, Qt.ShiftModifier);
            compare(sample.selected(), "1 2");
            view.click(3, Qt.ControlModifier);
            compare(sample.selected(), "1 2 4");
            keyClick(Qt.Key_A, Qt.ControlModifier);
            compare(sample.selected().split(" ").length, 30);
            press([Qt.Key_Escape]);
            compare(sample.selected(), "");
            compare(current(), 0);
        }

        function test_arrows_move_over_cards_in_two_dimensions() {
            const view = shown(grid, 8);
            compare(view.columns, 3);
            press([Qt.Key_Down]);
            compare(current(), 1);
            press([Qt.Key_Down, Qt.Key_Right]);
            compare(current(), 5);
            press([Qt.Key_Up, Qt.Key_Up]);
            compare(current(), 2);
            press([Qt.Key_Right, Qt.Key_Right]);
            compare(current(), 4);
            press([Qt.Key_Left]);
            compare(current(), 3);
        }

        function test_down_into_a_shorter_last_line_reaches_its_end() {
            shown(grid, 8);
            sample.selection.click(5);
            press([Qt.Key_Down]);
            compare(current(), 8);
            press([Qt.Key_Down]);
            compare(current(), 8);
            press([Qt.Key_PageUp]);
            compare(current(), 2);
        }

        function test_what_a_key_asks_for_data() {
            return [
                { tag: "Return", key: Qt.Key_Return, modifiers: Qt.NoModifier, signalName: "activated" },
                { tag: "Enter", key: Qt.Key_Enter, modifiers: Qt.NoModifier, signalName: "activated" },
                { tag: "Space", key: Qt.Key_Space, modifiers: Qt.NoModifier, signalName: "toggled" },
                { tag: "Delete", key: Qt.Key_Delete, modifiers: Qt.NoModifier, signalName: "deleteRequested" },
                { tag: "Backspace", key: Qt.Key_Backspace, modifiers: Qt.NoModifier, signalName: "deleteRequested" },
                { tag: "Menu", key: Qt.Key_Menu, modifiers: Qt.NoModifier, signalName: "menuRequested" },
                { tag: "Shift+F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier, signalName: "menuRequested" },
            ];
        }
        function test_what_a_key_asks_for(row) {
            for (const component of [list, grid]) {
                const view = shown(component, 8);
                const asked = createTemporaryObject(spy, stage, { target: view, signalName: row.signalName });
                press([Qt.Key_Down]);
                keyClick(row.key, row.modifiers);
                compare(asked.count, 1);
            }
        }

        function test_the_menu_is_that_of_the_current_row_also_when_it_is_scrolled_away() {
            for (const component of [list, grid]) {
                const view = shown(component, 200);
                const asked = createTemporaryObject(spy, stage, { target: view, signalName: "menuRequested" });
                press([Qt.Key_End]);
                view.positionViewAtBeginning();
                press([Qt.Key_Menu]);
                compare(asked.count, 1);
                compare(asked.signalArguments[0][0], 199);
                compare(asked.signalArguments[0][1].text, "200");
            }
        }

        function test_the_current_row_is_the_same_one_wherever_it_moves() {
            shown(list, 30);
            sample.selection.click(4);
            sample.remove(2);
            compare(current(), 4);
            compare(sample.selected(), "5");
            sample.remove(5);
            compare(current(), 0);
            press([Qt.Key_Down]);
            compare(sample.selected(), "6");
        }

        function test_the_list_has_its_name_for_screen_readers_and_a_ring_until_a_row_is_current() {
            const view = shown(list, 3);
            verify(view.hasKeyboard);
            const keys = stage.Window.activeFocusItem;
            compare(keys.Accessible.name, "Projects");
            compare(keys.Accessible.role, Accessible.List);
        }
    }
}
