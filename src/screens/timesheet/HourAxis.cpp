// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/HourAxis.h"

#include <cmath>
#include <cstdint>

namespace elmworth {

namespace {

constexpr double mostSteps = 5;

/// Within a day by the parts of a day, above it by decimal numbers.
double stepFor(double highest) {
    for (const double step : {1, 2, 4, 6, 12, 24}) {
        if (highest <= step * mostSteps) return step;
    }
    for (double decade = 10;; decade *= 10) {
        for (const double factor : {5, 10, 20}) {
            if (highest <= factor * decade * mostSteps) return factor * decade;
        }
    }
}

}  // namespace

std::vector<HourMark> hourMarks(double highest) {
    const double top = std::isfinite(highest) && highest > 0 ? highest : 1;
    const double step = stepFor(top);
    std::vector<HourMark> marks;
    const int count = static_cast<int>(std::ceil(top / step));
    for (int i = 0; i <= count; ++i) {
        marks.push_back({i * step, std::to_string(static_cast<std::int64_t>(i * step)) + "h"});
    }
    return marks;
}

}  // namespace elmworth
