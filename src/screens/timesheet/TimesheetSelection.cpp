// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetSelection.h"

#include <algorithm>
#include <utility>

namespace elmworth {

namespace {

using Rows = TimesheetSelection::Rows;

std::optional<std::size_t> positionOf(const std::optional<TimesheetRowID>& id, const Rows& rows) {
    if (!id) return std::nullopt;
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const TimesheetRow& row) { return row.id == *id; });
    if (found == rows.end()) return std::nullopt;
    return static_cast<std::size_t>(found - rows.begin());
}

}  // namespace

void TimesheetSelection::select(const TimesheetRowID& row) {
    ids_ = {row.entry};
    anchor_ = current_ = row;
}

void TimesheetSelection::toggle(const TimesheetRowID& row) {
    if (ids_.erase(row.entry) == 0) ids_.insert(row.entry);
    anchor_ = current_ = row;
}

void TimesheetSelection::extendTo(const TimesheetRowID& row, const Rows& rows) {
    const auto from = positionOf(anchor_, rows);
    const auto to = positionOf(row, rows);
    if (!from || !to) return select(row);
    const auto [first, last] = std::minmax(*from, *to);
    ids_.clear();
    for (std::size_t i = first; i <= last; ++i) {
        if (!rows[i].isHead()) ids_.insert(rows[i].id.entry);
    }
    current_ = row;
}

void TimesheetSelection::selectAll(const Rows& rows) {
    for (const auto& row : rows) {
        if (!row.isHead()) ids_.insert(row.id.entry);
    }
}

void TimesheetSelection::clear() {
    ids_.clear();
    anchor_.reset();
    current_.reset();
}

std::optional<TimesheetRowID> TimesheetSelection::stepFrom(const Rows& rows, int steps) const {
    if (rows.empty() || steps == 0) return std::nullopt;
    const int direction = steps > 0 ? 1 : -1;
    const auto count = static_cast<std::ptrdiff_t>(rows.size());
    const auto current = positionOf(current_, rows);
    std::ptrdiff_t at = direction > 0 ? -1 : count;
    if (current) at = static_cast<std::ptrdiff_t>(*current);
    std::optional<TimesheetRowID> reached;
    for (int left = std::abs(steps); left > 0;) {
        at += direction;
        if (at < 0 || at >= count) break;
        const auto& row = rows[static_cast<std::size_t>(at)];
        if (row.isHead()) continue;
        reached = row.id;
        --left;
    }
    if (!reached && current) reached = current_;
    return reached;
}

}  // namespace elmworth
