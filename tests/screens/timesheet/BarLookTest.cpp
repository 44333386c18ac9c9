// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/BarLook.h"

#include <gtest/gtest.h>

#include "theme/Contrast.h"

namespace elmworth {
namespace {

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
