// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetRowsModel.h"

#include <algorithm>
#include <utility>

#include "platform/DurationFormat.h"
#include "records/Client.h"

namespace elmworth {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString projectTitle(const TimesheetEntry& entry) {
    return entry.project ? text(entry.project->name.get()) : text(NoProject::name);
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
    // Rows refer to the former listing until the last one is replaced: keep it alive.
    const auto former = std::exchange(listing_, std::move(listing));
    growing_.clear();
    reuseDays(former ? former->days : decltype(former->days){});
    noteGrowing();
    if ((renamed || otherPlace || otherDay) && !rows().empty()) {
        Q_EMIT dataChanged(index(0), index(static_cast<int>(rows().size()) - 1));
    }
}

/// Days that are the same as before have the same lines.
void TimesheetRowsModel::reuseDays(const std::vector<std::shared_ptr<const TimesheetDay>>& former) {
    const TimesheetDays before(former);
    const TimesheetDays days(listing_->days);
    const std::size_t shorter = std::min(before.size(), days.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == days[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head &&
           before[before.size() - 1 - tail] == days[days.size() - 1 - tail]) {
        ++tail;
    }
    const auto between = [&](TimesheetDays all) {
        return all.subspan(head, all.size() - head - tail);
    };
    replaceRows(timesheetRowCount(days.first(head)), timesheetRowCount(between(before)),
                timesheetRows(between(days)));
}

void TimesheetRowsModel::noteGrowing() {
    std::size_t head = 0;
    for (const auto& day : listing_->days) {
        const std::size_t next = head + 1 + day->entries.size();
        for (std::size_t i = head; day->holdsRunning && i < next; ++i) {
            if (!rows()[i].isHead() && !rows()[i].place.entry().isRunning()) continue;
            const int at = static_cast<int>(i);
            growing_.emplace_back(at, data(index(at), total).toString());
        }
        head = next;
    }
    // What runs may have another start, or have grown since the last tick.
    for (const auto& [row, shown] : growing_) tellGrown(row);
}

void TimesheetRowsModel::showNotes(const TimesheetPlace& place) {
    const auto& entry = place.entry();
    const auto first = std::partition_point(
        listing_->days.begin(), listing_->days.end(),
        [&](const auto& day) { return entry.end && day->start >= *entry.end; });
    for (auto day = first; day != listing_->days.end() && (*day)->end > entry.start; ++day) {
        const int row = position({(*day)->start, entry.id});
        if (row >= 0) Q_EMIT dataChanged(index(row), index(row), {notes, hasNotes, summary});
    }
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

void TimesheetRowsModel::showSelection(const std::unordered_set<PersistentID>& selection) {
    selection_ = &selection;
    // Views read only the visible lines, which is cheaper than finding out which have changed.
    if (rows().empty()) return;
    Q_EMIT dataChanged(index(0), index(static_cast<int>(rows().size()) - 1), {isSelected});
}

const TimesheetRow* TimesheetRowsModel::rowAt(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < rows().size() ? &rows()[at] : nullptr;
}

int TimesheetRowsModel::position(const TimesheetRowID& id) const {
    const auto at = positionOf(id, rows());
    return at ? static_cast<int>(*at) : -1;
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
            return entry.project ? text(entry.project->colorHex.get()) : text(NoProject::color);
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
            return selection_ != nullptr && selection_->contains(entry.id);
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
