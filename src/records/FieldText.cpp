// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/FieldText.h"

#include <charconv>

#include "platform/MoneyFormat.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

Refused doesNotFit(std::string_view text, std::string_view what, const std::string& range) {
    return Refused("“" + std::string(text) + "” does not fit: " + std::string(what) + " is " +
                   range + ".");
}

}  // namespace

Parsed<std::int64_t> parseTaxRate(std::string_view text) {
    if (const auto basisPoints = parseBasisPoints(text.empty() ? "0" : text)) return *basisPoints;
    return Refused("“" + std::string(text) +
                   "” is no percentage. Enter a number like 0 or 8.25, at most 100.");
}

Parsed<std::int64_t> parseWholeNumber(std::string_view text, std::string_view what,
                                      std::int64_t lowest, std::int64_t highest) {
    const std::string_view trimmed = trimmedBlanks(text);
    std::int64_t number = 0;
    const auto result = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), number);
    const bool isWhole = result.ec == std::errc{} && result.ptr == trimmed.data() + trimmed.size();
    if (isWhole && number >= lowest && number <= highest) return number;
    return doesNotFit(
        text, what,
        "a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest));
}

Parsed<bool> parseFlag(std::string_view text, std::string_view what) {
    const std::string folded = caseFolded(text);
    for (const auto* word : {"true", "yes", "on", "1"})
        if (folded == word) return true;
    for (const auto* word : {"false", "no", "off", "0"})
        if (folded == word) return false;
    return doesNotFit(text, what, "true or false");
}

Parsed<PaperSize> parsePaperSize(std::string_view text) {
    if (const auto paper = paperSizeFromRawValue(text)) return *paper;
    return Refused("“" + std::string(text) + "” is no paper size. Choose letter or a4.");
}

}  // namespace elmworth
