// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/BudgetUse.h"

#include <cmath>

namespace elmworth {

namespace {

/// A bar has no more pixels than this.
constexpr double steps = 1000;

}  // namespace

BudgetUse::Level BudgetUse::level() const noexcept {
    if (fraction < 0.8) return Level::fine;
    return fraction <= 1 ? Level::nearlyUsed : Level::exceeded;
}

QString BudgetUse::percent() const {
    return QString::number(std::round(fraction * 100), 'f', 0);
}

QString BudgetUse::help() const {
    return percent() + QStringLiteral("% of budget used");
}

QString BudgetUse::label() const {
    return percent() + QStringLiteral(" percent of budget used");
}

bool BudgetUse::looksLike(const BudgetUse& other) const {
    return level() == other.level() && percent() == other.percent() &&
           std::round(fraction * steps) == std::round(other.fraction * steps);
}

}  // namespace elmworth
