// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetReader.h"

#include <algorithm>
#include <chrono>
#include <tuple>
#include <utility>

namespace elmworth {

namespace {

constexpr std::chrono::days pieceLength{366};

/// The last bound before `instant`. Pieces begin at the same instants whatever the library holds,
/// so that one can take the place of its former reading.
Instant boundBefore(Instant instant) {
    const auto pieces = (instant - std::chrono::microseconds(1)).time_since_epoch() / pieceLength;
    const Instant bound = Instant(pieces * pieceLength);
    return bound < instant ? bound : bound - pieceLength;
}

Predicate<TimeEntry> narrowed(Predicate<TimeEntry> predicate, const TimesheetFilter& filter) {
    if (filter.unbilledOnly) predicate = predicate && key<&TimeEntry::invoice>() == absent;
    if (filter.project) predicate = predicate && key<&TimeEntry::project>() == filter.project;
    return predicate;
}

/// The start of the first entry that began before `end`, but not before `start`; `end` without one.
Instant firstStart(ModelContext& context, Instant start, Instant end) {
    const auto first = context.fetch(FetchDescriptor<TimeEntry>{
        .predicate = key<&TimeEntry::start>() >= start && key<&TimeEntry::start>() < end,
        .sortBy = {sortedBy<&TimeEntry::start>()},
        .fetchLimit = 1});
    return first.empty() ? end : first.front()->start.get();
}

Instant lastStart(ModelContext& context, Instant start, Instant end) {
    const auto last = context.fetch(FetchDescriptor<TimeEntry>{
        .predicate = key<&TimeEntry::start>() >= start && key<&TimeEntry::start>() < end,
        .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)},
        .fetchLimit = 1});
    return last.empty() ? start : last.front()->start.get();
}

}  // namespace

void TimesheetPiece::add(const TimeEntry& entry) {
    entries_.push_back(TimesheetEntry::of(entry));
    notes_ += entry.notes.get();
    noteEnds_.push_back(notes_.size());
}

std::string_view TimesheetPiece::notes(std::size_t i) const {
    const std::size_t begin = i == 0 ? 0 : noteEnds_[i - 1];
    return std::string_view(notes_).substr(begin, noteEnds_[i] - begin);
}

TimesheetReader::TimesheetReader(ModelContext& context, TimesheetFilter filter, Instant now)
    : context_(context), filter_(std::move(filter)), now_(now) {
    const auto [from, to] = filter_.range;
    bounds_.push_back(to);
    if (to - from > pieceLength) {
        const Instant first = firstStart(context_, from, to);
        // Years without any time at the new end of the period are no pieces of their own.
        for (Instant bound = boundBefore(lastStart(context_, from, to)); bound > first;
             bound -= pieceLength) {
            bounds_.push_back(bound);
        }
    }
    bounds_.push_back(from);
}

std::shared_ptr<const TimesheetPiece> TimesheetReader::read(std::size_t i) const {
    auto piece = std::make_shared<TimesheetPiece>();
    const auto add = [&](const TimeEntry& entry) {
        if (filter_.admits(entry, now_)) piece->add(entry);
    };
    if (i + 1 < bounds_.size()) {
        visitBegunIn({bounds_[i + 1], bounds_[i]}, add);
    } else {
        visitBegunBefore(add);
    }
    return piece;
}

void TimesheetReader::visitBegunIn(const DateInterval& span,
                                   const std::function<void(const TimeEntry&)>& visit) const {
    context_.forEach<TimeEntry>({.predicate = narrowed(key<&TimeEntry::start>() >= span.start &&
                                                           key<&TimeEntry::start>() < span.end,
                                                       filter_),
                                 .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)}},
                                visit);
}

void TimesheetReader::visitBegunBefore(const std::function<void(const TimeEntry&)>& visit) const {
    const Instant from = filter_.range.start;
    auto entries = context_.fetch(FetchDescriptor<TimeEntry>{
        .predicate =
            narrowed((key<&TimeEntry::start>() < from && key<&TimeEntry::end>() > from) ||
                         (key<&TimeEntry::start>() < from && key<&TimeEntry::end>() == absent),
                     filter_)});
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return std::pair(b->start.get(), b->persistentModelID()) <
               std::pair(a->start.get(), a->persistentModelID());
    });
    for (const auto& entry : entries) visit(*entry);
}

}  // namespace elmworth
