// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A typed percentage is within its limits, and reads the same once it is formatted; the decimal
// number behind it is rounded exactly.

#include <algorithm>
#include <cstring>
#include <limits>

#include "fuzz/Property.h"
#include "platform/MoneyFormat.h"
#include "platform/Text.h"

using namespace elmworth;
using fuzz::require;

namespace {

bool isDecimal(std::string_view text) {
    return std::count(text.begin(), text.end(), '.') <= 1 &&
           text.find_first_not_of("0123456789.") == std::string_view::npos &&
           text.find_first_of("0123456789") != std::string_view::npos;
}

/// A hundred times a short decimal number, by arithmetic of whole numbers; halves up.
std::int64_t scaledByReference(std::string_view text) {
    const auto point = std::min(text.find('.'), text.size());
    std::int64_t number = 0;
    std::int64_t unit = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == point) continue;
        number = number * 10 + (text[i] - '0');
        if (i > point) unit *= 10;
    }
    return (number * 100 * 2 + unit) / (2 * unit);
}

void checkDecimal(std::string_view text) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    const auto scaled = parseScaledDecimal(text, most);
    require(isDecimal(text) || !scaled, "only a decimal number is read");
    if (!scaled) return;
    require(*scaled >= 0, "there is no sign");
    if (text.size() <= 14) require(*scaled == scaledByReference(text), "rounding is exact");
    const bool hasPoint = text.find('.') != std::string_view::npos;
    require(parseScaledDecimal(std::string(text) + (hasPoint ? "0" : ".0"), most) == scaled,
            "a zero at the end changes nothing");
    require(parseScaledDecimal("0" + std::string(text), most) == scaled,
            "a zero before it changes nothing");
    require(parseScaledDecimal(text, *scaled) == scaled, "the limit itself is accepted");
    require(!parseScaledDecimal(text, *scaled - 1), "what is above the limit is not");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = validUTF8(fuzz::textOf(data, size));
    checkDecimal(text);
    const auto basisPoints = parseBasisPoints(text);
    require(parseBasisPoints(" -" + text + "%") == basisPoints, "signs around it change nothing");
    if (basisPoints) {
        require(*basisPoints >= 0 && *basisPoints <= 10'000, "a percentage is within its limits");
        require(parseBasisPoints(formatBasisPoints(*basisPoints)) == basisPoints,
                "a formatted percentage reads as it was");
    }
    std::int64_t any = 0;
    std::memcpy(&any, data, std::min(size, sizeof any));
    require(!formatBasisPoints(any).empty(), "any percentage has a text");
    return 0;
}
