// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetReader.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace elmworth {

namespace {

/// Longer periods are read in several pieces.
constexpr std::chrono::days longestPiece{366};
/// Of those, so that one is read within a fraction of a frame.
constexpr std::chrono::days pieceLength{61};
/// The entries of a client with more projects are picked one by one, and not by the library.
constexpr std::size_t mostNamedProjects = 100;

/// The last bound before `instant`. Bounds don't depend on what the library holds, so a piece that
/// is read again replaces its former reading.
Instant boundBefore(Instant instant) {
    const auto pieces = (instant - std::chrono::microseconds(1)).time_since_epoch() / pieceLength;
    const Instant bound = Instant(pieces * pieceLength);
    return bound < instant ? bound : bound - pieceLength;
}

/// The start of the first entry that began before `end`, but not before `start`; `end` without one.
Instant firstStart(UnitOfWork& context, Instant start, Instant end) {
    const auto first = context.fetch(Query<TimeEntry>{
        .predicate = key<&TimeEntry::start>() >= start && key<&TimeEntry::start>() < end,
        .sortBy = {sortedBy<&TimeEntry::start>()},
        .fetchLimit = 1});
    return first.empty() ? end : first.front()->start.get();
}

Instant lastStart(UnitOfWork& context, Instant start, Instant end) {
    const auto last = context.fetch(Query<TimeEntry>{
        .predicate = key<&TimeEntry::start>() >= start && key<&TimeEntry::start>() < end,
        .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)},
        .fetchLimit = 1});
    return last.empty() ? start : last.front()->start.get();
}

bool startsLater(const Ref<TimeEntry>& a, const Ref<TimeEntry>& b) {
    return std::pair(b->start.get(), b->id()) < std::pair(a->start.get(), a->id());
}

}  // namespace

void TimesheetPiece::add(const TimeEntry& entry) {
    entries_.push_back(TimesheetEntry::of(entry));
    notes_ += entry.notes.get();
    noteEnds_.push_back(notes_.size());
}

std::string_view TimesheetPiece::notes(std::size_t i) const {
    if (!laterNotes_.empty()) {
        if (const auto later = laterNotes_.find(i); later != laterNotes_.end()) {
            return later->second;
        }
    }
    const std::size_t begin = i == 0 ? 0 : noteEnds_[i - 1];
    return std::string_view(notes_).substr(begin, noteEnds_[i] - begin);
}

std::optional<std::size_t> TimesheetPiece::find(Instant start, const PersistentID& id) const {
    const auto found =
        std::partition_point(entries_.begin(), entries_.end(), [&](const TimesheetEntry& entry) {
            return std::tie(start, id) < std::tie(entry.start, entry.id);
        });
    if (found == entries_.end() || found->id != id) return std::nullopt;
    return static_cast<std::size_t>(found - entries_.begin());
}

bool TimesheetPiece::holdsAnyOf(const IDs& ids) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&](const TimesheetEntry& entry) { return ids.contains(entry.id); });
}

void TimesheetPiece::setNotes(std::size_t i, std::string notes) {
    laterNotes_[i] = std::move(notes);
}

void TimesheetPiece::copy(const TimesheetPiece& other, std::size_t i) {
    entries_.push_back(other.entry(i));
    notes_ += other.notes(i);
    noteEnds_.push_back(notes_.size());
}

TimesheetPiece TimesheetPiece::edited(const IDs& ids, std::vector<Ref<TimeEntry>> added) const {
    std::sort(added.begin(), added.end(), startsLater);
    TimesheetPiece piece;
    auto next = added.begin();
    for (std::size_t i = 0; i < size(); ++i) {
        if (ids.contains(entry(i).id)) continue;
        while (next != added.end() && precedes(TimesheetEntry::of(**next), entry(i))) {
            piece.add(**next++);
        }
        piece.copy(*this, i);
    }
    while (next != added.end()) piece.add(**next++);
    return piece;
}

TimesheetReader::TimesheetReader(UnitOfWork& context, TimesheetFilter filter, Instant now)
    : context_(context), filter_(std::move(filter)), now_(now) {
    if (filter_.client && !filter_.project) clientProjects_ = filter_.client->projects();
    const auto [from, to] = filter_.range;
    bounds_.push_back(to);
    if (to - from > longestPiece) {
        const Instant first = firstStart(context_, from, to);
        // Years without entries at the recent end of the period get no pieces of their own.
        for (Instant bound = boundBefore(lastStart(context_, from, to)); bound > first;
             bound -= pieceLength) {
            bounds_.push_back(bound);
        }
        mayBeginBefore_ = firstStart(context_, Instant::min(), from) < from;
    }
    bounds_.push_back(from);
}

