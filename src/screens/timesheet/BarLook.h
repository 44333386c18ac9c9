// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QBrush>
#include <QColor>
#include <QPen>

namespace elmworth {

/// How a project's colour is painted.
struct BarLook {
    QBrush fill;
    QPen outline = Qt::NoPen;
    double inset = 0;  ///< half the outline's width

    /// `color` as it is on `ground`. One that would be taken for the ground gets an outline that
    /// is not.
    [[nodiscard]] static BarLook of(const QColor& color, const QColor& ground);
};

}  // namespace elmworth
