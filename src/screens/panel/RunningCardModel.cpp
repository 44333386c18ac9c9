// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/RunningCardModel.h"

#include <array>
#include <numeric>

#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"

namespace elmworth {

namespace {

std::optional<double> fractionUsed(const Project& project, Instant now) {
    try {
        return project.budgetFraction(now);
    } catch (const StoreError&) {
        return std::nullopt;  // no warning without figures
    }
}

constexpr std::array hoursAfterStart{1, 2, 4, 8};

Instant instantOf(int hours, Instant start) {
    return start + std::chrono::hours(hours);
}

QString choiceText(int hours, Instant start) {
    const auto time = shortTimeFormatter().string(instantOf(hours, start));
    return QStringLiteral("%1 h after start (%2)").arg(hours).arg(QString::fromStdString(time));
}

using Sleeps = std::vector<DateInterval>;

QString questionAbout(const Sleeps& sleeps) {
    const double seconds = std::accumulate(
        sleeps.begin(), sleeps.end(), 0.0,
        [](double sum, const auto& sleep) { return sum + secondsBetween(sleep.start, sleep.end); });
    return QStringLiteral("Computer slept for %1. Keep that time?")
        .arg(QString::fromStdString(formatHoursMinutes(seconds)));
}

QString helpAbout(const Sleeps& sleeps) {
    return QStringLiteral("Remove the sleep time from this entry (first sleep at %1)")
        .arg(QString::fromStdString(shortTimeFormatter().string(sleeps.front().start)));
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

LongRunningWarningModel::LongRunningWarningModel(const AppServices& services)
    : services_(services) {
    update();
}

QString LongRunningWarningModel::text() const {
    return QStringLiteral("Running a long time \u2014 forgot to stop?");
}

void LongRunningWarningModel::update() {
    std::optional<Instant> start;
    if (services_.timer.isLongRunning()) start = services_.timer.running()->start;
    if (start == start_) return;
    start_ = start;
    choices_.clear();
    for (const int hours : hoursAfterStart) {
        if (start) choices_.append(choiceText(hours, *start));
    }
    Q_EMIT changed();
}

void LongRunningWarningModel::stopAt(int choice) {
    if (choice < 0 || choice >= choices_.size()) return;
    services_.timer.stop(instantOf(hoursAfterStart.at(static_cast<std::size_t>(choice)), *start_));
}

void LongRunningWarningModel::stopNow() {
    services_.timer.stop();
}

AwayPromptModel::AwayPromptModel(const AppServices& services) : services_(services) {
    update();
}

void AwayPromptModel::update() {
    const auto& sleeps = services_.timer.awayIntervals();
    auto text = sleeps.empty() ? QString() : questionAbout(sleeps);
    auto help = sleeps.empty() ? QString() : helpAbout(sleeps);
    if (text == text_ && help == discardHelp_) return;
    text_ = std::move(text);
    discardHelp_ = std::move(help);
    Q_EMIT changed();
}

void AwayPromptModel::keep() {
    services_.timer.keepAwayTime();
}

void AwayPromptModel::discard() {
    services_.timer.discardAwayTime();
}

RunningCardModel::RunningCardModel(const AppServices& services)
    : RunningEntryModel(services, Follows::itsOwner),
      budget_(services),
      warning_(services),
      away_(services) {
    RunningCardModel::update();
}

void RunningCardModel::update() {
    budget_.update();
    away_.update();
    warning_.update();
    RunningEntryModel::update();
}

void RunningCardModel::tick() {
    budget_.tick();
    warning_.update();
    RunningEntryModel::tick();
}

void RunningCardModel::setNotes(const QString& notes) {
    services().context.deliverChanges();  // so that what follows tells of the notes alone
    isTyping_ = true;
    RunningEntryModel::setNotes(notes);
    services().context.deliverChanges();
    isTyping_ = false;
}

}  // namespace elmworth
