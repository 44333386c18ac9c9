// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

#include "records/DateRangePreset.h"

namespace elmworth::test {

/// What a span of time contributes to one day.
struct DaySlice {
    Instant day;  ///< the start of the day
    double seconds = 0;
};

/// The span from `start` to `end`, cut by day.
inline std::vector<DaySlice> splitByDay(Instant start, Instant end, const Calendar& calendar) {
    std::vector<DaySlice> slices;
    DayCutter(calendar).cut(start, end, [&](const DateInterval& day, double seconds) {
        slices.push_back({day.start, seconds});
    });
    return slices;
}

}  // namespace elmworth::test