std::size_t TimesheetReader::pieceOf(Instant start) const {
    const auto begin = std::find_if(bounds_.begin() + 1, bounds_.end(),
                                    [&](Instant bound) { return bound <= start; });
    return static_cast<std::size_t>(begin - bounds_.begin()) - 1;
}

/// With the filter's other conditions, as far as the library can check them. Absent when nothing
/// can meet them.
std::optional<Predicate<TimeEntry>> TimesheetReader::narrowed(
    Predicate<TimeEntry> predicate) const {
    if (filter_.unbilledOnly) predicate = predicate && key<&TimeEntry::invoice>() == absent;
    if (filter_.project) return predicate && key<&TimeEntry::project>() == filter_.project;
    if (!filter_.client || clientProjects_.size() > mostNamedProjects) return predicate;
    if (clientProjects_.empty()) return std::nullopt;
    auto isOfClient = key<&TimeEntry::project>() == clientProjects_.front();
    for (std::size_t i = 1; i < clientProjects_.size(); ++i) {
        isOfClient = isOfClient || key<&TimeEntry::project>() == clientProjects_[i];
    }
    return predicate && isOfClient;
}

std::optional<Predicate<TimeEntry>> TimesheetReader::begunWithin(Instant from, Instant to) const {
    return narrowed(key<&TimeEntry::start>() >= from && key<&TimeEntry::start>() < to);
}

std::shared_ptr<TimesheetPiece> TimesheetReader::read(std::size_t i) const {
    auto piece = std::make_shared<TimesheetPiece>();
    const auto predicate = begunWithin(bounds_[i + 1], bounds_[i]);
    if (!predicate) return piece;
    context_.forEach<TimeEntry>(
        {.predicate = predicate, .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)}},
        [&](const TimeEntry& entry) {
            if (filter_.admits(entry, now_)) piece->add(entry);
        });
    return piece;
}

TimesheetReader::Entries TimesheetReader::readBegunBefore(std::size_t i) const {
    return begunBefore(bounds_[i + 1], i > 0 ? std::optional(bounds_[i]) : std::nullopt);
}

/// Those that end after `from` and not after `to`, or else run.
TimesheetReader::Entries TimesheetReader::begunBefore(Instant from,
                                                      std::optional<Instant> to) const {
    Entries entries;
    if (!mayBeginBefore_) return entries;
    const auto reaching = key<&TimeEntry::end>() > from;
    addBegunBefore(to ? reaching && key<&TimeEntry::end>() <= *to : reaching, entries);
    if (!to) addBegunBefore(key<&TimeEntry::end>() == absent, entries);
    return entries;
}

void TimesheetReader::addBegunBefore(const Predicate<TimeEntry>& reaching, Entries& entries) const {
    // They are few among all that end later, of which only an index is read.
    std::vector<PersistentID> ids;
    context_.forEachValues<&TimeEntry::start>(
        std::optional(key<&TimeEntry::start>() < filter_.range.start && reaching),
        [&](const PersistentID& id, Instant) { ids.push_back(id); });
    for (const auto& id : ids) {
        auto entry = context_.record<TimeEntry>(id);
        if (entry && filter_.admits(*entry, now_)) entries.push_back(std::move(entry));
    }
}

TimesheetReader::Entries TimesheetReader::entries() const {
    const auto [from, to] = filter_.range;
    auto entries = begunBefore(from, std::nullopt);
    if (auto predicate = begunWithin(from, to)) {
        std::ranges::move(context_.fetch(Query<TimeEntry>{.predicate = std::move(predicate)}),
                          std::back_inserter(entries));
    }
    const TimesheetSearch search(filter_.search);
    std::erase_if(entries, [&](const auto& entry) {
        return !filter_.admits(*entry, now_) || !search.finds(entry->notes.get(), entry->project);
    });
    std::sort(entries.begin(), entries.end(), startsLater);
    return entries;
}

void TimesheetReader::forEach(const std::function<void(const TimeEntry&)>& visit) const {
    const auto [from, to] = filter_.range;
    const TimesheetSearch search(filter_.search);
    const auto visitIfShown = [&](const TimeEntry& entry) {
        if (!filter_.admits(entry, now_)) return;
        if (search.finds(entry.notes.get(), entry.project)) visit(entry);
    };
    // Kept meanwhile, so that each is read once and not again for every entry.
    const auto projects = context_.fetch<Project>();
    const auto clients = context_.fetch<Client>();
    auto former = begunBefore(from, std::nullopt);
    std::sort(former.rbegin(), former.rend(), startsLater);
    for (const auto& entry : former) visitIfShown(*entry);
    const auto predicate = begunWithin(from, to);
    if (!predicate) return;
    context_.forEach<TimeEntry>({.predicate = predicate, .sortBy = {sortedBy<&TimeEntry::start>()}},
                                visitIfShown);
}

}  // namespace elmworth
