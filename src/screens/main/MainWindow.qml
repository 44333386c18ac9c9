// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Main

/// The main window. Closing it ends nothing: the program goes on without it.
Basic.ApplicationWindow {
    id: window

    required property MainViewModel model

    /// Below it the view scrolls; it leaves the height of a line over the view.
    readonly property size leastRoom: Qt.size(1020, 560)

    title: "Elmworth"
    width: 1080
    height: 720
    minimumWidth: 1020
    minimumHeight: 600
    color: Theme.backgroundTop
    background: AppBackground {}
    onVisibleChanged: if (visible) model.welcome.greet()

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }

    OnDemand {
        wanted: window.model.confirmation.isOpen
        Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Theme/ConfirmSheet.qml", { question: window.model.confirmation })
    }

    OnDemand {
        wanted: window.model.newInvoice.isOpen
        Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Invoices/NewInvoiceSheet.qml", { model: window.model.newInvoice })
    }

    OnDemand {
        wanted: window.model.welcome.isOpen
        Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Welcome/WelcomeView.qml", { model: window.model.welcome })
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        OnDemand {
            Layout.fillWidth: true
            wanted: window.model.libraryProblem !== ""

            // What is made on demand doesn't outlive its window.
            // qmllint disable unqualified
            sourceComponent: ProblemLine { text: window.model.libraryProblem }
            // qmllint enable unqualified
        }

        // A tile may be smaller than the least size of a window.
        RoomyArea {
            Layout.fillWidth: true
            Layout.fillHeight: true
            leastWidth: window.leastRoom.width
            leastHeight: window.leastRoom.height

            MainView {
                anchors.fill: parent
                model: window.model
                onCloseRequested: window.close()
            }
        }
    }
}
