// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DateFormatter.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <cstdlib>
#include <new>

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

}  // namespace

struct DateFormatter::Impl {
    std::unique_ptr<icu::DateFormat> format;
};

DateFormatter::DateFormatter(Style style, const Locale& locale, std::string_view zoneID)
    : impl_(std::make_unique<Impl>()) {
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
    const auto date = std::chrono::floor<std::chrono::milliseconds>(instant);
    icu::UnicodeString text;
    impl_->format->format(static_cast<UDate>(date.time_since_epoch().count()), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

}  // namespace elmworth
