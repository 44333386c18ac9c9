// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtTest
import Elmworth.Theme

Item {
    id: stage

    width: 600
    height: 400

    Component { id: menu; PopupMenu { PopupMenuItem { text: "Stop"; enabled: false } PopupMenuItem { text: "Resume" } } }
    Component { id: tile; InitialTile { text: "Acme Co"; colors: Theme.tileGradient("Acme Co") } }
    Component { id: chip; Chip { text: "Live"; icon: "record" } }
    Component { id: stat; StatCard { title: "Tracked"; value: "1:00"; detail: "9 entries" } }
    Component { id: plain; PlainText { text: "<b>Brand</b> & Style" } }
    Component { id: track; ProgressTrack { width: 100; label: "Budget" } }
    Component { id: dot; PulsingDot {} }
    Component { id: mark; AppMark { size: 24 } }
    Component { id: card; HoverCard { width: 100; height: 100 } }
    Component {
        id: menuOverCover

        Rectangle {
            id: cover

            readonly property alias menu: coverMenu

            signal tapped()

            anchors.fill: parent
            TapHandler { onTapped: cover.tapped() }
            Shortcut { sequence: "Ctrl+W"; onActivated: cover.tapped() }

            PopupMenu {
                id: coverMenu

                PopupMenu {
                    title: "Go"

                    PopupMenuItem { text: "Clients" }
                }
                PopupMenuItem { text: "Resume" }
            }
        }
    }
    Component { id: notice; Notice {} }
    Component { id: spy; SignalSpy {} }
    Component {
        id: page

        ScrollPage {
            property alias last: last

            width: 300
            height: 200

            Item { implicitHeight: 900 }
            GlowButton { id: last; text: "Last" }
        }
    }
    Component {
        id: sheet

        SheetPopup {
            SheetScaffold { title: "New Client"; icon: "person"; sheetWidth: 300 }
        }
    }

    Component {
        id: alert

        SheetScaffold {
            property alias message: message

            title: "Looking for updates…"

            PlainText {
                id: message

                visible: text.length > 0
            }
        }
    }

    TestCase {
        name: "Surfaces"
        when: windowShown

        function test_a_name_has_its_colours_in_every_run() {
            compare(Theme.tileGradient("Acme Co"), Theme.tilePalette[15634 % 6]);
        }

        function test_markup_is_text() {
            const text = createTemporaryObject(plain, stage);
            compare(text.textFormat, Text.PlainText);
            compare(text.Accessible.name, "<b>Brand</b> & Style");
        }

        function test_measures_of_a_chip() {
            const item = createTemporaryObject(chip, stage);
            compare(item.color.a.toFixed(2), "0.13");
            compare(item.radius, item.height / 2);
            compare(item.Accessible.name, "Live");
        }

        function test_a_track_is_never_longer_than_full_nor_shorter_than_its_least_data() {
            return [
                { tag: "none", fraction: 0, smallest: 0, expected: 0 },
                { tag: "least", fraction: 0, smallest: 6, expected: 6 },
                { tag: "negative", fraction: -1, smallest: 6, expected: 6 },
                { tag: "half", fraction: 0.5, smallest: 6, expected: 50 },
                { tag: "over", fraction: 1.25, smallest: 6, expected: 100 },
                { tag: "far over", fraction: 1e9, smallest: 6, expected: 100 },
            ];
        }
        function test_a_track_is_never_longer_than_full_nor_shorter_than_its_least(row) {
            const item = createTemporaryObject(track, stage, { fraction: row.fraction, smallest: row.smallest });
            compare(item.children[0].width, row.expected);
        }

        function test_a_dot_stands_still_where_motion_is_reduced() {
            const item = createTemporaryObject(dot, stage);
            verify(AppAppearance.reducedMotion);
            item.beat = "0:01";
            verify(!item.dimmed);
        }

        function test_a_dot_beats_without_a_fade() {
            const item = createTemporaryObject(dot, stage, { dimmed: true });
            compare(item.opacity, 0.45);
            item.dimmed = false;
            compare(item.opacity, 1);
        }

        function test_the_mark_has_its_size_on_every_screen() {
            const item = createTemporaryObject(mark, stage);
            compare([item.implicitWidth, item.implicitHeight], [24, 24]);
            compare(item.children[0].status, Image.Ready);
        }

        function test_a_selected_card_looks_as_a_hovered_one() {
            const item = createTemporaryObject(card, stage);
            verify(!item.raised);
            item.selected = true;
            verify(item.raised);
            item.selected = false;
            item.hovering = true;
            verify(item.raised);
        }

        function test_what_the_keyboard_reaches_is_brought_into_view() {
            const item = createTemporaryObject(page, stage);
            verify(waitForRendering(item));
            compare(item.view.contentY, 0);
            item.last.forceActiveFocus(Qt.TabFocusReason);
            const bottom = item.last.mapToItem(item, 0, item.last.height).y;
            verify(bottom <= item.height, `the button ends at ${bottom}`);
        }

        function test_a_menu_begins_with_what_can_be_chosen() {
            const first = createTemporaryObject(menu, stage);
            compare(first.firstEnabled(), 1);
            first.itemAt(1).enabled = false;
            compare(first.firstEnabled(), 0);
        }

        function test_a_click_outside_a_menu_closes_it_and_does_nothing_else() {
            const cover = createTemporaryObject(menuOverCover, stage);
            const taps = createTemporaryObject(spy, stage, { target: cover, signalName: "tapped" });
            for (const opensSubmenu of [false, true]) {
                cover.menu.popup(cover, 10, 10);
                tryVerify(() => cover.menu.opened);
                if (opensSubmenu) {
                    cover.menu.itemAt(0).press();
                    tryVerify(() => cover.menu.itemAt(0).subMenu.opened);
                }
                mouseClick(cover, 500, 350);
                tryVerify(() => !cover.menu.visible && !cover.menu.itemAt(0).subMenu.visible);
                compare(taps.count, 0);
            }
            mouseClick(cover, 500, 350);
            compare(taps.count, 1);
        }

        function test_the_arrows_walk_a_menu_from_either_end() {
            const cover = createTemporaryObject(menuOverCover, stage);
            for (const row of [{ key: Qt.Key_Up, line: 1 }, { key: Qt.Key_Down, line: 0 }]) {
                cover.menu.popup(cover, 10, 10);
                tryVerify(() => cover.menu.opened);
                keyClick(row.key);
                compare(cover.menu.currentIndex, row.line);
                cover.menu.close();
                tryVerify(() => !cover.menu.visible);
            }
        }

        function test_the_key_after_a_line_of_a_menu_is_for_the_window() {
            const cover = createTemporaryObject(menuOverCover, stage);
            const taps = createTemporaryObject(spy, stage, { target: cover, signalName: "tapped" });
            cover.menu.popup(cover, 10, 10);
            tryVerify(() => cover.menu.opened);
            keyClick(Qt.Key_Up);
            keyClick(Qt.Key_Return);
            keyClick(Qt.Key_W, Qt.ControlModifier);
            compare(taps.count, 1);
            compare(cover.menu.exit, null, "and here, where motion is reduced, a fade would take no time");
        }

        function test_an_open_submenu_leaves_the_menu_and_its_own_lines_to_be_clicked() {
            const cover = createTemporaryObject(menuOverCover, stage);
            for (const line of [() => cover.menu.itemAt(1), () => cover.menu.itemAt(0).subMenu.itemAt(0)]) {
                const triggers = createTemporaryObject(spy, stage, { target: line(), signalName: "triggered" });
                cover.menu.popup(cover, 10, 10);
                tryVerify(() => cover.menu.opened);
                cover.menu.itemAt(0).press();
                tryVerify(() => cover.menu.itemAt(0).subMenu.opened);
                mouseClick(line());
                compare(triggers.count, 1);
                tryVerify(() => !cover.menu.visible);
            }
        }

        readonly property string sentences: "2 entries are on an invoice and stay as they are. 3 entries were changed since and stay as they are. The timer was not started again, because time was tracked since."

        function child(item, name) {
            for (const part of Array.from(item.children)) {
                const found = part.Accessible.name === name ? part : child(part, name);
                if (found)
                    return found;
            }
            return null;
        }

        function test_a_notice_of_several_sentences_wraps_and_is_not_cut() {
            const item = createTemporaryObject(notice, stage, { text: "Deleted 1 entry.", actionText: "Undo" });
            compare(item.height, 44);
            item.text = sentences;
            item.width = Math.min(item.implicitWidth, 400);
            const text = child(item, sentences);
            tryVerify(() => text.lineCount > 1);
            verify(!text.truncated);
            tryVerify(() => item.implicitHeight >= text.contentHeight + 20);
            compare(item.Accessible.name, sentences);
        }

        function test_a_notice_shows_its_text_and_keeps_it_while_it_fades() {
            const item = createTemporaryObject(notice, stage);
            verify(!item.visible);
            item.text = "Deleted 1 entry.";
            verify(item.visible);
            verify(child(item, "Deleted 1 entry.") !== null);
            item.text = "";
            verify(child(item, "Deleted 1 entry.") !== null);
            item.text = "Deleted 2 entries.";
            verify(child(item, "Deleted 2 entries.") !== null);
        }

        function test_a_notice_stands_as_long_as_it_takes_to_read() {
            const item = createTemporaryObject(notice, stage, { text: "Deleted 1 entry." });
            compare([item.readingTime, item.timer.interval], [8000, 8000]);
            verify(item.timer.running);
            item.text = sentences;
            verify(item.timer.interval > 16000, `${item.timer.interval} ms`);
            item.text = "";
            verify(!item.timer.running);
        }

        function test_a_notice_stays_while_the_pointer_or_the_focus_is_on_it() {
            const item = createTemporaryObject(notice, stage, { text: "Deleted 1 entry.", actionText: "Undo" });
            mouseMove(item, item.width / 2, item.height / 2);
            tryVerify(() => !item.timer.running);
            mouseMove(stage, 500, 390);
            tryVerify(() => item.timer.running);
            for (const name of ["Undo", "Dismiss"]) {
                child(item, name).forceActiveFocus(Qt.TabFocusReason);
                verify(!item.timer.running, name);
                stage.forceActiveFocus();
                verify(item.timer.running);
            }
        }

        function test_escape_dismisses_a_notice_that_has_the_focus() {
            const item = createTemporaryObject(notice, stage, { text: "Deleted 1 entry.", actionText: "Undo" });
            const dismissed = createTemporaryObject(spy, stage, { target: item, signalName: "dismissed" });
            child(item, "Undo").forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Escape);
            compare(dismissed.count, 1);
        }

        function test_another_text_of_a_notice_stands_its_own_time() {
            const item = createTemporaryObject(notice, stage, { text: "Deleted 1 entry." });
            const starts = createTemporaryObject(spy, stage, { target: item.timer, signalName: "runningChanged" });
            item.text = "Deleted 2 entries.";
            compare(starts.count, 2, "stopped, and started anew");
            verify(item.timer.running);
            child(item, "Dismiss").forceActiveFocus(Qt.TabFocusReason);
            item.text = "Deleted 3 entries.";
            verify(!item.timer.running, "held");
        }

        function test_a_notice_asks_to_be_dismissed_and_offers_what_can_be_done() {
            const item = createTemporaryObject(notice, stage, { text: "Deleted 1 entry.", actionText: "Undo" });
            const acted = createTemporaryObject(spy, stage, { target: item, signalName: "acted" });
            const dismissed = createTemporaryObject(spy, stage, { target: item, signalName: "dismissed" });
            mouseClick(child(item, "Undo"));
            compare([acted.count, dismissed.count], [1, 0]);
            item.actionText = "";
            verify(!child(item, "Dismiss").parent.children[1].visible);
            mouseClick(child(item, "Dismiss"));
            item.timer.triggered();
            compare(dismissed.count, 2);
            item.text = "";
            tryVerify(() => !item.visible);
        }

        function test_escape_closes_a_sheet_at_once() {
            const item = createTemporaryObject(sheet, stage);
            item.open();
            tryVerify(() => item.opened);
            compare(item.width, 300);
            keyClick(Qt.Key_Escape);
            verify(!item.visible);
            compare(item.exit, null, "so that the next key is for the window, where motion is not reduced too");
        }

        function test_a_sheet_shows_what_it_has_to_say_only_later() {
            const item = createTemporaryObject(alert, stage);
            const low = item.implicitHeight;
            item.message.text = "The update server takes too long.";
            tryVerify(() => item.implicitHeight >= low + item.message.height + 40);
            verify(item.message.visible);
            item.message.text = "";
            tryCompare(item, "implicitHeight", low);
        }

        function test_a_long_title_of_a_sheet_is_not_cut() {
            const item = createTemporaryObject(alert, stage, { sheetWidth: 300 });
            const low = item.implicitHeight;
            item.title = "Delete Relaunch of the customer portal, phase 2?";
            tryVerify(() => item.implicitHeight >= low + 19);
        }
    }
}
