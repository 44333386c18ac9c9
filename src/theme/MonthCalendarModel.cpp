// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/MonthCalendarModel.h"

namespace elmworth {

namespace {

constexpr int weekLength = 7;
constexpr int pageLength = 6 * weekLength;
constexpr const char* zone = "UTC";

using Style = DateFormatter::Style;

Instant plusDays(Instant day, int days) {
    return day + std::chrono::days(days);
}

}  // namespace

MonthCalendarModel::MonthCalendarModel(std::function<Calendar()> calendar, Clock now,
                                       const Locale& locale)
    : userCalendar_(std::move(calendar)),
      now_(std::move(now)),
      calendar_(locale, zone),
      title_(Style::monthYear, locale, zone),
      number_(Style::dayOfMonth, locale, zone),
      name_(Style::fullDate, locale, zone) {
    const DateFormatter initials(Style::weekdayInitials, locale, zone);
    const DateFormatter weekday(Style::weekday, locale, zone);
    const auto week = calendar_.interval(CalendarUnit::weekOfYear, Instant{});
    for (int i = 0; i < weekLength; ++i) {
        const Instant day = plusDays(week ? week->start : Instant{}, i);
        weekdays_.append(QString::fromStdString(initials.string(day)));
        weekdayNames_.append(QString::fromStdString(weekday.string(day)));
    }
    show(userCalendar_().components(now_()));
}

QString MonthCalendarModel::title() const {
    return QString::fromStdString(title_.string(cursor_));
}

DateComponents MonthCalendarModel::chosenDay() const {
    return calendar_.components(chosen_);
}

Instant MonthCalendarModel::today() const {
    const auto today = userCalendar_().components(now_());
    return calendar_.date({today.year, today.month, today.day, 12}).value_or(chosen_);
}

void MonthCalendarModel::show(const DateComponents& chosen) {
    const auto day = calendar_.date({chosen.year, chosen.month, chosen.day, 12});
    if (!day) return;
    chosen_ = *day;
    moveTo(day);
}

void MonthCalendarModel::moveByDays(int days) {
    moveTo(calendar_.adding(days, CalendarUnit::day, cursor_));
}

void MonthCalendarModel::moveByMonths(int months) {
    moveTo(calendar_.adding(months, CalendarUnit::month, cursor_));
}

void MonthCalendarModel::moveToWeekStart() {
    moveByDays(-(current_ % weekLength));
}

void MonthCalendarModel::moveToWeekEnd() {
    moveByDays(weekLength - 1 - current_ % weekLength);
}

void MonthCalendarModel::moveToToday() {
    moveTo(today());
}

void MonthCalendarModel::choose(int position) {
    if (position < 0 || position >= pageLength) return;
    chosen_ = dayAt(position);
    moveTo(chosen_);
    Q_EMIT chosen();
}

Instant MonthCalendarModel::dayAt(int position) const {
    return plusDays(first_, position);
}

void MonthCalendarModel::moveTo(std::optional<Instant> day) {
    // Texts of days beyond are read in another way; nobody gets there.
    constexpr Instant first = std::chrono::sys_days(std::chrono::year(2) / 1 / 1);
    constexpr Instant last = std::chrono::sys_days(std::chrono::year(9998) / 12 / 31);
    if (!day || *day < first || *day > last) return;
    cursor_ = *day;
    showPage();
}

void MonthCalendarModel::showPage() {
    const auto month = calendar_.interval(CalendarUnit::month, cursor_);
    if (!month) return;
    const auto week = calendar_.interval(CalendarUnit::weekOfYear, month->start);
    first_ = (week ? week->start : month->start) + std::chrono::hours(12);
    current_ = static_cast<int>(std::chrono::round<std::chrono::days>(cursor_ - first_).count());
    const Instant today = this->today();
    std::vector<MonthDay> page;
    for (int i = 0; i < pageLength; ++i) {
        const Instant day = dayAt(i);
        auto name = QString::fromStdString(name_.string(day));
        if (day == today) name += QStringLiteral(", today");
        page.push_back({.id = i,
                        .text = QString::fromStdString(number_.string(day)),
                        .name = std::move(name),
                        .isInMonth = day >= month->start && day < month->end,
                        .isToday = day == today,
                        .isChosen = day == chosen_,
                        .isCurrent = i == current_});
    }
    days_.setRows(std::move(page));
    Q_EMIT shown();
}

}  // namespace elmworth
