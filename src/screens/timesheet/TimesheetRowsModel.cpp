// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetRowsModel.h"

#include <algorithm>
#include <utility>

#include "core/Client.h"
#include "tracking/DurationFormat.h"

namespace elmworth {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString projectTitle(const TimesheetEntry& entry) {
    return entry.project ? text(entry.project->name.get()) : QStringLiteral("No project");
}

QString clientName(const TimesheetEntry& entry) {
    const auto client = entry.project ? entry.project->client.get() : nullptr;
    return client ? text(client->name.get()) : QString();
}

/// The first `size` bytes or less, so that no character is cut.
std::string_view beginning(std::string_view utf8, std::size_t size) {
    if (utf8.size() <= size) return utf8;
    const auto isInsideCharacter = [&] { return (utf8[size] & 0xC0) == 0x80; };
    while (size > 0 && isInsideCharacter()) --size;
    return utf8.substr(0, size);
}

QString notesOf(const TimesheetRow& row) {
    const auto notes = row.place.notes();
    // A line shows no more than this of notes that may be a book.
    constexpr std::size_t shown = 600;
    return notes.empty() ? QStringLiteral("No notes") : text(beginning(notes, shown)).simplified();
}

}  // namespace

TimesheetRowsModel::Formatters::Formatters(const Setting& setting)
    : weekday(DateFormatter::Style::weekday, setting.locale, setting.calendar.zoneID()),
      monthDay(DateFormatter::Style::monthDay, setting.locale, setting.calendar.zoneID()),
      time(DateFormatter::Style::shortTime, setting.locale, setting.calendar.zoneID()) {}

TimesheetRowsModel::TimesheetRowsModel(Setting setting)
    : setting_(std::move(setting)), formatters_(setting_) {}

void TimesheetRowsModel::show(std::shared_ptr<const TimesheetListing> listing, Setting setting,
                              bool renamed) {
    const bool otherPlace = setting.calendar.zoneID() != setting_.calendar.zoneID() ||
                            setting.locale.identifier() != setting_.locale.identifier();
    setting_ = std::move(setting);
    if (otherPlace) formatters_ = Formatters(setting_);
    const Instant today = setting_.calendar.startOfDay(setting_.now);
    const bool otherDay = std::exchange(today_, today) != today;
    yesterday_ = setting_.calendar.adding(-1, CalendarUnit::day, today)
                     .value_or(today - std::chrono::days(1));
    // The rows that stand refer to the former listing until the last one has changed.
    const auto former = std::exchange(listing_, std::move(listing));
    growing_.clear();
    takeOver(timesheetRows(*listing_));
    noteGrowing();
    if ((renamed || otherPlace || otherDay) && !rows().empty()) {
        Q_EMIT dataChanged(index(0), index(static_cast<int>(rows().size()) - 1));
    }
}

void TimesheetRowsModel::noteGrowing() {
    for (std::size_t i = 0; i < rows().size(); ++i) {
        const auto& row = rows()[i];
        if (row.isHead() ? row.day->holdsRunning : row.place.entry().isRunning()) {
            const int at = static_cast<int>(i);
            growing_.emplace_back(at, data(index(at), total).toString());
        }
    }
    // What runs may have another start, or have grown since the last tick.
    for (const auto& [row, shown] : growing_) tellGrown(row);
}

void TimesheetRowsModel::tellGrown(int row) {
    Q_EMIT dataChanged(index(row), index(row), {total, summary});
}

void TimesheetRowsModel::tick(Instant now) {
    setting_.now = now;
    for (auto& [row, shown] : growing_) {
        const QString grown = data(index(row), total).toString();
        if (grown == shown) continue;
        shown = grown;
        tellGrown(row);
    }
}

void TimesheetRowsModel::setSelection(std::unordered_set<PersistentID> selection) {
    const auto former = std::exchange(selection_, std::move(selection));
    const auto changed = [&](const PersistentID& id) {
        return former.contains(id) != selection_.contains(id);
    };
    for (std::size_t begin = 0; begin < rows().size(); ++begin) {
        std::size_t end = begin;
        while (end < rows().size() && changed(rows()[end].id.entry)) ++end;
        if (end == begin) continue;
        Q_EMIT dataChanged(index(static_cast<int>(begin)), index(static_cast<int>(end) - 1),
                           {isSelected});
        begin = end;
    }
}

