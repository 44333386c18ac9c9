// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetSelection.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace elmworth {

bool TimesheetSelection::Spot::isBehind(const TimesheetRow& row) const {
    if (row.id.day != id.day) return row.id.day > id.day;
    return row.isHead() ||
           std::tie(start, id.entry) < std::tie(row.place.entry().start, row.id.entry);
}

void TimesheetSelection::moveCurrent(const TimesheetRow& row) {
    current_ = row.id;
    currentStart_ = row.place.entry().start;
    place_.reset();
}

void TimesheetSelection::begin(const Rows& rows, std::size_t at) {
    anchor_ = rows[at].id;
    extended_.reset();
    moveCurrent(rows[at]);
}

void TimesheetSelection::select(const Rows& rows, std::size_t at) {
    ids_ = {rows[at].id.entry};
    begin(rows, at);
}

void TimesheetSelection::toggle(const Rows& rows, std::size_t at) {
    const auto& entry = rows[at].id.entry;
    if (ids_.erase(entry) == 0) ids_.insert(entry);
    begin(rows, at);
}

void TimesheetSelection::add(const TimesheetRow& row) {
    if (!row.isHead() && !ids_.insert(row.id.entry).second) ++repeated_[row.id.entry];
}

void TimesheetSelection::remove(const TimesheetRow& row) {
    const auto repeated = repeated_.find(row.id.entry);
    if (repeated == repeated_.end()) {
        ids_.erase(row.id.entry);
    } else if (--repeated->second == 0) {
        repeated_.erase(repeated);
    }
}

void TimesheetSelection::extendTo(const Rows& rows, std::size_t at) {
    const auto from = anchor_ ? positionOf(*anchor_, rows) : std::nullopt;
    if (!from) return select(rows, at);
    if (!extended_) {
        ids_.clear();
        repeated_.clear();
        add(rows[*from]);
        extended_ = {*from, *from};
    }
    const auto [first, last] = std::minmax(*from, extended_->to);
    const auto [nextFirst, nextLast] = std::minmax(*from, at);
    for (std::size_t i = nextFirst; i < first; ++i) add(rows[i]);
    for (std::size_t i = last + 1; i <= nextLast; ++i) add(rows[i]);
    for (std::size_t i = first; i < nextFirst; ++i) remove(rows[i]);
    for (std::size_t i = nextLast + 1; i <= last; ++i) remove(rows[i]);
    extended_->to = at;
    moveCurrent(rows[at]);
}

void TimesheetSelection::selectAll(const Rows& rows) {
    for (const auto& row : rows) {
        if (!row.isHead()) ids_.insert(row.id.entry);
    }
    extended_.reset();
}

void TimesheetSelection::clear() {
    ids_.clear();
    anchor_.reset();
    current_.reset();
    place_.reset();
    extended_.reset();
}

void TimesheetSelection::clearKeepingPlace() {
    auto place = current_ ? std::optional(Spot{*current_, currentStart_}) : place_;
    clear();
    place_ = std::move(place);
}

/// The position from which a step in `direction` goes to the next line.
std::ptrdiff_t TimesheetSelection::startOfSteps(const Rows& rows, int direction) const {
    const auto count = static_cast<std::ptrdiff_t>(rows.size());
    const auto current = current_ ? positionOf(*current_, rows) : std::nullopt;
    if (current) return static_cast<std::ptrdiff_t>(*current);
    const auto gone = current_ ? std::optional(Spot{*current_, currentStart_}) : place_;
    if (!gone) return direction > 0 ? -1 : count;
    const auto next = std::partition_point(
        rows.begin(), rows.end(), [&](const TimesheetRow& row) { return gone->isBehind(row); });
    return next - rows.begin() - (direction > 0 ? 1 : 0);
}

std::optional<std::size_t> TimesheetSelection::stepFrom(const Rows& rows, int steps) const {
    if (rows.empty() || steps == 0) return std::nullopt;
    const int direction = steps > 0 ? 1 : -1;
    const auto count = static_cast<std::ptrdiff_t>(rows.size());
    const std::size_t farthest = direction > 0 ? rows.size() - 1 : 1;
    if (std::abs(steps) >= count) return farthest;
    std::ptrdiff_t at = startOfSteps(rows, direction);
    std::optional<std::size_t> reached;
    for (int left = std::abs(steps); left > 0;) {
        at += direction;
        if (at < 0 || at >= count) break;
        if (rows[static_cast<std::size_t>(at)].isHead()) continue;
        reached = static_cast<std::size_t>(at);
        --left;
    }
    return reached ? reached : farthest;
}

}  // namespace elmworth
