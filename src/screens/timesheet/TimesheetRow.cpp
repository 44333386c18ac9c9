// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetRow.h"

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

std::vector<TimesheetRow> timesheetRows(const TimesheetListing& listing) {
    std::size_t count = listing.days.size();
    for (const auto& day : listing.days) count += day.entries.size();
    std::vector<TimesheetRow> rows;
    rows.reserve(count);
    for (const auto& day : listing.days) {
        rows.push_back({{day.start, {}}, &day, {}, false});
        for (const auto& place : day.entries) {
            rows.push_back({{day.start, place.entry().id}, &day, place, false});
        }
        rows.back().isLastOfDay = true;
    }
    return rows;
}

}  // namespace elmworth
