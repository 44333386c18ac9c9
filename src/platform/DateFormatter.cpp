// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DateFormatter.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <unordered_map>

#include "platform/ZoneOffsets.h"

namespace elmworth {
namespace {

icu::DateFormat* create(DateFormatter::Style style, const icu::Locale& locale, UErrorCode& status) {
    switch (style) {
        case DateFormatter::Style::mediumDate:
            return icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, locale);
        case DateFormatter::Style::shortTime:
            return icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale);
        case DateFormatter::Style::monthDay:
            return icu::DateFormat::createInstanceForSkeleton("MMMd", locale, status);
        case DateFormatter::Style::weekday:
            return icu::DateFormat::createInstanceForSkeleton("EEEE", locale, status);
        case DateFormatter::Style::weekdayMonthDay:
            return icu::DateFormat::createInstanceForSkeleton("EEEEMMMd", locale, status);
        case DateFormatter::Style::shortWeekday:
            return icu::DateFormat::createInstanceForSkeleton("EEE", locale, status);
        case DateFormatter::Style::fullDate:
            return icu::DateFormat::createDateInstance(icu::DateFormat::kFull, locale);
        case DateFormatter::Style::monthYear:
            return icu::DateFormat::createInstanceForSkeleton("yMMMM", locale, status);
        case DateFormatter::Style::dayOfMonth:
            return new icu::SimpleDateFormat("d", locale, status);
        case DateFormatter::Style::weekdayInitials:
            return new icu::SimpleDateFormat("cccccc", locale, status);
    }
    std::abort();
}

DateFormatter currentFormatter(DateFormatter::Style style) {
    return {style, Locale::current(), currentZoneID()};
}

}  // namespace

/// A time without a date depends on the minute of the day alone, a date on the day: those that a
/// screen or a report asks for again and again are few.
struct DateFormatter::Impl {
    std::unique_ptr<icu::DateFormat> format;
    ZoneOffsets offsets;
    bool showsTime;
    std::unordered_map<std::int64_t, std::string> texts;

    [[nodiscard]] std::int64_t keyOf(Instant instant) const {
        using namespace std::chrono;
        const auto local = floor<seconds>(instant) + seconds{offsets.secondsAt(instant)};
        const auto day = floor<days>(local);
        return showsTime ? floor<minutes>(local - day).count() : day.time_since_epoch().count();
    }
};

DateFormatter::DateFormatter(Style style, const Locale& locale, std::string_view zoneID)
    : impl_(new Impl{nullptr, ZoneOffsets(zoneID), style == Style::shortTime, {}}) {
    UErrorCode status = U_ZERO_ERROR;
    impl_->format.reset(create(style, icu::Locale(locale.identifier().c_str()), status));
    if (U_FAILURE(status) || !impl_->format) throw std::bad_alloc();
    impl_->format->adoptTimeZone(icu::TimeZone::createTimeZone(
        icu::UnicodeString::fromUTF8({zoneID.data(), static_cast<int>(zoneID.size())})));
}

DateFormatter::DateFormatter(DateFormatter&& other) noexcept = default;
DateFormatter& DateFormatter::operator=(DateFormatter&& other) noexcept = default;
DateFormatter::~DateFormatter() = default;

std::string DateFormatter::string(Instant instant) const {
    constexpr std::size_t mostTexts = 1440;  // the minutes of a day
    const std::int64_t key = impl_->keyOf(instant);
    if (const auto known = impl_->texts.find(key); known != impl_->texts.end()) {
        return known->second;
    }
    if (impl_->texts.size() >= mostTexts) impl_->texts.clear();
    return impl_->texts.emplace(key, format(instant)).first->second;
}

std::string DateFormatter::format(Instant instant) const {
    const auto date = std::chrono::floor<std::chrono::milliseconds>(instant);
    icu::UnicodeString text;
    impl_->format->format(static_cast<UDate>(date.time_since_epoch().count()), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

const DateFormatter& mediumDateFormatter() {
    static const DateFormatter formatter = currentFormatter(DateFormatter::Style::mediumDate);
    return formatter;
}

const DateFormatter& shortTimeFormatter() {
    static const DateFormatter formatter = currentFormatter(DateFormatter::Style::shortTime);
    return formatter;
}

}  // namespace elmworth
