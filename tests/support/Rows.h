// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <cctype>
#include <string>

namespace elmworth::test {

/// Names the cases of a parameterized test after the `name` of their rows.
inline constexpr auto rowName = [](const auto& row) { return std::string(row.param.name); };

/// Names the cases after texts that may hold other characters than a test's name may.
inline constexpr auto textName = [](const auto& text) {
    std::string name(text.param);
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
};

}  // namespace elmworth::test
