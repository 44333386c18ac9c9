// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Calendar.h"

#include <unicode/calendar.h>
#include <unicode/timezone.h>

#include <cmath>
#include <cstdlib>
#include <new>
#include <utility>

#include "platform/ZoneOffsets.h"

namespace elmworth {
namespace {

using std::chrono::milliseconds;

/// ICU counts in milliseconds; the rest below one is carried around it.
UDate toUDate(Instant instant) {
    return static_cast<UDate>(std::chrono::floor<milliseconds>(instant).time_since_epoch().count());
}

std::optional<Instant> toInstant(UDate date, UErrorCode status) {
    constexpr double farthest = 9.2e15;  // what 64 bits of microseconds hold, in milliseconds
    if (U_FAILURE(status) || !(std::abs(date) < farthest)) return std::nullopt;
    return Instant(milliseconds(static_cast<std::int64_t>(date)));
}

struct Step {
    UCalendarDateFields field;
    int limit;  ///< beyond it no `Instant` is reached and ICU's own arithmetic would overflow
};

Step stepOf(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::day:
            return {UCAL_DATE, 250'000'000};
        case CalendarUnit::weekOfYear:
            return {UCAL_WEEK_OF_YEAR, 35'000'000};
        case CalendarUnit::month:
            return {UCAL_MONTH, 12'000'000};
        case CalendarUnit::year:
            return {UCAL_YEAR, 1'000'000};
    }
    std::abort();
}

bool isOnClock(int hour, int minute, int second) {
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

std::unique_ptr<icu::TimeZone> makeZone(std::string_view zoneID) {
    const auto id = icu::UnicodeString::fromUTF8({zoneID.data(), static_cast<int>(zoneID.size())});
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(id));
    if (*zone != icu::TimeZone::getUnknown()) return zone;
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::createTimeZone("UTC"));
}

std::unique_ptr<icu::Calendar> makeCalendar(const Locale& locale, std::string_view zoneID) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(
        makeZone(zoneID).release(), icu::Locale(locale.identifier().c_str()), status));
    if (U_FAILURE(status)) throw std::bad_alloc();  // with ICU's data linked in, nothing else fails
    calendar->setLenient(true);
    calendar->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    return calendar;
}

}  // namespace

/// An ICU calendar is a cursor: it stands at an instant, and setting fields moves it.
struct Calendar::Impl {
    std::unique_ptr<icu::Calendar> cursor;
    std::string zoneID;

    explicit Impl(std::unique_ptr<icu::Calendar> calendar) : cursor(std::move(calendar)) {
        icu::UnicodeString id;
        cursor->getTimeZone().getID(id).toUTF8String(zoneID);
    }

    void moveTo(Instant instant) const {
        UErrorCode status = U_ZERO_ERROR;
        cursor->setTime(toUDate(instant), status);
    }

    [[nodiscard]] int get(UCalendarDateFields field) const {
        UErrorCode status = U_ZERO_ERROR;
        return cursor->get(field, status);
    }

    /// To the first instant of the day `days` further on the calendar page, which lenient fields
    /// carry into the next month.
    void moveToStartOfDay(int days = 0) const {
        cursor->set(UCAL_DATE, get(UCAL_DATE) + days);
        cursor->set(UCAL_MILLISECONDS_IN_DAY, 0);
    }

    void moveToStartOf(CalendarUnit unit) const {
        UErrorCode status = U_ZERO_ERROR;
        const int intoWeek = get(UCAL_DAY_OF_WEEK) - cursor->getFirstDayOfWeek(status);
        if (unit == CalendarUnit::weekOfYear) return moveToStartOfDay(-((intoWeek + 7) % 7));
        if (unit == CalendarUnit::month) cursor->set(UCAL_DATE, 1);
        if (unit == CalendarUnit::year) cursor->set(UCAL_DAY_OF_YEAR, 1);
        cursor->set(UCAL_MILLISECONDS_IN_DAY, 0);
    }

    /// From the start of a period to the start of the next one.
    void moveToNext(CalendarUnit unit) const {
        if (unit == CalendarUnit::day) return moveToStartOfDay(1);
        if (unit == CalendarUnit::weekOfYear) return moveToStartOfDay(7);
        UErrorCode status = U_ZERO_ERROR;
        cursor->add(stepOf(unit).field, 1, status);
        moveToStartOfDay();
    }

    [[nodiscard]] std::optional<Instant> atTime(int hour, int minute, int second) const {
        if (!isOnClock(hour, minute, second)) return std::nullopt;
        cursor->set(UCAL_MILLISECONDS_IN_DAY, ((hour * 60 + minute) * 60 + second) * 1000);
        return instant();
    }

