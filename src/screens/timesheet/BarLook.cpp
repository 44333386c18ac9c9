// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/BarLook.h"

#include "theme/Contrast.h"

namespace elmworth {

BarLook BarLook::of(const QColor& color, const QColor& ground) {
    const QColor outline = edge(color, ground);
    if (outline == color) return {color};
    return {color, QPen(outline, 1), 0.5};
}

}  // namespace elmworth
