// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The time of the day of `date`, to type or to step.
StepField {
    id: field

    required property DateTimeInput date

    input: field.date.time
}
