// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/LegendLayout.h"

#include <algorithm>

namespace elmworth {

namespace {

/// The place of an item of `itemWidth` after `last`.
LegendPlace placeAfter(const LegendPlace& last, double itemWidth, double width, double gap) {
    const double fitting = std::min(itemWidth, width);
    const double x = last.width > 0 ? last.x + last.width + gap : 0;
    if (x + fitting <= width) return {last.row, x, fitting};
    return {last.row + 1, 0, fitting};
}

}  // namespace

LegendLayout legendLayout(const std::vector<double>& widths, double width, double gap,
                          double restWidth, int mostRows) {
    LegendLayout layout;
    if (width <= 0 || widths.empty()) return layout;
    LegendPlace last;
    for (const double itemWidth : widths) {
        last = placeAfter(last, itemWidth, width, gap);
        if (last.row >= mostRows) break;
        layout.places.push_back(last);
    }
    if (layout.places.size() < widths.size()) {
        const auto restAfter = [&] {
            last = layout.places.empty() ? LegendPlace{} : layout.places.back();
            return placeAfter(last, restWidth, width, gap);
        };
        layout.rest = restAfter();
        while (layout.rest.row >= mostRows) {
            layout.places.pop_back();
            layout.rest = restAfter();
        }
    }
    layout.rows =
        std::max(layout.places.empty() ? 0 : layout.places.back().row, layout.rest.row) + 1;
    return layout;
}

}  // namespace elmworth
