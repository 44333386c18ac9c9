// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Elmworth.Panel

Item {
    id: stage

    width: 1020
    height: 600

    EntryEditor { id: editor; model: host.model }

    TestCase {
        name: "EntryEditor"
        when: windowShown

        function init() {
            host.addProject("Website", "Acme Co");
            host.addProject("Blog", "");
        }

        function cleanup() {
            host.clear();
            tryVerify(() => !editor.visible);
        }

        /// The visible control of this name anywhere in the window.
        function control(name) {
            return find(stage.Window.window.contentItem, name);
        }

        function find(item, name) {
            if (item.visible && item.Accessible.name === name && !item.Accessible.ignored && item.activeFocusOnTab !== undefined
                    && item.Accessible.role !== Accessible.StaticText)
                return item;
            for (let i = 0; i < item.children.length; ++i) {
                const found = find(item.children[i], name);
                if (found)
                    return found;
            }
            return null;
        }

        function focused() {
            const item = stage.Window.activeFocusItem;
            return item ? item.Accessible.name : "";
        }

        function type(text) {
            for (const letter of text)
                keyClick(letter);
        }

        function opened() {
            tryVerify(() => editor.opened);
            wait(0);
        }

        function test_it_shows_itself_while_its_model_is_open() {
            verify(!editor.visible);
            host.openNew();
            opened();
            host.model.dismiss();
            tryVerify(() => !editor.visible);
        }

        function test_the_start_time_has_the_focus_first_and_typing_replaces_it() {
            host.openNew();
            opened();
            compare(focused(), "Start time");
            type("1030");
            compare(host.model.subtitle, "\u2014");
            keyClick(Qt.Key_Tab);
            compare(control("Start time").text, "10:30\u202fAM");
        }

        function test_what_is_typed_at_once_is_not_lost() {
            host.openNew();
            compare(focused(), "Start time");
            type("830");
            keyClick(Qt.Key_Return);
            tryVerify(() => !editor.visible);
            compare(host.spans(), "08:30:00-10:00:00");
        }

        function test_a_sheet_that_is_open_gives_way_to_the_next() {
            host.openNew();
            opened();
            control("Notes").text = "left behind";
            host.openEntry("Landing page");
            opened();
            compare(control("Notes").text, "Landing page");
            compare(focused(), "Start time");
        }

        function test_without_a_project_it_has_the_focus_first() {
            host.clear();
            host.openNew();
            opened();
            compare(focused(), "Project");
        }

        function test_tab_goes_in_reading_order_and_back() {
            host.openNew();
            opened();
            control("Project").forceActiveFocus();
            const order = ["Project", "Start date", "Start time", "End date", "End time", "6m", "12m", "15m", "30m", "1h",
                           "1h30", "2h", "4h", "Notes", "Cancel", "Save", "Project"];
            for (const name of order) {
                compare(focused(), name);
                keyClick(Qt.Key_Tab);
            }
            for (const name of ["Project", "Save", "Cancel", "Notes", "4h"]) {
                keyClick(Qt.Key_Tab, Qt.ShiftModifier);
                compare(focused(), name);
            }
        }

        function test_return_saves_from_every_field_data() {
            return ["Project", "Start date", "Start time", "End date", "End time", "6m", "1h30", "Cancel", "Save"]
                .map(name => ({ tag: name }));
        }
        function test_return_saves_from_every_field(row) {
            host.openNew();
            opened();
            control(row.tag).forceActiveFocus();
            keyClick(Qt.Key_Return);
            tryVerify(() => !editor.visible);
            compare(host.spans(), "09:00:00-10:00:00");
        }

        function test_return_saves_after_a_click_on_a_duration() {
            host.openNew();
            opened();
            mouseClick(control("30m"));
            keyClick(Qt.Key_Return);
            tryVerify(() => !editor.visible);
            compare(host.spans(), "09:00:00-09:30:00");
        }

        function test_return_on_cancel_leaves_what_cannot_be_saved() {
            host.clear();
            host.openNew();
            opened();
            control("Cancel").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Return);
            verify(host.model.isOpen);
            keyClick(Qt.Key_Space);
            tryVerify(() => !editor.visible);
            compare(host.spans(), "");
        }

        function test_return_takes_up_what_was_typed() {
            host.openNew();
            opened();
            control("End time").forceActiveFocus(Qt.TabFocusReason);
            type("1115");
            keyClick(Qt.Key_Return);
            tryVerify(() => !editor.visible);
            compare(host.spans(), "09:00:00-11:15:00");
        }

        function test_return_on_a_text_that_is_no_time_says_so_and_stays() {
            host.openNew();
            opened();
            control("End time").forceActiveFocus(Qt.TabFocusReason);
            type("99");
            keyClick(Qt.Key_Return);
            verify(editor.visible);
            compare(control("End time").text, "99");
            verify(control("End time").invalid);
            compare(control("End time").Accessible.description, "This is not a time. Type one like 10:00\u202fAM.");
            verify(!control("Save").enabled);
        }

        function test_return_in_the_notes_is_a_line_and_with_ctrl_it_saves() {
            host.openNew();
            opened();
            control("Notes").forceActiveFocus();
            type("a");
            keyClick(Qt.Key_Return);
            type("b");
            compare(control("Notes").text, "a\nb");
            keyClick(Qt.Key_Return, Qt.ControlModifier);
            tryVerify(() => !editor.visible);
            compare(host.savedNotes(), "a\nb");
        }

        function test_escape_cancels_from_every_control_data() {
            return ["Project", "Start date", "End time", "1h30", "Notes", "Save"].map(name => ({ tag: name }));
        }
        function test_escape_cancels_from_every_control(row) {
            host.openNew();
            opened();
            control(row.tag).forceActiveFocus();
            keyClick(Qt.Key_Escape);
            tryVerify(() => !editor.visible);
            verify(!host.model.isOpen);
            compare(host.spans(), "");
        }

        function test_the_next_sheet_shows_nothing_of_the_last() {
            host.openNew();
            opened();
            control("Notes").forceActiveFocus();
            type("left behind");
            control("End time").forceActiveFocus(Qt.TabFocusReason);
            type("nonsense");
            keyClick(Qt.Key_Escape);
            tryVerify(() => !editor.visible);
            host.openNew();
            opened();
            compare(control("Notes").text, "");
            compare(control("End time").text, "10:00\u202fAM");
            verify(!control("End time").invalid);
        }

        function test_chips_set_the_end_by_every_means() {
            host.openNew();
            opened();
            control("6m").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            compare(control("End time").text, "9:06\u202fAM");
            verify(control("6m").checked);
            compare(focused(), "6m");
            control("2h").Accessible.pressAction();
            compare(control("End time").text, "11:00\u202fAM");
            mouseClick(control("30m"));
            compare(control("End time").text, "9:30\u202fAM");
        }

        function test_what_is_chosen_stays_marked_when_it_is_chosen_again() {
            host.openNew();
            opened();
            const chip = control("1h");
            verify(chip.checked);
            mouseClick(chip);
            verify(chip.checked);
            chip.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            verify(chip.checked);
            const chosen = control("Project").choice.title;
            for (let i = 0; i < 2; ++i) {
                control("Project").forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Space);
                tryCompare(this, "focusedName", "Search projects");
                verify(control(chosen).checked);
                mouseClick(control(chosen));
                tryCompare(this, "focusedName", "Project");
            }
            for (let i = 0; i < 2; ++i) {
                control("Start date").forceActiveFocus(Qt.TabFocusReason);
                keyClick(Qt.Key_Down, Qt.AltModifier);
                tryCompare(this, "focusedName", "Monday, March 2, 2026, today");
                verify(control("Monday, March 2, 2026, today").checked);
                mouseClick(control("Monday, March 2, 2026, today"));
                tryCompare(this, "focusedName", "Start date");
            }
        }

        function test_up_and_down_step_the_part_at_the_cursor() {
            host.openNew();
            opened();
            const time = control("Start time");
            time.cursorPosition = 0;
            keyClick(Qt.Key_Up);
            compare(time.text, "10:00\u202fAM");
            compare(time.selectedText, "10");
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Down);
            compare(time.text, "9:59\u202fAM");
            keyClick(Qt.Key_PageDown);
            compare(time.text, "8:59\u202fAM");
        }

        function test_up_and_down_step_the_day_or_the_minute_of_a_field_that_was_just_reached() {
            host.openNew();
            opened();
            keyClick(Qt.Key_Up);
            compare(control("Start time").text, "9:01\u202fAM");
            keyClick(Qt.Key_Up);
            compare(control("Start time").text, "9:02\u202fAM");
            keyClick(Qt.Key_Tab);
            compare(focused(), "End date");
            keyClick(Qt.Key_Down);
            compare(control("End date").text, "3/1/2026");
            compare(control("End date").selectedText, "1");
        }

        function test_a_month_is_picked_from_by_keyboard_and_escape_leaves_the_sheet() {
            host.openNew();
            opened();
            control("Start date").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Down, Qt.AltModifier);
            tryCompare(this, "focusedName", "Monday, March 2, 2026, today");
            keyClick(Qt.Key_PageUp);
            keyClick(Qt.Key_Home);
            keyClick(Qt.Key_Right);
            compare(focused(), "Monday, February 2, 2026");
            keyClick(Qt.Key_Return);
            tryVerify(() => control("Start date").text === "2/2/2026");
            tryCompare(this, "focusedName", "Start date");
            keyClick(Qt.Key_Down, Qt.AltModifier);
            tryCompare(this, "focusedName", "Monday, February 2, 2026");
            keyClick(Qt.Key_Escape);
            tryCompare(this, "focusedName", "Start date");
            verify(editor.visible);
        }
        readonly property string focusedName: focused()

        function test_a_click_outside_the_calendar_closes_it_and_does_nothing_else() {
            host.openNew();
            opened();
            const today = "Monday, March 2, 2026, today";
            mouseClick(control("Start date calendar"));
            tryCompare(this, "focusedName", today);
            mouseClick(control("Cancel"));
            tryVerify(() => control(today) === null);
            verify(host.model.isOpen);
            mouseClick(control("Start date calendar"));
            tryCompare(this, "focusedName", today);
            mouseClick(control("Start date calendar"));
            tryVerify(() => control(today) === null);
            wait(0);
            compare(control(today), null);
            mouseClick(control("Cancel"));
            tryVerify(() => !editor.visible);
        }

        function test_the_calendar_opens_by_press_and_a_day_is_pressed() {
            host.openNew();
            opened();
            control("End date calendar").Accessible.pressAction();
            tryVerify(() => control("Thursday, March 5, 2026") !== null);
            control("Thursday, March 5, 2026").Accessible.pressAction();
            tryVerify(() => control("End date").text === "3/5/2026");
        }

        function test_a_project_is_found_by_typing() {
            host.openNew();
            opened();
            control("Project").forceActiveFocus(Qt.TabFocusReason);
            keyClick("w");
            tryCompare(this, "focusedName", "Search projects");
            type("eb");
            keyClick(Qt.Key_Return);
            tryCompare(this, "focusedName", "Project");
            compare(control("Project").choice.title, "Acme Co \u2014 Website");
            verify(host.model.isOpen);
        }

        function test_a_project_is_chosen_by_arrows_and_escape_leaves_the_sheet() {
            host.openNew();
            opened();
            const before = control("Project").choice.title;
            control("Project").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            tryCompare(this, "focusedName", "Search projects");
            keyClick(Qt.Key_Escape);
            tryCompare(this, "focusedName", "Project");
            compare(control("Project").choice.title, before);
            verify(editor.visible);
            keyClick(Qt.Key_Down);
            tryCompare(this, "focusedName", "Search projects");
            keyClick(Qt.Key_PageUp);
            keyClick(Qt.Key_Return);
            tryVerify(() => control("Project").choice.title === "Choose\u2026");
            verify(!control("Save").enabled);
        }

        function test_a_billed_entry_is_only_read() {
            host.openBilled("Landing page");
            opened();
            compare(focused(), "Close");
            for (const name of ["Project", "Start date", "Start date calendar", "Start time", "End date", "End time", "1h"])
                verify(!control(name).enabled, name);
            compare(control("Start time").selectedText, "");
            verify(control("Notes").readOnly);
            compare(control("Save"), null);
            compare(control("Notes").text, "Landing page");
            keyClick(Qt.Key_Return);
            tryVerify(() => !editor.visible);
        }

        function test_long_notes_of_a_billed_entry_scroll_and_stay() {
            const text = "line\n".repeat(200);
            host.openBilled(text);
            opened();
            const notes = control("Notes");
            const frame = notes.parent.parent;
            verify(frame.contentHeight > 3 * frame.height);
            mouseWheel(frame, 20, 20, 0, -240);
            tryVerify(() => frame.contentY > 0);
            keyClick(Qt.Key_Tab, Qt.ShiftModifier);
            compare(focused(), "Notes");
            keyClick(Qt.Key_Home);
            compare(frame.contentY, 0);
            keyClick(Qt.Key_Down);
            verify(frame.contentY > 0);
            keyClick(Qt.Key_Up);
            compare(frame.contentY, 0);
            keyClick(Qt.Key_PageDown);
            verify(frame.contentY > frame.height / 2 && frame.contentY < frame.height);
            keyClick(Qt.Key_End);
            compare(frame.contentY, frame.contentHeight - frame.height);
            type("abc");
            keyClick(Qt.Key_Backspace);
            compare(notes.text, text);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !editor.visible);
        }

        function test_a_running_entry_has_no_end_to_type() {
            host.openRunning();
            opened();
            compare(control("End date"), null);
            compare(control("6m"), null);
            compare(host.model.subtitle, "Running since 3:00\u202fPM");
        }

        function test_an_entry_deleted_elsewhere_leaves_what_was_typed() {
            host.openEntry("Landing page");
            opened();
            control("Notes").forceActiveFocus();
            keyClick(Qt.Key_End, Qt.ControlModifier);
            type("!");
            host.deleteEntries();
            tryCompare(host.model, "title", "New Entry");
            compare(control("Notes").text, "Landing page!");
            keyClick(Qt.Key_Return, Qt.ControlModifier);
            compare(host.savedNotes(), "Landing page!");
        }

        function test_assistive_technology_types_without_the_focus() {
            host.openNew();
            opened();
            control("Notes").forceActiveFocus();
            control("End time").text = "11:30";
            compare(control("End time").text, "11:30\u202fAM");
            control("End date").text = "someday";
            verify(control("End date").invalid);
            compare(control("End date").text, "someday");
        }

        function test_long_notes_keep_every_letter() {
            host.openEntry("word ".repeat(20000));
            opened();
            control("Notes").forceActiveFocus();
            type("abc");
            compare(host.model.notes.text.length, 100003);
        }
    }
}
