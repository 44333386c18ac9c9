// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/WeeklyGoalBarModel.h"

#include <algorithm>

#include "platform/DurationFormat.h"

namespace elmworth {

namespace {

constexpr auto goalKey = "weeklyGoalHours";

QString goalText(double seconds, std::int64_t hours) {
    return QStringLiteral("%1 of %2h")
        .arg(QString::fromStdString(formatHoursMinutes(seconds)), QString::number(hours));
}

}  // namespace

WeeklyGoalBarModel::WeeklyGoalBarModel(const AppServices& services)
    : services_(services), total_(services, TrackedTotal::Span::week) {
    goalObservation_ = services.defaults.observe([this](std::string_view key) {
        if (key == goalKey) update();
    });
    update();
}

void WeeklyGoalBarModel::update() {
    goalHours_ = services_.defaults.integer(goalKey).value_or(0);
    if (isShown()) {
        total_.update();
        tick();
    } else if (!text_.isEmpty()) {
        text_.clear();
        ratio_ = 0;
        Q_EMIT changed();
    }
}

void WeeklyGoalBarModel::tick() {
    if (!isShown()) return;
    const double seconds = total_.seconds();
    auto text = goalText(seconds, goalHours_);
    if (text == text_) return;
    text_ = std::move(text);
    ratio_ = std::min(1.0, seconds / (static_cast<double>(goalHours_) * 3600));
    Q_EMIT changed();
}

}  // namespace elmworth
