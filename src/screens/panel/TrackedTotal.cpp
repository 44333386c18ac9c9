// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrackedTotal.h"

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

void TrackedTotal::update() {
    const auto unit = span_ == Span::day ? CalendarUnit::day : CalendarUnit::weekOfYear;
    askedAt_ = services_.now();
    const auto span = services_.calendar().interval(unit, askedAt_);
    spanEnd_ = span ? span->end : askedAt_;
    counted_ =
        span_ == Span::day ? services_.timer.todaySeconds() : services_.timer.thisWeekSeconds();
}

double TrackedTotal::seconds() {
    const Instant now = services_.now();
    if (now < askedAt_ || now >= spanEnd_) update();
    return counted_ + growth(now);
}

/// What the running entry has added since the library was asked.
double TrackedTotal::growth(Instant now) const {
    const auto& entry = services_.timer.running();
    if (!entry) return 0;
    return std::max(0.0, secondsBetween(std::max(askedAt_, entry->start.get()), now));
}

TodayChipModel::TodayChipModel(const AppServices& services)
    : total_(services, TrackedTotal::Span::day) {
    update();
}

void TodayChipModel::update() {
    total_.update();
    tick();
}

void TodayChipModel::tick() {
    auto text = QString::fromStdString(formatHoursMinutes(total_.seconds()));
    if (text == text_) return;
    text_ = std::move(text);
    Q_EMIT textChanged();
}

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