const TimesheetRow* TimesheetRowsModel::rowAt(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < rows().size() ? &rows()[at] : nullptr;
}

int TimesheetRowsModel::position(const TimesheetRowID& id) const {
    const auto found = std::find_if(rows().begin(), rows().end(),
                                    [&](const TimesheetRow& row) { return row.id == id; });
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QVariant TimesheetRowsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows()[static_cast<std::size_t>(index.row())];
    if (role == isLastOfDay) return row.isLastOfDay;
    return row.isHead() ? headData(row, role) : entryData(row, role);
}

QVariant TimesheetRowsModel::headData(const TimesheetRow& row, int role) const {
    switch (role) {
        case kind:
            return QStringLiteral("head");
        case title:
            return dayTitle(row.id.day);
        case detail:
            return text(formatters_.monthDay.string(row.id.day));
        case total:
            return text(formatHoursMinutes(row.day->seconds(setting_.now)));
        case summary:
            return headSummary(row);
        default:
            return {};
    }
}

QVariant TimesheetRowsModel::entryData(const TimesheetRow& row, int role) const {
    const auto& entry = row.place.entry();
    switch (role) {
        case kind:
            return QStringLiteral("entry");
        case title:
            return projectTitle(entry);
        case detail:
            return clientName(entry);
        case total:
            return text(duration(entry));
        case projectColor:
            return entry.project ? text(entry.project->colorHex.get()) : QStringLiteral("#999999");
        case notes:
            return notesOf(row);
        case hasNotes:
            return !row.place.notes().empty();
        case timeRange:
            return timeRangeText(entry);
        case isBilled:
            return entry.isBilled;
        case isRunning:
            return entry.isRunning();
        case canContinue:
            return !entry.isRunning() && entry.project != nullptr;
        case isSelected:
            return selection_.contains(entry.id);
        case summary:
            return entrySummary(row);
        default:
            return {};
    }
}

QString TimesheetRowsModel::dayTitle(Instant day) const {
    if (day == today_) return QStringLiteral("Today");
    if (day == yesterday_) return QStringLiteral("Yesterday");
    return text(formatters_.weekday.string(day));
}

QString TimesheetRowsModel::timeRangeText(const TimesheetEntry& entry) const {
    const QString start = text(formatters_.time.string(entry.start));
    if (entry.isRunning()) return start + QStringLiteral(" – now");
    return start + QStringLiteral(" – ") + text(formatters_.time.string(*entry.end));
}

std::string TimesheetRowsModel::duration(const TimesheetEntry& entry) const {
    return formatHoursMinutes(secondsBetween(entry.start, entry.end.value_or(setting_.now)));
}

QString TimesheetRowsModel::headSummary(const TimesheetRow& row) const {
    return QStringLiteral("%1, %2, %3")
        .arg(dayTitle(row.id.day), headData(row, detail).toString(),
             headData(row, total).toString());
}

QString TimesheetRowsModel::entrySummary(const TimesheetRow& row) const {
    const auto& entry = row.place.entry();
    QStringList parts{projectTitle(entry)};
    if (const auto client = clientName(entry); !client.isEmpty()) parts.append(client);
    parts.append(notesOf(row));
    if (entry.isBilled) parts.append(QStringLiteral("Billed"));
    if (entry.isRunning()) parts.append(QStringLiteral("Live"));
    parts.append(timeRangeText(entry));
    parts.append(text(duration(entry)));
    return parts.join(QStringLiteral(", "));
}

QHash<int, QByteArray> TimesheetRowsModel::roleNames() const {
    return {{kind, "kind"},
            {title, "title"},
            {detail, "detail"},
            {total, "total"},
            {projectColor, "projectColor"},
            {notes, "notes"},
            {hasNotes, "hasNotes"},
            {timeRange, "timeRange"},
            {isBilled, "isBilled"},
            {isRunning, "isRunning"},
            {canContinue, "canContinue"},
            {isSelected, "isSelected"},
            {isLastOfDay, "isLastOfDay"},
            {summary, "summary"}};
}

QList<int> TimesheetRowsModel::changedRoles(const TimesheetRow& /*shown*/,
                                            const TimesheetRow& next) const {
    if (next.isHead()) return {total, summary, isLastOfDay};
    return roleNames().keys();
}

}  // namespace elmworth
