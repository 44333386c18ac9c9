// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <optional>

#include "invoicing/ProjectTimes.h"
#include "records/Client.h"
#include "records/Project.h"
#include "screens/projects/BudgetUse.h"

namespace elmworth {

/// A project as its row shows it, in finished texts.
struct ProjectLook {
    QString name;
    QString color;  ///< "#RRGGBB"
    QString time;   ///< "12:30 tracked · 3:00 unbilled · budget 40 h": finished time alone
    QString rate;   ///< "$120.00/h"
    bool isArchived = false;
    bool hasCustomRate = false;
    bool isRunning = false;
    /// At `madeAt`, the running entry's time with it; absent without a budget.
    std::optional<BudgetUse> budget;
    double budgetSeconds = 0;
    Instant madeAt;

    /// What `project` looks like at `now`. Without a budget that can be read it shows none.
    [[nodiscard]] static ProjectLook of(const Ref<Project>& project, ProjectTimes& times,
                                        bool isRunning, Instant now);

    /// At `now`: that of a running project grows.
    [[nodiscard]] std::optional<BudgetUse> budgetAt(Instant now) const;
    /// All that the row says, for assistive technology.
    [[nodiscard]] QString summary(Instant now) const;
};

/// "$120.00/h", in the money's locale.
[[nodiscard]] QString hourlyRateText(std::int64_t cents, const std::string& currencyCode);

}  // namespace elmworth
