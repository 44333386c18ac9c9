// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/ProjectLook.h"

#include <QStringList>

#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

namespace {

constexpr const char* currencyWithoutClient = "USD";

QString timeText(const Ref<Project>& project, ProjectTimes& times) {
    auto text =
        QStringLiteral("%1 tracked · %2 unbilled")
            .arg(QString::fromStdString(formatHoursMinutes(times.trackedSeconds(project))),
                 QString::fromStdString(formatHoursMinutes(times.unbilled(project).seconds)));
    if (const auto& hours = project->budgetHours.get()) {
        text += QStringLiteral(" · budget %1 h").arg(*hours);
    }
    return text;
}

std::optional<BudgetUse> budgetUsed(const Project& project, Instant now) {
    try {
        const auto fraction = project.budgetFraction(now);
        return fraction ? std::optional(BudgetUse{*fraction}) : std::nullopt;
    } catch (const StoreError&) {
        return std::nullopt;  // the library's faults are told elsewhere
    }
}

}  // namespace

QString hourlyRateText(std::int64_t cents, const std::string& currencyCode) {
    return QString::fromStdString(formatCents(cents, currencyCode)) + QStringLiteral("/h");
}

ProjectLook ProjectLook::of(const Ref<Project>& project, ProjectTimes& times, bool isRunning,
                            Instant now) {
    const auto client = project->client.get();
    ProjectLook look;
    look.name = QString::fromStdString(project->name);
    look.color = QString::fromStdString(project->colorHex);
    look.time = timeText(project, times);
    look.rate = hourlyRateText(project->effectiveRateCents(),
                               client ? client->currencyCode.get() : currencyWithoutClient);
    look.isArchived = project->isArchived;
    look.hasCustomRate = project->rateOverrideCents.get().has_value();
    look.isRunning = isRunning;
    look.budget = budgetUsed(*project, now);
    look.budgetSeconds = project->budgetSeconds().value_or(0);
    look.madeAt = now;
    return look;
}

std::optional<BudgetUse> ProjectLook::budgetAt(Instant now) const {
    if (!budget || !isRunning) return budget;
    return budget->after(secondsBetween(madeAt, now), budgetSeconds);
}

QString ProjectLook::summary(Instant now) const {
    QStringList parts{name};
    if (isArchived) parts.append(QStringLiteral("Archived"));
    if (hasCustomRate) parts.append(QStringLiteral("Custom rate"));
    parts.append(time);
    if (const auto used = budgetAt(now)) parts.append(used->label());
    parts.append(rate);
    if (isRunning) parts.append(QStringLiteral("Running"));
    return parts.join(QStringLiteral(", "));
}

}  // namespace elmworth
