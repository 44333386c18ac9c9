// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DateInput.h"

#include <unicode/dtptngen.h>
#include <unicode/fpositer.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <new>

#include "platform/DigitRuns.h"
#include "platform/Text.h"

namespace elmworth {
namespace {

using Format = std::unique_ptr<icu::SimpleDateFormat>;

constexpr int lastYear = 9999;
constexpr UDate farthest = 1e15;  // milliseconds, well beyond that year

/// Days are looked up at noon in UTC, where every one of them exists.
constexpr const char* zone = "UTC";

std::optional<DatePart> partOf(int field) {
    switch (field) {
        case UDAT_YEAR_FIELD:
        case UDAT_EXTENDED_YEAR_FIELD:
            return DatePart::year;
        case UDAT_MONTH_FIELD:
        case UDAT_STANDALONE_MONTH_FIELD:
            return DatePart::month;
        case UDAT_DATE_FIELD:
            return DatePart::day;
        default:
            return std::nullopt;
    }
}

/// The year in full: "yy" becomes "y".
icu::UnicodeString withWholeYear(const icu::UnicodeString& pattern) {
    icu::UnicodeString whole;
    for (int i = 0; i < pattern.length(); ++i) {
        if (pattern[i] != u'y' || i == 0 || pattern[i - 1] != u'y') whole.append(pattern[i]);
    }
    return whole;
}

Format make(const icu::UnicodeString& pattern, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    if (U_FAILURE(status)) throw std::bad_alloc();
    format->adoptTimeZone(icu::TimeZone::createTimeZone(zone));
    format->setLenient(false);
    return format;
}

Format makeShort(const icu::Locale& locale) {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
    const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
    if (!simple) throw std::bad_alloc();
    icu::UnicodeString pattern;
    return make(withWholeYear(simple->toPattern(pattern)), locale);
}

/// "Mar 2, 2026" and the like.
std::vector<Format> makeNamed(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) throw std::bad_alloc();
    std::vector<Format> formats;
    for (const char* skeleton : {"yMMMd", "yMMMMd", "MMMd", "MMMMd"}) {
        formats.push_back(make(generator->getBestPattern(skeleton, status), locale));
    }
    return formats;
}

UDate udate(Instant instant) {
    const auto date = std::chrono::floor<std::chrono::milliseconds>(instant);
    return static_cast<UDate>(date.time_since_epoch().count());
}

Instant instant(UDate date) {
    return Instant(std::chrono::milliseconds(static_cast<std::int64_t>(date)));
}

/// A year of two digits is the one nearest to now in people's minds: rather past than to come.
int wholeYear(int typed, int reference) {
    const int year = reference - reference % 100 + typed;
    if (year > reference + 20) return year - 100;
    return year <= reference - 80 ? year + 100 : year;
}

}  // namespace

struct DateInput::Impl {
    explicit Impl(const Locale& locale)
        : calendar(locale, zone),
          shortFormat(makeShort(icu::Locale(locale.identifier().c_str()))),
          named(makeNamed(icu::Locale(locale.identifier().c_str()))) {
        const DateComponents anyDay = calendar.components(Instant{});
        for (const auto& span : spansOf(anyDay)) order.push_back(span.part);
        icu::UnicodeString text = format(anyDay, nullptr);
        std::string utf8;
        ownWords = DigitRuns::of(text.toUTF8String(utf8)).words;
        hasOwnDashes = text.indexOf(u'-') >= 0;
    }

    [[nodiscard]] icu::UnicodeString format(const DateComponents& day,
                                            icu::FieldPositionIterator* fields) const {
        const auto noon = calendar.date({day.year, day.month, day.day, 12});
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString text;
        return shortFormat->format(udate(noon.value_or(Instant{})), text, fields, status);
    }

    [[nodiscard]] std::vector<DatePartSpan> spansOf(const DateComponents& day) const {
        icu::FieldPositionIterator fields;
        (void)format(day, &fields);
        std::vector<DatePartSpan> spans;
        for (icu::FieldPosition field; fields.next(field) != 0;) {
            const auto part = partOf(field.getField());
            if (part) spans.push_back({*part, field.getBeginIndex(), field.getEndIndex()});
        }
        std::sort(spans.begin(), spans.end(),
                  [](const auto& a, const auto& b) { return a.begin < b.begin; });
        return spans;
    }

    /// `day` as a day of `calendar`; absent when that has no such day.
    [[nodiscard]] static std::optional<DateComponents> checked(const Calendar& calendar,
                                                               const DateComponents& day) {
        if (day.year < 1 || day.year > lastYear) return std::nullopt;
        const auto noon = calendar.date({day.year, day.month, day.day, 12});
        return noon ? std::optional(calendar.components(*noon)) : std::nullopt;
    }

