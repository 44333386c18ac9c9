// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetRow.h"

#include <algorithm>

namespace elmworth {

namespace {

bool showsTheSame(const TimesheetPlace& a, const TimesheetPlace& b) {
    const auto& one = a.entry();
    const auto& other = b.entry();
    return one.start == other.start && one.end == other.end && one.project == other.project &&
           one.isBilled == other.isBilled && a.notes() == b.notes();
}

bool showsTheSame(const TimesheetDay& a, const TimesheetDay& b) {
    return a.finishedSeconds == b.finishedSeconds && a.holdsRunning == b.holdsRunning;
}

}  // namespace

bool operator==(const TimesheetRow& a, const TimesheetRow& b) {
    if (a.id != b.id || a.isLastOfDay != b.isLastOfDay) return false;
    return a.isHead() ? showsTheSame(*a.day, *b.day) : showsTheSame(a.place, b.place);
}

std::size_t timesheetRowCount(TimesheetDays days) {
    std::size_t count = days.size();
    for (const auto& day : days) count += day->entries.size();
    return count;
}

std::vector<TimesheetRow> timesheetRows(TimesheetDays days) {
    std::vector<TimesheetRow> rows;
    rows.reserve(timesheetRowCount(days));
    for (const auto& day : days) {
        rows.push_back({{day->start, {}}, day.get(), {}, false});
        for (const auto& place : day->entries) {
            rows.push_back({{day->start, place.entry().id}, day.get(), place, false});
        }
        rows.back().isLastOfDay = true;
    }
    return rows;
}

std::optional<std::size_t> positionOf(const TimesheetRowID& id,
                                      const std::vector<TimesheetRow>& rows) {
    auto row = std::partition_point(
        rows.begin(), rows.end(), [&](const TimesheetRow& other) { return other.id.day > id.day; });
    while (row != rows.end() && row->id.day == id.day && row->id != id) ++row;
    if (row == rows.end() || row->id != id) return std::nullopt;
    return static_cast<std::size_t>(row - rows.begin());
}

}  // namespace elmworth
