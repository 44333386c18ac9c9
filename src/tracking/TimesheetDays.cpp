// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetDays.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <unordered_set>
#include <utility>

namespace elmworth {

namespace {

using Days = std::map<Instant, TimesheetDay, std::greater<>>;
using Place = TimesheetPlace;

double shareOf(const TimesheetDay& day, Instant start, Instant end) {
    return secondsWithin({day.start, day.end}, start, end);
}

/// Puts entries into their days. They come newest first, mostly several in a day.
class DayBuilder {
 public:
    DayBuilder(const DateInterval& range, Instant now, const Calendar& calendar)
        : range_(range), now_(now), cutter_(calendar) {}

    void add(const TimesheetPlace& place) {
        const auto& entry = place.entry();
        // What lies before the range is skipped at once, though it may be decades.
        const Instant start = std::max(entry.start, range_.start);
        const Instant end = std::min(entry.end.value_or(now_), range_.end);
        cutter_.cut(start, end, [&](const DateInterval& day, double /*seconds*/) {
            if (day.start >= range_.start) addTo(day, place);
        });
    }

    /// The days so far, with their entries in the order of their adding.
    [[nodiscard]] Days& days() noexcept { return days_; }

 private:
    void addTo(const DateInterval& when, const TimesheetPlace& place) {
        if (latest_ == nullptr || latest_->start != when.start) {
            latest_ = &days_[when.start];
            latest_->start = when.start;
            latest_->end = when.end;
        }
        latest_->entries.push_back(place);
    }

    DateInterval range_;
    Instant now_;
    DayCutter cutter_;
    Days days_;
    TimesheetDay* latest_ = nullptr;
};

std::shared_ptr<const TimesheetDay> summed(TimesheetDay day) {
    for (const auto& place : day.entries) {
        const auto& entry = place.entry();
        day.holdsRunning = day.holdsRunning || entry.isRunning();
        if (entry.end) day.finishedSeconds += shareOf(day, entry.start, *entry.end);
    }
    return std::make_shared<const TimesheetDay>(std::move(day));
}

/// Lists the entries that `search` finds in a piece.
class FoundEntries {
 public:
    FoundEntries(TimesheetListing& listing, DayBuilder& days, const TimesheetSearch& search)
        : listing_(listing), days_(days), search_(search) {}

    void add(const TimesheetPiece* piece) {
        const std::size_t size = piece == nullptr ? 0 : piece->size();
        for (std::uint32_t i = 0; i < size; ++i) {
            if (!search_.finds(piece->notes(i), piece->entry(i).project)) continue;
            listing_.entries.push_back({piece, i});
            days_.add({piece, i});
        }
        listing_.pieceEnds.push_back(listing_.entries.size());
    }

 private:
    TimesheetListing& listing_;
    DayBuilder& days_;
    const TimesheetSearch& search_;
};

std::span<const Place> entriesOf(const TimesheetListing& listing, std::size_t piece) {
    const std::size_t begin = piece == 0 ? 0 : listing.pieceEnds[piece - 1];
    return std::span(listing.entries).subspan(begin, listing.pieceEnds[piece] - begin);
}

using Gone = std::unordered_set<const TimesheetPiece*>;

/// The entries of a day without those of the pieces `gone`, merged with `added`.
std::vector<Place> mergedEntries(const std::vector<Place>& former, const Gone& gone,
                                 const std::vector<Place>& added) {
    std::vector<Place> kept;
    std::copy_if(former.begin(), former.end(), std::back_inserter(kept),
                 [&](const Place& place) { return !gone.contains(place.piece); });
    std::vector<Place> merged;
    merged.reserve(kept.size() + added.size());
    std::merge(kept.begin(), kept.end(), added.begin(), added.end(), std::back_inserter(merged),
               [](const Place& a, const Place& b) { return precedes(a.entry(), b.entry()); });
    return merged;
}

using DayList = std::vector<std::shared_ptr<const TimesheetDay>>;

/// The days of `former`, but each of `changed` made anew: without the pieces `gone`, and with its
/// own entries. Those without any entry are left out.
DayList mergedDays(const DayList& former, Days& changed, const Gone& gone) {
    DayList days;
    days.reserve(former.size() + changed.size());
    auto next = changed.begin();
    const auto place = [&](const TimesheetDay* old) {
        TimesheetDay day = std::move(next++->second);
        if (old != nullptr) day.entries = mergedEntries(old->entries, gone, day.entries);
        if (!day.entries.empty()) days.push_back(summed(std::move(day)));
    };
    for (const auto& day : former) {
        while (next != changed.end() && next->first > day->start) place(nullptr);
        if (next != changed.end() && next->first == day->start) {
            place(day.get());
        } else {
            days.push_back(day);
        }
    }
    while (next != changed.end()) place(nullptr);
    return days;
}

}  // namespace

double TimesheetDay::seconds(Instant now) const {
    double seconds = finishedSeconds;
    if (!holdsRunning) return seconds;
    for (const auto& place : entries) {
        if (place.entry().isRunning()) seconds += shareOf(*this, place.entry().start, now);
    }
    return seconds;
}

TimesheetListing listTimesheet(std::vector<std::shared_ptr<const TimesheetPiece>> pieces,
                               const DateInterval& range, Instant now, const Calendar& calendar,
                               const TimesheetSearch& search) {
    TimesheetListing listing{std::move(pieces), {}, {}, {}, now};
    DayBuilder days(range, now, calendar);
    FoundEntries found(listing, days, search);
    for (const auto& piece : listing.pieces) found.add(piece.get());
    listing.days.reserve(days.days().size());
    for (auto& [start, day] : days.days()) listing.days.push_back(summed(std::move(day)));
    return listing;
}

TimesheetListing relistTimesheet(const TimesheetListing& former,
                                 std::vector<std::shared_ptr<const TimesheetPiece>> pieces,
                                 const DateInterval& range, Instant now, const Calendar& calendar,
                                 const TimesheetSearch& search) {
    // After the clock was set back, a running entry keeps the days that it had reached.
    TimesheetListing listing{std::move(pieces), {}, {}, {}, std::max(now, former.now)};
    listing.entries.reserve(former.entries.size());
    Gone gone;
    DayBuilder formerDays(range, former.now, calendar);
    DayBuilder days(range, now, calendar);
    FoundEntries found(listing, days, search);
    for (std::size_t i = 0; i < listing.pieces.size(); ++i) {
        const auto formerEntries = entriesOf(former, i);
        if (listing.pieces[i] == former.pieces[i]) {
            listing.entries.insert(listing.entries.end(), formerEntries.begin(),
                                   formerEntries.end());
            listing.pieceEnds.push_back(listing.entries.size());
            continue;
        }
        gone.insert(former.pieces[i].get());
        for (const auto& place : formerEntries) formerDays.add(place);
        found.add(listing.pieces[i].get());
    }
    Days& changed = days.days();
    for (const auto& [start, day] : formerDays.days()) {
        changed.try_emplace(start, TimesheetDay{day.start, day.end, {}});
    }
    listing.days = mergedDays(former.days, changed, gone);
    return listing;
}

}  // namespace elmworth
