// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/HoursFormat.h"

#include <array>
#include <charconv>

namespace elmworth {

std::string formatDecimalHours(double seconds) {
    std::array<char, 400> buffer{};  // the longest double has 309 digits before the point
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      seconds / 3600.0, std::chars_format::fixed, 2);
    return {buffer.data(), result.ptr};
}

}  // namespace elmworth
