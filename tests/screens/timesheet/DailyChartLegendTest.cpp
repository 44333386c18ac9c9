// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartLegend.h"

#include <gtest/gtest.h>

namespace elmworth {
namespace {

LegendLayout layoutOf(const std::vector<double>& widths) {
    return legendLayout(widths, 100, 10, 30, 2);
}

TEST(LegendLayout, ofNothingHasNoLines) {
    EXPECT_EQ(layoutOf({}).rows, 0);
    EXPECT_EQ(legendLayout({20}, 0, 10, 30, 2).rows, 0);
}

TEST(LegendLayout, fillsALineBeforeTheNext) {
    const auto layout = layoutOf({40, 50, 20});
    EXPECT_EQ(layout.places, (std::vector<LegendPlace>{{0, 0, 40}, {0, 50, 50}, {1, 0, 20}}));
    EXPECT_EQ(layout.rest.width, 0);
    EXPECT_EQ(layout.rows, 2);
}

TEST(LegendLayout, narrowsWhatIsWiderThanALine) {
    const auto layout = layoutOf({400});
    EXPECT_EQ(layout.places, (std::vector<LegendPlace>{{0, 0, 100}}));
}

TEST(LegendLayout, leavesOutWhatHasNoRoomAndKeepsRoomToSaySo) {
    const auto layout = layoutOf({100, 40, 50, 20});
    EXPECT_EQ(layout.places, (std::vector<LegendPlace>{{0, 0, 100}, {1, 0, 40}}));
    EXPECT_EQ(layout.rest, (LegendPlace{1, 50, 30}));
    EXPECT_EQ(layout.rows, 2);
}

TEST(LegendLayout, staysWithinItsLinesWhateverTheWidths) {
    for (double width = 1; width < 300; width += 7) {
        for (std::size_t count = 1; count < 40; ++count) {
            const auto layout = legendLayout(std::vector<double>(count, 45), width, 10, 30, 3);
            EXPECT_LE(layout.rows, 3);
            EXPECT_EQ(layout.rest.width > 0, layout.places.size() < count);
            for (const auto& place : layout.places) EXPECT_LE(place.x + place.width, width);
        }
    }
}

}  // namespace
}  // namespace elmworth