    [[nodiscard]] std::optional<DateComponents> isoDay(
        const std::vector<DigitRuns::Number>& numbers) const {
        const Calendar gregorian(Locale("en_US"), zone);
        const auto day = checked(gregorian, {numbers[0].value, numbers[1].value, numbers[2].value});
        if (!day) return std::nullopt;
        const auto noon = gregorian.date({day->year, day->month, day->day, 12});
        return checked(calendar, calendar.components(*noon));
    }

    [[nodiscard]] std::optional<DateComponents> numericDay(
        const std::vector<DigitRuns::Number>& numbers, const DateComponents& reference) const {
        DateComponents day = reference;
        const bool hasYear = numbers.size() == 3;
        auto number = numbers.begin();
        const auto take = [&](DatePart part) {
            if (part == DatePart::year) {
                if (!hasYear) return true;
                if (number->digits != 2 && number->digits != 4) return false;
                day.year =
                    number->digits == 2 ? wholeYear(number->value, reference.year) : number->value;
            } else {
                if (number->digits > 2) return false;
                (part == DatePart::month ? day.month : day.day) = number->value;
            }
            ++number;
            return true;
        };
        if (numbers.size() == 1) {
            if (!take(DatePart::day)) return std::nullopt;
        } else {
            static constexpr std::array yearFirst{DatePart::year, DatePart::month, DatePart::day};
            const bool isYearFirst = hasYear && numbers[0].digits == 4;
            const auto parts =
                isYearFirst ? std::vector(yearFirst.begin(), yearFirst.end()) : order;
            if (!std::all_of(parts.begin(), parts.end(), take)) return std::nullopt;
        }
        return checked(calendar, day);
    }

    [[nodiscard]] std::optional<DateComponents> namedDay(std::string_view typed,
                                                         const DateComponents& reference) const {
        auto text = icu::UnicodeString::fromUTF8({typed.data(), static_cast<int>(typed.size())});
        for (const auto& format : named) {
            const std::unique_ptr<icu::Calendar> cursor(format->getCalendar()->clone());
            cursor->clear();
            cursor->set(reference.year, reference.month - 1, reference.day, 12, 0, 0);
            icu::ParsePosition position(0);
            format->parse(text, *cursor, position);
            UErrorCode status = U_ZERO_ERROR;
            const UDate date = cursor->getTime(status);
            const bool isWhole = position.getIndex() == text.length();
            if (!isWhole || U_FAILURE(status) || std::abs(date) > farthest) continue;
            auto day = calendar.components(instant(date));
            if (day.year < 100) day.year = wholeYear(day.year, reference.year);
            return checked(calendar, day);
        }
        return std::nullopt;
    }

    Calendar calendar;
    Format shortFormat;
    std::vector<Format> named;
    std::vector<DatePart> order;           ///< of the parts in the short form
    std::vector<std::u16string> ownWords;  ///< that the short form has, such as "г"
    bool hasOwnDashes = false;             ///< in the short form, whatever its calendar
};

DateInput::DateInput(const Locale& locale) : impl_(std::make_unique<Impl>(locale)) {}
DateInput::DateInput(DateInput&& other) noexcept = default;
DateInput& DateInput::operator=(DateInput&& other) noexcept = default;
DateInput::~DateInput() = default;

std::string DateInput::text(const DateComponents& day) const {
    std::string utf8;
    return impl_->format(day, nullptr).toUTF8String(utf8);
}

std::vector<DatePartSpan> DateInput::parts(const DateComponents& day) const {
    return impl_->spansOf(day);
}

std::optional<DateComponents> DateInput::day(std::string_view typed,
                                             const DateComponents& reference) const {
    const std::string_view text = trimmedWhitespace(typed);
    const auto [numbers, words, isReadable] = DigitRuns::of(text);
    if (!isReadable || numbers.empty() || numbers.size() > 3) return std::nullopt;
    const bool isNumeric = std::all_of(words.begin(), words.end(), [&](const auto& word) {
        return std::find(impl_->ownWords.begin(), impl_->ownWords.end(), word) !=
               impl_->ownWords.end();
    });
    if (!isNumeric) return impl_->namedDay(text, reference);
    const bool isISO = numbers.size() == 3 && numbers[0].digits == 4 && !impl_->hasOwnDashes &&
                       text.find('-') != std::string_view::npos;
    return isISO ? impl_->isoDay(numbers) : impl_->numericDay(numbers, reference);
}

}  // namespace elmworth
