// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Settings

/// The program itself, and all that it holds.
ScrollPage {
    id: page

    required property GeneralSettings model

    signal importRequested()
    signal exportRequested()
    signal restoreRequested()

    margin: 20

    SettingsGroup {
        title: "App"

        SettingsRow {
            label: "Appearance"

            Item { Layout.fillWidth: true }

            SegmentedPicker {
                label: "Appearance"
                options: ["System", "Dark", "Light"]
                currentIndex: page.model.appearance
                onChosen: index => {
                    page.model.appearance = index;
                    currentIndex = Qt.binding(() => page.model.appearance);
                }
            }
        }

        SettingsRow {
            label: "Tray while tracking"

            Item { Layout.fillWidth: true }

            PopupPicker {
                label: "Tray while tracking"
                model: ["Elapsed time", "Time and project", "Icon only"]
                currentIndex: page.model.trayStyle
                onActivated: index => {
                    page.model.trayStyle = index;
                    currentIndex = Qt.binding(() => page.model.trayStyle);
                }
            }
        }

        SettingsRow {
            label: page.model.goalText
            labelWidth: 240

            Item { Layout.fillWidth: true }

            ValueStepper {
                label: page.model.goalText
                from: 0
                to: page.model.mostGoalHours
                stepSize: 5
                value: page.model.goalHours
                onValueModified: {
                    page.model.goalHours = value;
                    value = Qt.binding(() => page.model.goalHours);
                }
            }
        }

        SettingsRow {
            problem: page.model.loginError

            ToggleSwitch {
                Layout.fillWidth: true
                text: "Launch Elmworth at login"
                checked: page.model.launchesAtLogin
                onToggled: {
                    page.model.launchesAtLogin = checked;
                    checked = Qt.binding(() => page.model.launchesAtLogin);
                }
            }
        }
    }

    SettingsGroup {
        SettingsRow {
            label: "Version"

            PlainText {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignRight
                text: page.model.version
                color: Theme.secondaryText
                Accessible.name: "Version " + text
            }
        }

        SettingsRow {
            visible: page.model.hasUpdates

            ToggleSwitch {
                Layout.fillWidth: true
                text: "Install updates automatically"
                checked: page.model.installsUpdates
                onToggled: {
                    page.model.installsUpdates = checked;
                    checked = Qt.binding(() => page.model.installsUpdates);
                }
            }
        }

        SettingsRow {
            visible: page.model.hasUpdates

            PlainText {
                Layout.fillWidth: true
                text: page.model.updateText
                color: Theme.secondaryText
            }

            GlowButton {
                text: "Check for Updates…"
                onClicked: page.model.lookForUpdates()
            }
        }
    }

    SettingsGroup {
        title: "Import"

        DataRow {
            title: "Bring your history"
            subtitle: "Elmworth CSV exports or Toggl Track detailed reports. Missing clients and projects are created."
            button: "Import CSV…"
            onClicked: page.importRequested()
        }
    }

    SettingsGroup {
        title: "Data"

        DataRow {
            title: "Everything stays on this computer."
            subtitle: "Export a JSON copy of clients, projects, time and invoices."
            button: "Export Backup…"
            onClicked: page.exportRequested()
        }

        DataRow {
            title: "Automatic backups"
            subtitle: page.model.snapshotPolicy
            status: page.model.snapshotText
            isWarning: page.model.isSnapshotWorrying
            button: "Show in Files"
            onClicked: page.model.showSnapshots()
        }

        DataRow {
            title: "Restore"
            subtitle: "Load a JSON backup into an empty library, e.g. on a new computer."
            button: "Restore Backup…"
            onClicked: page.restoreRequested()
        }
    }
}
