// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/MoneyFormat.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "platform/CurrencyFormatter.h"
#include "platform/Locale.h"
#include "platform/Text.h"

namespace elmworth {
namespace {

constexpr std::string_view separators = ".,";

/// "12", "12.5" or "-0.05": exact, without zeros at the end.
std::string plainDecimal(std::int64_t hundredths) {
    std::string text = std::to_string(hundredths / 100);
    const std::int64_t rest = std::abs(hundredths % 100);
    if (hundredths < 0 && hundredths > -100) text = "-0";
    if (rest == 0) return text;
    text += '.' + std::to_string(100 + rest).substr(1);
    if (text.back() == '0') text.pop_back();
    return text;
}

struct NumberParts {
    std::string whole;                ///< the digits before the last separator
    std::optional<std::string> tail;  ///< those behind it; absent when there is no separator
};

NumberParts splitAtLastSeparator(std::string_view text) {
    std::string kept = numericCharacters(text, separators);
    const auto last = kept.find_last_of(separators);
    if (last == std::string::npos) return {std::move(kept), std::nullopt};
    return {numericCharacters(std::string_view(kept).substr(0, last)), kept.substr(last + 1)};
}

}  // namespace

Locale currentMoneyLocale() {
    return environmentLocale(LocaleCategory::monetary);
}

std::string formatCents(std::int64_t cents, std::string_view currencyCode, const Locale& locale) {
    if (auto text = formatCurrency(cents, currencyCode, locale)) return *std::move(text);
    return std::string(currencyCode) + " " + plainDecimal(cents);
}

std::optional<std::int64_t> parseCents(std::string_view text) {
    constexpr std::int64_t limit = 100'000'000'000;
    const auto [whole, tail] = splitAtLastSeparator(text);
    if (!tail) return parseScaledDecimal(whole, limit);
    const bool isDecimal = tail->size() == 1 || tail->size() == 2;
    return parseScaledDecimal(whole + (isDecimal ? "." : "") + *tail, limit);
}

std::string formatBasisPoints(std::int64_t basisPoints) {
    const std::int64_t whole = basisPoints / 100;
    const std::int64_t rest = basisPoints % 100;
    if (rest == 0) return std::to_string(whole);
    char text[32];
    std::snprintf(text, sizeof text, "%" PRId64 ".%02" PRId64, whole, std::abs(rest));
    return text;
}

std::optional<std::int64_t> parseBasisPoints(std::string_view text) {
    constexpr std::int64_t limit = 10'000;
    const auto [whole, tail] = splitAtLastSeparator(text);
    return parseScaledDecimal(tail ? whole + "." + *tail : whole, limit);
}

std::optional<std::int64_t> parseScaledDecimal(std::string_view text, std::int64_t limit) {
    const auto point = text.find('.');
    std::string digits(text.substr(0, point));
    const auto fraction =
        point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    if (digits.empty() && fraction.empty()) return std::nullopt;
    if (digits.find_first_not_of("0123456789") != std::string::npos ||
        fraction.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    digits.append(fraction.substr(0, 2)).append(2 - std::min<std::size_t>(2, fraction.size()), '0');

    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    std::int64_t scaled = 0;
    for (const char digit : digits) {
        if (scaled > (most - 9) / 10) return std::nullopt;
        scaled = scaled * 10 + (digit - '0');
    }
    if (fraction.size() > 2 && fraction[2] >= '5') ++scaled;
    return scaled > limit ? std::nullopt : std::optional(scaled);
}

}  // namespace elmworth
