// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/TimeInput.h"

#include <unicode/dtfmtsym.h>
#include <unicode/fpositer.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <new>

#include "platform/DigitRuns.h"
#include "platform/Text.h"

namespace elmworth {
namespace {

constexpr double millisecondsInMinute = 60'000;

std::optional<DatePart> partOf(int field) {
    switch (field) {
        case UDAT_HOUR_OF_DAY0_FIELD:
        case UDAT_HOUR_OF_DAY1_FIELD:
        case UDAT_HOUR0_FIELD:
        case UDAT_HOUR1_FIELD:
            return DatePart::hour;
        case UDAT_MINUTE_FIELD:
            return DatePart::minute;
        case UDAT_AM_PM_FIELD:
        case UDAT_AM_PM_MIDNIGHT_NOON_FIELD:
        case UDAT_FLEXIBLE_DAY_PERIOD_FIELD:
            return DatePart::dayPeriod;
        default:
            return std::nullopt;
    }
}

std::unique_ptr<icu::SimpleDateFormat> makeShort(const icu::Locale& locale) {
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale));
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
    if (!simple) throw std::bad_alloc();
    (void)format.release();
    simple->adoptTimeZone(icu::TimeZone::createTimeZone("UTC"));
    simple->setLenient(false);
    return std::unique_ptr<icu::SimpleDateFormat>(simple);
}

std::u16string joined(const std::vector<std::u16string>& words) {
    std::u16string all;
    for (const auto& word : words) all += word;
    return all;
}

std::u16string wordsOf(const icu::UnicodeString& text) {
    std::string utf8;
    return joined(DigitRuns::of(text.toUTF8String(utf8)).words);
}

/// Two numbers are hours and minutes; one is hours, or both without a separator.
std::optional<ClockTime> clockTime(const std::vector<DigitRuns::Number>& numbers,
                                   int fewestDigits) {
    constexpr int mostDigits = 4;
    ClockTime time;
    if (numbers.size() == 2) {
        if (numbers[0].digits > 2 || numbers[1].digits > 2 || numbers[1].digits < fewestDigits)
            return std::nullopt;
        time = {numbers[0].value, numbers[1].value};
    } else if (numbers.size() == 1 && numbers[0].digits <= mostDigits) {
        const bool hasMinutes = numbers[0].digits > 2;
        time = {hasMinutes ? numbers[0].value / 100 : numbers[0].value,
                hasMinutes ? numbers[0].value % 100 : 0};
    } else {
        return std::nullopt;
    }
    return time.hour < 24 && time.minute < 60 ? std::optional(time) : std::nullopt;
}

}  // namespace

struct TimeInput::Impl {
    explicit Impl(const Locale& locale)
        : shortFormat(makeShort(icu::Locale(locale.identifier().c_str()))) {
        std::string utf8;
        fewestDigits =
            DigitRuns::of(format({0, 5}, nullptr).toUTF8String(utf8)).numbers.back().digits;
        int count = 0;
        const auto* halves = shortFormat->getDateFormatSymbols()->getAmPmStrings(count);
        morning = {u"am", u"a"};
        afternoon = {u"pm", u"p"};
        if (count == 2) {
            morning.push_back(wordsOf(halves[0]));
            afternoon.push_back(wordsOf(halves[1]));
        }
    }

    [[nodiscard]] icu::UnicodeString format(ClockTime time,
                                            icu::FieldPositionIterator* fields) const {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString text;
        return shortFormat->format((time.hour * 60 + time.minute) * millisecondsInMinute, text,
                                   fields, status);
    }

    /// The locale's own writing, whatever it is.
    [[nodiscard]] std::optional<ClockTime> ownTime(std::string_view typed) const {
        const auto text =
            icu::UnicodeString::fromUTF8({typed.data(), static_cast<int>(typed.size())});
        icu::ParsePosition position(0);
        const UDate date = shortFormat->parse(text, position);
        if (position.getIndex() == 0 || position.getIndex() < text.length()) return std::nullopt;
        const int minutes = static_cast<int>(date / millisecondsInMinute);
        if (minutes < 0 || minutes >= 24 * 60) return std::nullopt;
        return ClockTime{minutes / 60, minutes % 60};
    }

    std::unique_ptr<icu::SimpleDateFormat> shortFormat;
    std::vector<std::u16string> morning;  ///< words for the halves of the day
    int fewestDigits = 2;                 ///< of minutes
    std::vector<std::u16string> afternoon;
};

TimeInput::TimeInput(const Locale& locale) : impl_(std::make_unique<Impl>(locale)) {}
TimeInput::TimeInput(TimeInput&& other) noexcept = default;
TimeInput& TimeInput::operator=(TimeInput&& other) noexcept = default;
TimeInput::~TimeInput() = default;

std::string TimeInput::text(ClockTime time) const {
    std::string utf8;
    return impl_->format(time, nullptr).toUTF8String(utf8);
}

std::vector<DatePartSpan> TimeInput::parts(ClockTime time) const {
    icu::FieldPositionIterator fields;
    (void)impl_->format(time, &fields);
    std::vector<DatePartSpan> spans;
    for (icu::FieldPosition field; fields.next(field) != 0;) {
        const auto part = partOf(field.getField());
        if (part) spans.push_back({*part, field.getBeginIndex(), field.getEndIndex()});
    }
    std::sort(spans.begin(), spans.end(),
              [](const auto& a, const auto& b) { return a.begin < b.begin; });
    return spans;
}

std::optional<ClockTime> TimeInput::time(std::string_view typed) const {
    const std::string_view text = trimmedWhitespace(typed);
    const auto [numbers, words, isReadable] = DigitRuns::of(text);
    if (!isReadable) return std::nullopt;
    const auto isOneOf = [word = joined(words)](const auto& known) {
        return std::find(known.begin(), known.end(), word) != known.end();
    };
    const bool isMorning = isOneOf(impl_->morning);
    const bool isAfternoon = isOneOf(impl_->afternoon);
    const bool hasOtherWord = !words.empty() && joined(words) != u"h";
    if (!isMorning && !isAfternoon && hasOtherWord) return impl_->ownTime(text);
    auto time = clockTime(numbers, impl_->fewestDigits);
    if (!time || (!isMorning && !isAfternoon)) return time;
    if (time->hour > 12) return std::nullopt;
    time->hour = time->hour % 12 + (isAfternoon ? 12 : 0);
    return time;
}

}  // namespace elmworth
