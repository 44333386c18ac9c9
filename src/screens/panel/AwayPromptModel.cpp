// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/AwayPromptModel.h"

#include <numeric>

#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"

namespace elmworth {

namespace {

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

}  // namespace elmworth
