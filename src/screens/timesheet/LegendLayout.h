// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <vector>

namespace elmworth {

/// A place in a legend.
struct LegendPlace {
    int row = 0;
    double x = 0;
    double width = 0;

    friend bool operator==(const LegendPlace&, const LegendPlace&) = default;
};

/// Where the items of a legend stand, line after line.
struct LegendLayout {
    std::vector<LegendPlace> places;  ///< of the first items; those without one are not shown
    LegendPlace rest;                 ///< of the words that count the others; no width for none
    int rows = 0;
};

/// Places items of `widths` in lines of `width`, with `gap` between them. What does not fit into
/// `mostRows` lines is left out, and the last line keeps `restWidth` for what is said of that. An
/// item wider than a line is as wide as the line.
[[nodiscard]] LegendLayout legendLayout(const std::vector<double>& widths, double width, double gap,
                                        double restWidth, int mostRows);

}  // namespace elmworth
