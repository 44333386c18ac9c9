// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// What the timesheet shows: a period, a client, a project, what is unbilled, and what is searched for.
Flow {
    id: bar

    required property TimesheetFilterModel model

    /// The search field was left by Escape.
    signal searchLeft()

    function find(): void {
        search.forceActiveFocus(Qt.ShortcutFocusReason);
    }

    spacing: 8

    FilterButton {
        id: range

        iconName: "calendar"
        text: bar.model.presetTitle
        label: "Range: " + bar.model.presetTitle
        onClicked: {
            const menu = presets.make() as PopupMenu;
            menu.popup(range, 0, range.height + 4);
            menu.currentIndex = bar.model.preset;
        }

        OnDemand {
            id: presets

            // The menu doesn't outlive its bar.
            // qmllint disable unqualified
            sourceComponent: PopupMenu {
                Repeater {
                    model: bar.model.presets

                    PopupMenuItem {
                        required property int index
                        required property string modelData

                        text: modelData
                        checkable: true
                        chosen: bar.model.preset === index
                        onTriggered: bar.model.choosePreset(index)
                    }
                }
            }
            // qmllint enable unqualified
        }
    }

    OnDemand {
        wanted: bar.model.isCustom
        visible: wanted
        Component.onCompleted: setSource("CustomRange.qml", { model: bar.model })
    }

    ChoiceFilter {
        iconName: "people"
        name: "Client"
        prompt: "Search clients"
        choice: bar.model.client
    }

    ChoiceFilter {
        iconName: "folder"
        name: "Project"
        prompt: "Search projects"
        choice: bar.model.project
    }

    FilterButton {
        iconName: "tray-full"
        opensList: false
        text: "Unbilled"
        help: "Show only time that isn't on an invoice yet"
        checkable: true
        checked: bar.model.unbilledOnly
        active: checked
        Accessible.role: Accessible.CheckBox
        Accessible.checkable: true
        Accessible.checked: checked
        onClicked: {
            bar.model.unbilledOnly = !bar.model.unbilledOnly;
            checked = Qt.binding(() => bar.model.unbilledOnly);
        }
    }

    SearchPill {
        id: search

        height: 32
        prompt: "Search notes"
        text: bar.model.search
        onTextChanged: bar.model.search = text
        onEscaped: bar.searchLeft()
    }

    GlowButton {
        visible: bar.model.canClear
        text: "Clear"
        onClicked: { bar.model.clear(); search.text = Qt.binding(() => bar.model.search); }
    }
}
