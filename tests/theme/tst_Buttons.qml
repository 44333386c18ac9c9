// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Elmworth.Theme

Item {
    id: stage

    width: 600
    height: 400

    Component { id: glow; GlowButton { text: "Save"; help: "Saves it" } }
    Component { id: glowColored; GlowButton { text: "Delete"; prominent: true; colors: Theme.amberGradient } }
    Component { id: circle; CircleIconButton { iconName: "play"; label: "Start" } }
    Component { id: icon; IconButton { iconName: "plus"; label: "Add" } }
    Component { id: link; LinkButton { text: "Open Settings" } }
    Component { id: listRow; ListRow { title: "Website" } }
    Component { id: clicks; SignalSpy { signalName: "clicked" } }

    TestCase {
        name: "Buttons"
        when: windowShown

        function buttons() {
            return [
                { tag: "GlowButton", component: glow, name: "Save" },
                { tag: "GlowButton with colours", component: glowColored, name: "Delete" },
                { tag: "CircleIconButton", component: circle, name: "Start" },
                { tag: "IconButton", component: icon, name: "Add" },
                { tag: "LinkButton", component: link, name: "Open Settings" },
                { tag: "ListRow", component: listRow, name: "Website" },
            ];
        }

        function spied(button) {
            return createTemporaryObject(clicks, stage, { target: button });
        }

        function test_a_tip_shows_until_the_button_is_used() {
            const button = createTemporaryObject(glow, stage);
            const shows = () => Array.from(button.data).some(part => part.item?.text === "Saves it");
            button.forceActiveFocus(Qt.TabFocusReason);
            verify(shows());
            keyClick(Qt.Key_Space);
            verify(!shows());
            stage.forceActiveFocus();
            button.forceActiveFocus(Qt.TabFocusReason);
            verify(shows());
        }

        function test_a_row_has_two_lines_however_many_its_texts_have() {
            const row = createTemporaryObject(listRow, stage, { width: 200, title: "One\nTwo", subtitle: "1\n2\n3\n4" });
            verify(row.contentItem.implicitHeight <= row.height);
        }

        function test_has_a_role_and_a_name_data() { return buttons(); }
        function test_has_a_role_and_a_name(row) {
            const button = createTemporaryObject(row.component, stage);
            compare(button.Accessible.role, Accessible.Button);
            compare(button.Accessible.name, row.name);
        }

        function test_is_pressed_by_pointer_keyboard_and_assistive_technology_data() { return buttons(); }
        function test_is_pressed_by_pointer_keyboard_and_assistive_technology(row) {
            const button = createTemporaryObject(row.component, stage);
            const spy = spied(button);
            mouseClick(button);
            compare(spy.count, 1);
            button.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            compare(spy.count, 2);
            keyClick(Qt.Key_Return);
            compare(spy.count, 3);
            keyClick(Qt.Key_Enter);
            compare(spy.count, 4);
            button.Accessible.pressAction();
            compare(spy.count, 5);
        }

        function test_does_nothing_while_disabled_and_says_so_data() { return buttons(); }
        function test_does_nothing_while_disabled_and_says_so(row) {
            const button = createTemporaryObject(row.component, stage, { enabled: false });
            const spy = spied(button);
            mouseClick(button);
            button.Accessible.pressAction();
            compare(spy.count, 0);
            compare(button.Accessible.description, "Unavailable");
            verify(button.opacity < 0.5);
        }

        function test_shows_the_keyboards_focus_and_not_the_pointers_data() { return buttons(); }
        function test_shows_the_keyboards_focus_and_not_the_pointers(row) {
            const button = createTemporaryObject(row.component, stage);
            button.forceActiveFocus(Qt.MouseFocusReason);
            verify(!button.looksFocused);
            stage.forceActiveFocus();
            button.forceActiveFocus(Qt.TabFocusReason);
            verify(button.looksFocused);
        }

        function test_a_pressed_glow_button_gives_way() {
            const button = createTemporaryObject(glow, stage);
            mousePress(button);
            compare(button.opacity, 0.8);
            compare(button.scale, 0.98);
            mouseRelease(button);
            compare(button.scale, 1);
        }

        function test_measures_of_the_glow_button() {
            const plain = createTemporaryObject(glow, stage);
            compare([plain.leftPadding, plain.topPadding], [13, 7]);
            const prominent = createTemporaryObject(glowColored, stage);
            compare([prominent.leftPadding, prominent.topPadding], [16, 8]);
        }

        function test_a_long_text_is_cut_inside_its_button() {
            const button = createTemporaryObject(glow, stage, { text: "A long text ".repeat(50), width: 120 });
            verify(button.contentItem.width <= 120 - 26);
        }

        function test_the_help_is_told() {
            compare(createTemporaryObject(glow, stage).Accessible.description, "Saves it");
        }
    }
}
