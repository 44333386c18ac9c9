// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtTest
import Elmworth.Theme

Item {
    id: stage

    width: 600
    height: 400

    Component {
        id: area

        RoomyArea {
            property alias all: all
            property alias near: near
            property alias far: far
            property alias wide: wide

            width: 300
            height: 200
            leastWidth: 500
            leastHeight: 400

            Item {
                id: all

                anchors.fill: parent

                GlowButton { id: near; x: 10; y: 10; width: 80; text: "Near" }
                GlowButton { id: wide; x: 100; y: 60; width: 400; text: "Wide" }
                GlowButton { id: far; x: 400; y: 350; width: 80; text: "Far" }
            }
        }
    }

    TestCase {
        name: "RoomyArea"
        when: windowShown

        function test_the_content_has_its_least_room() {
            const shown = createTemporaryObject(area, stage);
            compare(Qt.size(shown.all.width, shown.all.height), Qt.size(500, 400));
        }

        function test_more_room_is_the_contents_and_does_not_scroll() {
            const shown = createTemporaryObject(area, stage, { width: 560, height: 420 });
            compare(Qt.size(shown.all.width, shown.all.height), Qt.size(560, 420));
            mouseWheel(shown, 50, 50, 0, -120);
            compare(shown.contentY, 0);
        }

        function test_the_wheel_scrolls_to_the_end_and_not_beyond() {
            const shown = createTemporaryObject(area, stage);
            for (let turn = 0; turn < 9; ++turn)
                mouseWheel(shown, 150, 100, 0, -120);
            compare(shown.contentY, 200);
            for (let turn = 0; turn < 9; ++turn)
                mouseWheel(shown, 150, 100, -120, 0);
            compare(shown.contentX, 200);
            for (let turn = 0; turn < 9; ++turn)
                mouseWheel(shown, 150, 100, 120, 120);
            compare(Qt.point(shown.contentX, shown.contentY), Qt.point(0, 0));
        }

        function test_what_the_keyboard_reaches_comes_into_view() {
            const shown = createTemporaryObject(area, stage);
            shown.far.forceActiveFocus();
            const far = shown.far.mapToItem(shown, 0, 0);
            verify(far.x >= 0 && far.x + shown.far.width <= shown.width);
            verify(far.y >= 0 && far.y + shown.far.height <= shown.height);
            shown.near.forceActiveFocus();
            compare(Qt.point(shown.contentX, shown.contentY), Qt.point(2, 2));
        }

        function test_a_large_item_that_can_be_seen_stays_where_it_is() {
            const shown = createTemporaryObject(area, stage);
            shown.wide.forceActiveFocus();
            compare(Qt.point(shown.contentX, shown.contentY), Qt.point(0, 0));
        }

        function test_a_place_that_grows_shows_nothing_behind_the_end() {
            const shown = createTemporaryObject(area, stage);
            shown.contentX = 200;
            shown.width = 450;
            compare(shown.contentX, 50);
            shown.width = 560;
            compare(shown.contentX, 0);
        }
    }
}
