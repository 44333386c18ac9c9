// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

namespace elmworth {

/// A line across a chart of hours.
struct HourMark {
    double hours = 0;
    std::string label;  ///< "4h": the hours without their fraction

    friend bool operator==(const HourMark&, const HourMark&) = default;
};

/// The lines of a chart whose highest column has `highest` hours: two to six at whole hours from 0
/// on, at distances that are easy to add up, the last one at or above `highest`. Hours that are not
/// above 0 or not finite count as one.
[[nodiscard]] std::vector<HourMark> hourMarks(double highest);

}  // namespace elmworth
