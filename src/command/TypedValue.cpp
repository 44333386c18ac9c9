// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TypedValue.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

#include "command/CommandError.h"
#include "command/OneLine.h"
#include "platform/CurrencyFormatter.h"
#include "platform/MoneyFormat.h"
#include "platform/Text.h"

namespace elmworth {

std::int64_t typedAmount(const std::string& text) {
    const auto cents = parseCents(text);
    if (!cents) {
        throw CommandError("“" + text + "” is no amount. Enter a number like 120 or 120.50.");
    }
    return *cents;
}

std::int64_t typedPercent(const std::string& text) {
    const auto basisPoints = parseBasisPoints(text.empty() ? "0" : text);
    if (!basisPoints) {
        throw CommandError("“" + text +
                           "” is no percentage. Enter a number like 0 or 8.25, at most 100.");
    }
    return *basisPoints;
}

std::int64_t typedInteger(const std::string& text, const std::string& what, std::int64_t lowest,
                          std::int64_t highest) {
    const std::string_view trimmed = trimmedBlanks(text);
    std::int64_t number = 0;
    const auto result = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), number);
    const bool isWhole = result.ec == std::errc{} && result.ptr == trimmed.data() + trimmed.size();
    if (!isWhole || number < lowest || number > highest) {
        throw CommandError("“" + text + "” does not fit: " + what + " is a whole number from " +
                           std::to_string(lowest) + " to " + std::to_string(highest) + ".");
    }
    return number;
}

std::optional<std::int64_t> typedBudget(const std::string& text) {
    std::string number{trimmedBlanks(text)};
    if (number.empty()) return std::nullopt;
    std::replace(number.begin(), number.end(), ',', '.');
    double hours = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), hours);
    const bool isNumber = result.ec == std::errc{} && result.ptr == number.data() + number.size();
    if (!isNumber || !(hours > 0) || hours > 1e9) {
        throw CommandError("“" + text + "” is no budget. Enter hours like 40 or 37.5.");
    }
    return static_cast<std::int64_t>(std::round(hours));
}

bool typedFlag(const std::string& text, const std::string& what) {
    const std::string folded = caseFolded(text);
    if (folded == "true" || folded == "yes" || folded == "on" || folded == "1") return true;
    if (folded == "false" || folded == "no" || folded == "off" || folded == "0") return false;
    throw CommandError("“" + text + "” does not fit: " + what + " is true or false.");
}

std::string typedColor(const std::string& text) {
    const bool isHex = text.size() == 7 && text[0] == '#' &&
                       std::all_of(text.begin() + 1, text.end(),
                                   [](unsigned char c) { return std::isxdigit(c) != 0; });
    if (!isHex) throw CommandError("“" + text + "” is no color. Write it like #7C6CFF.");
    return text;
}

std::string typedCurrency(const std::string& text) {
    std::string code = text;
    std::transform(code.begin(), code.end(), code.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    });
    const auto& codes = commonCurrencyCodes();
    if (!std::binary_search(codes.begin(), codes.end(), code)) {
        throw CommandError("“" + text + "” is no currency. Use an ISO code like USD or EUR.");
    }
    return code;
}

std::string typedName(const std::string& text) {
    const std::string_view name = trimmedBlanks(text);
    if (name.empty()) throw CommandError("The name can't be empty.");
    if (oneLine(name) != name) {
        throw CommandError("A name can't hold line breaks or control characters.");
    }
    return std::string(name);
}

}  // namespace elmworth
