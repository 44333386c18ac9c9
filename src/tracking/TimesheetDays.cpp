// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetDays.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace elmworth {

namespace {

double shareOf(const TimesheetDay& day, Instant start, Instant end) {
    return std::max(0.0, secondsBetween(std::max(start, day.start), std::min(end, day.end)));
}

/// Puts entries into their days. They come newest first, mostly several in a day: the calendar is
/// asked once for each day.
class DayBuilder {
 public:
    DayBuilder(const DateInterval& range, Instant now, const Calendar& calendar)
        : range_(range), now_(now), calendar_(calendar) {}

    void add(const TimesheetPlace& place) {
        const auto& entry = place.entry();
        const Instant end = entry.end.value_or(now_);
        if (end <= entry.start) return;
        // What lies before the range is skipped at once, though it may be decades.
        auto day = dayOf(std::max(entry.start, range_.start));
        const Instant last = std::min(end, range_.end);
        while (day && day->start < last) {
            if (day->start >= range_.start) addTo(*day, place, end);
            if (day->end >= last) return;
            day = calendar_.interval(CalendarUnit::day, day->end);
        }
    }

    [[nodiscard]] std::vector<TimesheetDay> take() {
        std::vector<TimesheetDay> days;
        days.reserve(days_.size());
        for (auto& [start, day] : days_) days.push_back(std::move(day));
        return days;
    }

 private:
    [[nodiscard]] std::optional<DateInterval> dayOf(Instant instant) {
        if (known_ && known_->start <= instant && instant < known_->end) return known_;
        known_ = calendar_.interval(CalendarUnit::day, instant);
        return known_;
    }

    void addTo(const DateInterval& when, const TimesheetPlace& place, Instant end) {
        if (latest_ == nullptr || latest_->start != when.start) {
            latest_ = &days_[when.start];
            latest_->start = when.start;
            latest_->end = when.end;
        }
        latest_->entries.push_back(place);
        if (place.entry().isRunning()) {
            latest_->holdsRunning = true;
        } else {
            latest_->finishedSeconds += shareOf(*latest_, place.entry().start, end);
        }
    }

    DateInterval range_;
    Instant now_;
    const Calendar& calendar_;
    std::map<Instant, TimesheetDay, std::greater<>> days_;
    std::optional<DateInterval> known_;
    TimesheetDay* latest_ = nullptr;
};

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
    TimesheetListing listing{std::move(pieces), {}, {}};
    DayBuilder days(range, now, calendar);
    for (const auto& piece : listing.pieces) {
        if (!piece) continue;
        for (std::uint32_t i = 0; i < piece->size(); ++i) {
            if (!search.finds(piece->notes(i), piece->entry(i).project)) continue;
            const TimesheetPlace place{piece.get(), i};
            listing.entries.push_back(place);
            days.add(place);
        }
    }
    listing.days = days.take();
    return listing;
}

}  // namespace elmworth
