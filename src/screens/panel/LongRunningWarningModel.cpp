// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/LongRunningWarningModel.h"

#include <array>

#include "platform/DateFormatter.h"

namespace elmworth {

namespace {

constexpr std::array hoursAfterStart{1, 2, 4, 8};

Instant instantOf(int hours, Instant start) {
    return start + std::chrono::hours(hours);
}

QString choiceText(int hours, Instant start) {
    const auto time = shortTimeFormatter().string(instantOf(hours, start));
    return QStringLiteral("%1 h after start (%2)").arg(hours).arg(QString::fromStdString(time));
}

}  // namespace

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

}  // namespace elmworth
