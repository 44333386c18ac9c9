// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/BudgetChipModel.h"

namespace elmworth {

namespace {

std::optional<double> fractionUsed(const Project& project, Instant now) {
    try {
        return project.budgetFraction(now);
    } catch (const StoreError&) {
        return std::nullopt;  // no warning without figures
    }
}

}  // namespace

BudgetChipModel::BudgetChipModel(const AppServices& services) : services_(services) {}

void BudgetChipModel::setPanelOpen(bool isOpen) {
    isPanelOpen_ = isOpen;
    update();
}

void BudgetChipModel::update() {
    const auto entry = isPanelOpen_ ? services_.timer.running() : nullptr;
    const auto project = entry ? entry->project.get() : nullptr;
    askedAt_ = services_.now();
    fraction_ = project ? fractionUsed(*project, askedAt_) : std::nullopt;
    if (fraction_) budgetSeconds_ = *project->budgetSeconds();
    tick();
}

void BudgetChipModel::tick() {
    QString text;
    if (fraction_) {
        const double growth = secondsBetween(askedAt_, services_.now());
        text = textOf(*fraction_ + growth / budgetSeconds_);
    }
    if (text == text_) return;
    text_ = std::move(text);
    Q_EMIT textChanged();
}

QString BudgetChipModel::textOf(double fraction) {
    if (fraction < 0.8) return {};
    if (fraction >= 1) return QStringLiteral("Over budget");
    return QStringLiteral("%1% of budget").arg(static_cast<int>(fraction * 100));
}

}  // namespace elmworth
