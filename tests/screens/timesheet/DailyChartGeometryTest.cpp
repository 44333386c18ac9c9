// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartGeometry.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "theme/Contrast.h"

namespace elmworth {
namespace {

using test::at;

/// Four days, of which the first has two bars that fill it and the second one of half a minute.
class ChartGeometry : public testing::Test {
 protected:
    ChartGeometry() {
        for (int i = 0; i < 4; ++i) {
            const Instant day = at("2026-03-02T00:00Z") + std::chrono::days(i);
            days.push_back({day, day + std::chrono::days(1)});
        }
        stacks = dailyStacks(days, std::vector<DailyBar>{{days[0].start, "A", "", 1},
                                                         {days[1].start, "A", "", 0.008},
                                                         {days[0].start, "B", "", 3}});
    }

    std::vector<DateInterval> days;
    DailyStacks stacks;
    DailyChartGeometry geometry{stacks, QSizeF(432, 127), 24};
};

TEST_F(ChartGeometry, sharesTheWidthBesideTheHoursEvenly) {
    EXPECT_EQ(geometry.plot(), QRectF(32, 7, 400, 100));
    EXPECT_EQ(geometry.columnWidth(), 100);
    EXPECT_EQ(geometry.column(3), QRectF(332, 7, 100, 100));
}

TEST_F(ChartGeometry, putsZeroOnTheGroundAndTheHighestMarkAtTheTop) {
    EXPECT_EQ(geometry.y(0), 107);
    EXPECT_EQ(geometry.y(4), 7);
}

TEST_F(ChartGeometry, stacksBarsWithAThinGap) {
    const QRectF lower = geometry.bar(stacks.bars[0]);
    const QRectF upper = geometry.bar(stacks.bars[1]);
    EXPECT_EQ(lower, QRectF(54, 83, 56, 24));
    EXPECT_EQ(upper, QRectF(54, 8, 56, 74));
}

TEST_F(ChartGeometry, drawsAtLeastAPixel) {
    EXPECT_EQ(geometry.bar(stacks.bars[2]).height(), 1);
}

TEST_F(ChartGeometry, findsTheBarUnderAPoint) {
    EXPECT_EQ(geometry.barAt({82, 100}), 0U);
    EXPECT_EQ(geometry.barAt({82, 20}), 1U);
}

TEST_F(ChartGeometry, findsAThinBarFromSomePixelsAway) {
    EXPECT_EQ(geometry.barAt({182, 104}), 2U);
    EXPECT_EQ(geometry.barAt({182, 90}), std::nullopt);
}

TEST_F(ChartGeometry, findsNothingOutsideTheColumns) {
    for (const QPointF point : {QPointF(-1, -1), QPointF(10, 100), QPointF(432, 100),
                                QPointF(282, 100), QPointF(82, 120)}) {
        EXPECT_EQ(geometry.barAt(point), std::nullopt) << point.x() << ' ' << point.y();
    }
}

TEST_F(ChartGeometry, ofNoRoomOrNoChartFindsNothing) {
    EXPECT_EQ(DailyChartGeometry().barAt({0, 0}), std::nullopt);
    EXPECT_EQ(DailyChartGeometry(stacks, QSizeF(0, 0), 24).barAt({40, 0}), std::nullopt);
}

const QColor darkCard(0x0B, 0x0B, 0x0D);
const QColor lightCard(0xF7, 0xF7, 0xF9);

TEST(BarLook, ofAColorThatStandsOutIsTheColorAlone) {
    for (const QColor& ground : {darkCard, lightCard}) {
        const auto look = BarLook::of(QColor(0x7C, 0x6C, 0xFF), ground);
        EXPECT_EQ(look.fill.color(), QColor(0x7C, 0x6C, 0xFF));
        EXPECT_EQ(look.outline.style(), Qt::NoPen);
        EXPECT_EQ(look.inset, 0);
    }
}

TEST(BarLook, ofTheGroundsOwnColorHasAnOutlineThatIsSeen) {
    for (const QColor& ground : {darkCard, lightCard}) {
        const auto look = BarLook::of(ground, ground);
        EXPECT_EQ(look.fill.color(), ground);
        EXPECT_EQ(look.outline.style(), Qt::SolidLine);
        EXPECT_GE(contrastRatio(look.outline.color(), ground), signContrast);
    }
}

}  // namespace
}  // namespace elmworth
