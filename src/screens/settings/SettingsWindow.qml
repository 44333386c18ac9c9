// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Settings

/// The settings. What is changed here is kept at once.
Basic.ApplicationWindow {
    id: window

    required property SettingsModel model

    readonly property DataExchange exchange: model.exchange

    function ask(): ExchangeDialog {
        return dialog.make() as ExchangeDialog;
    }

    function chooseLogo(): void {
        ask().openFor({
            title: "Choose a logo for your invoices",
            filters: ["Pictures (*.png *.jpg *.jpeg *.heic *.heif *.tif *.tiff)"],
            label: "Choose",
            take: file => model.business.chooseLogo(file),
        });
    }

    function importCSV(): void {
        ask().openFor({
            title: "Import CSV",
            filters: ["CSV and text (*.csv *.txt)", "All files (*)"],
            label: "Import",
            take: file => exchange.importCSV(file),
        });
    }

    function restoreBackup(): void {
        ask().openFor({
            title: "Restore Backup",
            filters: ["Backups (*.json)", "All files (*)"],
            label: "Restore",
            take: file => exchange.restoreBackup(file),
        });
    }

    function exportBackup(): void {
        ask().saveAs({
            title: "Export Backup",
            filters: ["Backups (*.json)"],
            suffix: "json",
            label: "Save",
            file: exchange.backupFile(),
            take: file => exchange.exportBackup(file),
        });
    }

    /// Of a low or much enlarged screen the window leaves room for a title bar; what doesn't fit scrolls.
    readonly property int fittingHeight: Math.max(320, Math.min(620, Screen.desktopAvailableHeight - 40))

    title: "Settings"
    width: 520
    height: fittingHeight
    minimumWidth: 520
    maximumWidth: 520
    minimumHeight: fittingHeight
    maximumHeight: fittingHeight
    color: Theme.backgroundTop
    background: AppBackground {}
    onVisibleChanged: {
        if (!visible)
            return;
        model.reload();
        tabs.takeKeyboard();
    }
    onActiveChanged: if (active) model.general.refresh()
    onClosing: close => { close.accepted = !exchange.isWorking; }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }

    Shortcut {
        enabled: !window.exchange.isWorking
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }

    OnDemand {
        id: dialog

        sourceComponent: ExchangeDialog {}
    }

    OnDemand {
        wanted: window.model.confirmation.isOpen

        // What is made on demand doesn't outlive its window.
        // qmllint disable unqualified
        sourceComponent: ConfirmSheet { question: window.model.confirmation }
        // qmllint enable unqualified
    }

    OnDemand {
        wanted: window.exchange.isWorking && window.exchange.step.length > 0

        // What is made on demand doesn't outlive its window.
        // qmllint disable unqualified
        sourceComponent: WorkSheet { exchange: window.exchange }
        // qmllint enable unqualified
    }

    FocusScope {
        anchors.fill: parent
        focus: true

        Keys.onEscapePressed: window.close()

        ColumnLayout {
            anchors.fill: parent
            spacing: 0

            SettingsTabs {
                id: tabs

                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: 10
                Layout.bottomMargin: 10
            }

            Hairline { Layout.fillWidth: true }

            StackLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                currentIndex: tabs.currentIndex

                BusinessTab {
                    // What doesn't show would keep the keyboard.
                    enabled: visible
                    model: window.model.business
                    onLogoRequested: window.chooseLogo()
                }

                OnDemand {
                    wanted: tabs.currentIndex === 1

                    // What is made on demand doesn't outlive its window.
                    // qmllint disable unqualified
                    sourceComponent: InvoicesTab {
                        enabled: visible
                        model: window.model.invoices
                    }
                    // qmllint enable unqualified
                }

                OnDemand {
                    wanted: tabs.currentIndex === 2

                    // What is made on demand doesn't outlive its window.
                    // qmllint disable unqualified
                    sourceComponent: GeneralTab {
                        enabled: visible
                        model: window.model.general
                        onImportRequested: window.importCSV()
                        onExportRequested: window.exportBackup()
                        onRestoreRequested: window.restoreBackup()
                    }
                    // qmllint enable unqualified
                }
            }

            OnDemand {
                Layout.fillWidth: true
                wanted: window.model.problem !== ""
                visible: wanted

                // What is made on demand doesn't outlive its window.
                // qmllint disable unqualified
                sourceComponent: SettingsProblem { text: window.model.problem }
                // qmllint enable unqualified
            }
        }
    }
}
