// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartModel.h"

#include <QLocale>
#include <algorithm>

#include "platform/Locale.h"
#include "theme/HexColor.h"

namespace elmworth {

namespace {

/// Periods up to this long name each day by its weekday.
constexpr double longestNamedPeriod = 864'000;
constexpr std::size_t daysBetweenMarks = 3;
constexpr std::size_t daysOfAWeek = 7;
constexpr std::size_t mostCalloutLines = 6;
constexpr qsizetype longestLabel = 80;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// `label` on one line. One that is far longer than any room for it loses its middle, as the legend
/// cuts what it has no room for: long names often differ at their ends.
QString shown(const std::string& label) {
    QString line = text(label).simplified();
    if (line.size() <= longestLabel) return line;
    QString begin = line.left(longestLabel / 2);
    QString end = line.right(longestLabel - 1 - begin.size());
    if (begin.back().isHighSurrogate()) begin.chop(1);
    if (end.front().isLowSurrogate()) end.remove(0, 1);
    return begin + u'…' + end;
}

QString hoursText(double hours) {
    const bool isTiny = hours > 0 && hours < 0.05;
    const QLocale locale(text(environmentLocale(LocaleCategory::numeric).identifier()));
    return (isTiny ? QStringLiteral("under %1 hours") : QStringLiteral("%1 hours"))
        .arg(locale.toString(isTiny ? 0.1 : hours, 'f', 1));
}

}  // namespace

void DailyChartModel::readFormats(const Calendar& calendar) {
    const Locale locale = Locale::current();
    const std::string& zone = calendar.zoneID();
    if (formatters_ && formatters_->zoneID == zone && formatters_->locale == locale) return;
    using Style = DateFormatter::Style;
    formatters_.emplace(Formatters{zone, locale,
                                   DateFormatter(Style::weekdayMonthDay, locale, zone),
                                   DateFormatter(Style::weekday, locale, zone),
                                   DateFormatter(Style::shortWeekday, locale, zone),
                                   DateFormatter(Style::dayOfMonth, locale, zone)});
}

void DailyChartModel::readSeries() {
    labels_.clear();
    colors_.clear();
    for (const auto& series : stacks_.series) {
        labels_ << shown(series.label);
        colors_.push_back(colorFromHex(text(series.colorHex)));
    }
}

void DailyChartModel::placeDayMarks(const DateInterval& range) {
    const bool daily = secondsBetween(range.start, range.end) <= longestNamedPeriod;
    const auto& format = daily ? formatters_->shortWeekday : formatters_->dayOfMonth;
    dayMarks_.clear();
    for (std::size_t i = 0; i < stacks_.days.size(); i += daily ? 1 : daysBetweenMarks) {
        dayMarks_.push_back({i, text(format.string(stacks_.days[i].start))});
    }
}

void DailyChartModel::show(std::span<const TimesheetEntry> entries, const DateInterval& range,
                           Instant now, const Calendar& calendar) {
    readFormats(calendar);
    auto days = daysOf(range, calendar);
    const auto bars = dailyBars(entries, days, now, calendar);
    stacks_ = dailyStacks(std::move(days), bars);
    readSeries();
    placeDayMarks(range);
    columns_.setRows(columnTexts());
    Q_EMIT changed();
}

std::vector<DailyChartColumn> DailyChartModel::columnTexts() const {
    std::vector<DailyChartColumn> columns;
    columns.reserve(stacks_.days.size());
    for (std::size_t i = 0; i < stacks_.days.size(); ++i) {
        columns.push_back({stacks_.days[i].start.time_since_epoch().count(), columnName(i)});
    }
    return columns;
}

QString DailyChartModel::spokenLabel(const StackedBar& bar) const {
    const QString& label = labels_[static_cast<qsizetype>(bar.series)];
    const bool isNone = label == QString::fromUtf8(NoProject::chartName);
    return isNone ? QString::fromUtf8(NoProject::name) : label;
}

QString DailyChartModel::barText(const StackedBar& bar) const {
    return spokenLabel(bar) + u' ' + hoursText(bar.hours());
}

QString DailyChartModel::columnName(std::size_t column) const {
    const bool isClear = stacks_.days.size() <= daysOfAWeek;
    const auto& format = isClear ? formatters_->weekday : formatters_->day;
    QStringList parts;
    for (const auto& bar : stacks_.barsOf(column)) parts << barText(bar);
    if (parts.isEmpty()) parts << QStringLiteral("no time");
    return text(format.string(stacks_.days[column].start)) + QStringLiteral(": ") +
           parts.join(QStringLiteral(", "));
}

QString DailyChartModel::description() const {
    QStringList parts;
    for (const auto& column : columns_.rows()) parts << column.name;
    return parts.join(QStringLiteral("; "));
}

QString DailyChartModel::legendText() const {
    return QStringLiteral("Projects: ") + labels_.join(QStringLiteral(", "));
}

QString DailyChartModel::dayText(std::size_t column) const {
    return text(formatters_->day.string(stacks_.days.at(column).start));
}

DailyChartCallout DailyChartModel::callout(const StackedBar& bar, std::size_t line) const {
    return {
        static_cast<int>(line), spokenLabel(bar), hoursText(bar.hours()), colors_[bar.series], {}};
}

std::vector<DailyChartCallout> DailyChartModel::calloutOfBar(std::size_t bar) const {
    return {callout(stacks_.bars.at(bar), 0)};
}

std::vector<DailyChartCallout> DailyChartModel::calloutOfColumn(std::size_t column) const {
    const auto bars = stacks_.barsOf(column);
    const bool isCut = bars.size() > mostCalloutLines;
    const std::size_t named = isCut ? mostCalloutLines - 1 : bars.size();
    std::vector<DailyChartCallout> lines;
    for (std::size_t i = 0; i < named; ++i) lines.push_back(callout(bars[bars.size() - 1 - i], i));
    if (bars.empty()) lines.push_back({-1, QStringLiteral("No time"), {}, Qt::transparent, {}});
    if (isCut) {
        const std::size_t rest = bars.size() - named;
        lines.push_back({-1,
                         QStringLiteral("%1 more").arg(rest),
                         hoursText(bars[rest - 1].top),
                         Qt::transparent,
                         {}});
    }
    return lines;
}

}  // namespace elmworth
