// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include "platform/Instant.h"

namespace elmworth {

/// How much of a project's budget is used, as a bar shows it.
struct BudgetUse {
    /// What the bar looks like: there is time left, it runs out, there was more than allowed.
    enum class Level { fine, nearlyUsed, exceeded };

    double fraction = 0;  ///< 1.25 is 25% over

    /// What it is once `seconds` more are tracked.
    [[nodiscard]] BudgetUse after(double seconds, double budgetSeconds) const {
        return {fraction + seconds / budgetSeconds};
    }

    /// From 0.8 on a budget is nearly used, above 1 it is exceeded.
    [[nodiscard]] Level level() const noexcept;
    /// In whole percent, halves away from zero: "125".
    [[nodiscard]] QString percent() const;
    /// "125% of budget used"
    [[nodiscard]] QString help() const;
    /// "125 percent of budget used", for assistive technology.
    [[nodiscard]] QString label() const;

    /// Whether both look alike on a bar.
    [[nodiscard]] bool looksLike(const BudgetUse& other) const;
};

}  // namespace elmworth