    [[nodiscard]] std::optional<Instant> instant() const {
        UErrorCode status = U_ZERO_ERROR;
        const UDate date = cursor->getTime(status);
        return toInstant(date, status);
    }
};

Calendar::Calendar(const Locale& locale, std::string_view zoneID)
    : impl_(std::make_unique<Impl>(makeCalendar(locale, zoneID))) {}

Calendar Calendar::current() {
    return {Locale::current(), currentZoneID()};
}

Calendar::Calendar(const Calendar& other)
    : impl_(std::make_unique<Impl>(std::unique_ptr<icu::Calendar>(other.impl_->cursor->clone()))) {}
Calendar& Calendar::operator=(const Calendar& other) {
    return *this = Calendar(other);
}
Calendar::Calendar(Calendar&& other) noexcept = default;
Calendar& Calendar::operator=(Calendar&& other) noexcept = default;
Calendar::~Calendar() = default;

const std::string& Calendar::zoneID() const noexcept {
    return impl_->zoneID;
}

Instant Calendar::startOfDay(Instant instant) const {
    impl_->moveTo(instant);
    impl_->moveToStartOfDay();
    return impl_->instant().value_or(instant);
}

std::optional<Instant> Calendar::adding(int value, CalendarUnit unit, Instant instant) const {
    const auto [field, limit] = stepOf(unit);
    if (value < -limit || value > limit) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    impl_->moveTo(instant);
    impl_->cursor->add(field, value, status);
    // Said again as a wall-clock time, a repeated one becomes its first occurrence.
    impl_->cursor->set(UCAL_MILLISECONDS_IN_DAY, impl_->get(UCAL_MILLISECONDS_IN_DAY));
    const auto moved = impl_->instant();
    if (U_FAILURE(status) || !moved) return std::nullopt;
    return *moved + (instant - std::chrono::floor<milliseconds>(instant));
}

std::optional<DateInterval> Calendar::interval(CalendarUnit unit, Instant instant) const {
    impl_->moveTo(instant);
    impl_->moveToStartOf(unit);
    const auto start = impl_->instant();
    impl_->moveToNext(unit);
    const auto end = impl_->instant();
    if (!start || !end) return std::nullopt;
    return DateInterval{*start, *end};
}

DateComponents Calendar::components(Instant instant) const {
    impl_->moveTo(instant);
    return {
        .year = impl_->get(UCAL_YEAR),
        .month = impl_->get(UCAL_MONTH) + 1,
        .day = impl_->get(UCAL_DATE),
        .hour = impl_->get(UCAL_HOUR_OF_DAY),
        .minute = impl_->get(UCAL_MINUTE),
        .second = impl_->get(UCAL_SECOND),
        .weekday = impl_->get(UCAL_DAY_OF_WEEK),
    };
}

std::optional<Instant> Calendar::date(const DateComponents& wanted) const {
    constexpr int farthestYear = 300'000;
    constexpr int mostMonths = 13;
    if (std::abs(wanted.year) > farthestYear || wanted.month < 1 || wanted.month > mostMonths)
        return std::nullopt;
    // Noon is where a calendar page is looked up: no time-zone change moves it to another day.
    impl_->cursor->clear();
    impl_->cursor->set(wanted.year, wanted.month - 1, wanted.day, 12, 0, 0);
    if (impl_->get(UCAL_YEAR) != wanted.year || impl_->get(UCAL_MONTH) + 1 != wanted.month ||
        impl_->get(UCAL_DATE) != wanted.day)
        return std::nullopt;
    return impl_->atTime(wanted.hour, wanted.minute, wanted.second);
}

std::optional<Instant> Calendar::settingTime(int hour, int minute, int second, Instant day) const {
    impl_->moveTo(day);
    return impl_->atTime(hour, minute, second);
}

int Calendar::daysBetween(Instant from, Instant to) const {
    // From noon to noon a change of daylight saving time never rounds to another number of days,
    // and a day that the zone skipped is not counted.
    const auto noon = [this](Instant day) { return settingTime(12, 0, 0, day).value_or(day); };
    const auto days = std::chrono::round<std::chrono::days>(noon(to) - noon(from));
    return static_cast<int>(days.count());
}

int Calendar::secondsFromUTC(Instant instant) const {
    impl_->moveTo(instant);
    return (impl_->get(UCAL_ZONE_OFFSET) + impl_->get(UCAL_DST_OFFSET)) / 1000;
}

}  // namespace elmworth
