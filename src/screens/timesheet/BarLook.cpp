// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/BarLook.h"

#include "theme/Contrast.h"

namespace elmworth {

namespace {

/// The contrast below which a colour is taken for its ground.
constexpr double faintest = 1.5;

}  // namespace

BarLook BarLook::of(const QColor& color, const QColor& ground) {
    if (contrastRatio(color, ground) >= faintest) return {color};
    return {color, QPen(legible(color, ground, signContrast), 1), 0.5};
}

}  // namespace elmworth
