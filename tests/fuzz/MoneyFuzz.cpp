// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A typed amount is within its limits, and reads the same once it is formatted; any amount has a
// text.

#include <algorithm>
#include <cstring>

#include "fuzz/Property.h"
#include "platform/MoneyFormat.h"
#include "platform/Text.h"

using namespace elmworth;
using fuzz::require;

namespace {

constexpr std::int64_t limit = 100'000'000'000;

/// Formats that write digits, and no point or comma but those of the number.
struct Format {
    const char* code;
    Locale locale;
};
const Format formats[] = {{"USD", Locale("en_US")}, {"EUR", Locale("de_DE")},
                          {"GBP", Locale("en_GB")}, {"EUR", Locale("fr_FR")},
                          {"CHF", Locale("de_CH")}, {"BRL", Locale("pt_BR")}};

void checkAmount(std::int64_t cents) {
    require(cents >= 0 && cents <= limit, "a typed amount is within its limits");
    for (const auto& [code, locale] : formats) {
        require(parseCents(formatCents(cents, code, locale)) == cents,
                "a formatted amount reads as it was");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = validUTF8(fuzz::textOf(data, size));
    const auto cents = parseCents(text);
    if (cents) checkAmount(*cents);
    require(parseCents("- " + text + " $") == cents, "signs and words around it change nothing");
    require(cents || parseCents("x" + text) == cents, "a letter before it changes nothing");

    std::int64_t any = 0;
    std::memcpy(&any, data, std::min(size, sizeof any));
    for (const auto& [code, locale] : formats) {
        const std::string formatted = formatCents(any, code, locale);
        require(!formatted.empty() && validUTF8(formatted) == formatted, "any amount has a text");
    }
    const std::string ofAnyCode = formatCents(any, text.substr(0, 3), formats[0].locale);
    require(!ofAnyCode.empty(), "any code has a text");
    if (any >= 0 && any <= limit) checkAmount(any);
    return 0;
}
