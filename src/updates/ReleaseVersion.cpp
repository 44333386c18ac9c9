// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ReleaseVersion.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace elmworth {

namespace {

constexpr std::size_t mostDigits = 9;

std::optional<std::uint32_t> parseNumber(std::string_view text) {
    const bool isNumber = !text.empty() && text.size() <= mostDigits &&
                          std::all_of(text.begin(), text.end(),
                                      [](char digit) { return digit >= '0' && digit <= '9'; });
    if (!isNumber) return std::nullopt;
    std::uint32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

std::optional<ReleaseVersion> ReleaseVersion::parse(std::string_view text) {
    ReleaseVersion version;
    for (auto& number : version.numbers_) {
        const auto end = text.find('.');
        const auto parsed = parseNumber(text.substr(0, end));
        if (!parsed) return std::nullopt;
        number = *parsed;
        if (end == std::string_view::npos) return version;
        text.remove_prefix(end + 1);
    }
    return std::nullopt;
}

std::string ReleaseVersion::text() const {
    std::size_t shown = numbers_.size();
    while (shown > 2 && numbers_[shown - 1] == 0) --shown;
    std::string text = std::to_string(numbers_.front());
    for (std::size_t i = 1; i < shown; ++i) text += "." + std::to_string(numbers_[i]);
    return text;
}

}  // namespace elmworth
