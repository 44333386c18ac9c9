// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Elmworth.Theme

Item {
    id: stage

    width: 600
    height: 400

    Component { id: search; SearchPill { prompt: "Search clients" } }
    Component { id: boundSearch; SearchPill { property string query: "now"; text: query } }
    Component { id: input; InputField { placeholderText: "Name" } }
    Component { id: area; InputArea { label: "Address" } }
    Component { id: toggle; ToggleSwitch { text: "Show Archived" } }
    Component { id: picker; SegmentedPicker { label: "Appearance"; options: ["System", "Dark", "Light"] } }
    Component { id: popup; PopupPicker { label: "Client"; model: ["Acme Co", "Globex"]; currentIndex: -1; placeholder: "Choose…" } }
    Component { id: anySpy; SignalSpy {} }
    Component {
        id: listPicker

        SearchPicker {
            label: "Project"
            prompt: "Search projects"
            choice: choices
        }
    }
    Component {
        id: cover

        Rectangle {
            signal tapped()

            anchors.fill: parent
            TapHandler { onTapped: parent.tapped() }
        }
    }
    Component {
        id: twoFields

        Column {
            property alias first: first
            property alias second: second

            InputArea { id: first; label: "First" }
            InputField { id: second; label: "Second" }
        }
    }

    TestCase {
        name: "Fields"
        when: windowShown

        function child(item, name) {
            for (let i = 0; i < item.children.length; ++i)
                if (item.children[i].Accessible.name === name)
                    return item.children[i];
            return null;
        }

        function test_search_is_emptied_by_its_button() {
            const pill = createTemporaryObject(search, stage, { text: "Acme" });
            const clear = child(pill, "Clear search");
            verify(clear.visible);
            mouseClick(clear);
            compare(pill.text, "");
            verify(!clear.visible);
            verify(pill.looksFocused);
        }

        function test_an_emptied_search_still_follows_what_it_is_bound_to() {
            const field = createTemporaryObject(boundSearch, stage);
            field.takeFocus();
            keyClick("a");
            compare(field.text, "nowa");
            field.clear();
            compare(field.text, "");
            field.query = "later";
            compare(field.text, "later");
        }

        function test_search_is_emptied_and_left_by_escape() {
            const pill = createTemporaryObject(search, stage);
            const left = createTemporaryObject(anySpy, stage, { target: pill, signalName: "escaped" });
            pill.forceActiveFocus();
            keyClick("a");
            compare(pill.text, "a");
            keyClick(Qt.Key_Escape);
            compare(pill.text, "");
            compare(left.count, 1);
        }

        function test_fields_have_names() {
            compare(child(createTemporaryObject(search, stage), "Search clients").Accessible.role, Accessible.EditableText);
            compare(createTemporaryObject(input, stage).Accessible.name, "Name");
            compare(createTemporaryObject(input, stage, { label: "Client name" }).Accessible.name, "Client name");
            compare(createTemporaryObject(area, stage).Accessible.name, "Address");
            compare(createTemporaryObject(popup, stage).Accessible.name, "Client");
        }

        function test_a_field_says_that_it_holds_more_while_nobody_types() {
            const field = createTemporaryObject(input, stage, { width: 120, text: "Acme" });
            verify(!field.isCut);
            field.text = "Much more than a hundred pixels have room for";
            verify(field.isCut);
            const shown = Array.from(field.children).map(part => part.item).find(item => item instanceof PlainText);
            verify(shown.visible && shown.truncated);
            compare(shown.text, field.text);
            verify(Qt.colorEqual(field.color, "transparent"));
            field.forceActiveFocus();
            verify(!field.isCut && !shown.visible);
            verify(Qt.colorEqual(field.color, Theme.primaryText));
        }

        function test_tab_leaves_an_area_in_both_directions() {
            const column = createTemporaryObject(twoFields, stage);
            column.first.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Tab);
            verify(column.second.activeFocus);
            keyClick(Qt.Key_Tab, Qt.ShiftModifier);
            verify(column.first.activeFocus);
            compare(column.first.text, "");
        }

        function test_a_switch_is_turned_by_every_means() {
            const choice = createTemporaryObject(toggle, stage);
            const spy = createTemporaryObject(anySpy, stage, { target: choice, signalName: "toggled" });
            mouseClick(choice);
            verify(choice.checked);
            choice.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            verify(!choice.checked);
            choice.Accessible.pressAction();
            verify(choice.checked);
            compare(spy.count, 3);
            choice.enabled = false;
            choice.Accessible.pressAction();
            verify(choice.checked);
        }

        function test_arrows_choose_a_segment_and_keep_the_focus() {
            const segments = createTemporaryObject(picker, stage);
            const spy = createTemporaryObject(anySpy, stage, { target: segments, signalName: "chosen" });
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Right);
            compare(segments.currentIndex, 1);
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Right);
            compare(segments.currentIndex, 2);
            keyClick(Qt.Key_Left);
            compare(segments.currentIndex, 1);
            compare(spy.count, 3);
            verify(segments.activeFocusWithin);
        }

        /// The line of a list with this text, where the list shows.
        function shown(name, item) {
            for (const child of Array.from((item ?? stage.Window.window.contentItem).children)) {
                if (!child.visible)
                    continue;
                const found = child instanceof PopupMenuItem && child.text === name ? child : shown(name, child);
                if (found)
                    return found;
            }
            return null;
        }

        function test_what_is_chosen_again_keeps_its_check_mark_data() {
            return [
                { tag: "PopupPicker", component: popup, properties: { currentIndex: 0 }, name: "Acme Co" },
                { tag: "SearchPicker", component: listPicker, properties: {}, name: "Website" },
            ];
        }
        function test_what_is_chosen_again_keeps_its_check_mark(row) {
            const choice = createTemporaryObject(row.component, stage, row.properties);
            for (let i = 0; i < 3; ++i) {
                choice.forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Space);
                tryVerify(() => shown(row.name) !== null);
                compare(shown(row.name).checked, true);
                mouseClick(shown(row.name));
                tryVerify(() => shown(row.name) === null);
            }
        }

        function test_the_search_of_a_list_tells_the_line_that_return_chooses() {
            const choice = createTemporaryObject(listPicker, stage);
            choice.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            tryVerify(() => shown("Website") !== null);
            const told = () => stage.Window.activeFocusItem.Accessible.description;
            compare(told(), "Website");
            keyClick(Qt.Key_Up);
            compare(told(), "App");
            keyClick(Qt.Key_Down);
            compare(told(), "Website");
            choices.search = "nothing like it";
            tryVerify(() => told() === "No matches");
            keyClick(Qt.Key_Escape);
            tryVerify(() => !choices.search.length);
        }

        function test_a_segment_chosen_again_stays_chosen() {
            const segments = createTemporaryObject(picker, stage);
            keyClick(Qt.Key_Tab);
            const segment = stage.Window.activeFocusItem;
            verify(segment.checked && segment.Accessible.checked);
            keyClick(Qt.Key_Space);
            verify(segment.checked && segment.Accessible.checked);
            mouseClick(segment);
            verify(segment.checked && segment.Accessible.checked);
        }

        function test_a_click_outside_a_list_closes_it_and_does_nothing_else() {
            const below = createTemporaryObject(cover, stage);
            const choice = createTemporaryObject(listPicker, below);
            const taps = createTemporaryObject(anySpy, stage, { target: below, signalName: "tapped" });
            const picks = createTemporaryObject(anySpy, stage, { target: choices, signalName: "picked" });
            mouseClick(choice);
            tryVerify(() => shown("Website") !== null);
            mouseClick(below, 500, 350);
            tryVerify(() => shown("Website") === null);
            compare([taps.count, picks.count], [0, 0]);
            mouseClick(choice);
            tryVerify(() => shown("Website") !== null);
            mouseClick(choice);
            tryVerify(() => shown("Website") === null);
            wait(0);
            compare(shown("Website"), null);
            mouseClick(below, 500, 350);
            compare(taps.count, 1);
        }

        function test_an_unset_picker_shows_its_placeholder() {
            const choice = createTemporaryObject(popup, stage);
            compare(choice.contentItem.text, "Choose…");
            choice.currentIndex = 1;
            compare(choice.contentItem.text, "Globex");
        }

        function test_arrows_choose_from_a_popup_picker() {
            const choice = createTemporaryObject(popup, stage);
            choice.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            verify(choice.popup.visible);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            compare(choice.currentText, "Acme Co");
            tryVerify(() => !choice.popup.visible);
        }
    }
}
