// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Clients

/// The terms that hold for a client: its own, to be changed, or what the business has for all.
RowLayout {
    id: terms

    required property ClientEditorModel model

    spacing: 10

    FormLabel {
        visible: !terms.model.hasOwnTerms
        text: "Defaults"
        Accessible.ignored: false
    }

    PlainText {
        Layout.fillWidth: true
        Layout.preferredHeight: 32
        visible: !terms.model.hasOwnTerms
        horizontalAlignment: Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        text: terms.model.defaultTerms
        color: Theme.secondaryText
        font.family: Theme.tabularFamily
    }

    FormLabel {
        Layout.minimumWidth: 108
        visible: terms.model.hasOwnTerms
        text: terms.model.dueText
        color: Theme.primaryText
        font.family: Theme.tabularFamily
    }

    ValueStepper {
        Layout.alignment: Qt.AlignTop
        Layout.topMargin: 2
        visible: terms.model.hasOwnTerms
        label: terms.model.dueText
        to: terms.model.longestTerm
        value: terms.model.dueDays
        onValueModified: {
            terms.model.dueDays = value;
            value = Qt.binding(() => terms.model.dueDays);
        }
    }

    Item {
        Layout.fillWidth: true
        visible: terms.model.hasOwnTerms
    }

    FormLabel {
        visible: terms.model.hasOwnTerms
        text: "Tax %"
    }

    FormTextField {
        Layout.preferredWidth: 180
        Layout.alignment: Qt.AlignTop
        visible: terms.model.hasOwnTerms
        field: terms.model.tax // qmllint disable
        label: "Tax %"
        prompt: "0 for reverse charge"
        problem: terms.model.taxProblem
    }
}
