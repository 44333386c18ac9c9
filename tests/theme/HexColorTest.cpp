// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/HexColor.h"

#include <gtest/gtest.h>

namespace elmworth {
namespace {

struct Row {
    const char* name;
    const char* text;
    QRgb color;
};

class HexColor : public testing::TestWithParam<Row> {};

TEST_P(HexColor, isRead) {
    const QColor color = colorFromHex(QString::fromUtf8(GetParam().text));
    EXPECT_EQ(color.rgb(), GetParam().color) << GetParam().text;
    EXPECT_EQ(color.alpha(), 255);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HexColor,
    testing::Values(
        Row{"SixDigits", "#7C6CFF", 0xFF7C6CFF}, Row{"WithoutNumberSign", "2ec4b6", 0xFF2EC4B6},
        Row{"NumberSignsAtBothEnds", "##FF6B8B#", 0xFFFF6B8B},
        Row{"ThreeDigitsAreANumber", "#FFF", 0xFF000FFF},
        Row{"LowestBitsOfALongNumber", "#AB123456", 0xFF123456},
        Row{"LongestNumber", "FFFFFFFFFF010203", 0xFF010203},
        Row{"TooLong", "1FFFFFFFFFFFFFFFF", 0xFF4F7CFF}, Row{"Empty", "", 0xFF4F7CFF},
        Row{"OnlyNumberSigns", "###", 0xFF4F7CFF}, Row{"NoDigit", "#GGGGGG", 0xFF4F7CFF},
        Row{"RestAfterTheDigits", "#12345Z", 0xFF4F7CFF}, Row{"Space", "# 12345", 0xFF4F7CFF},
        Row{"Sign", "#-1", 0xFF4F7CFF}, Row{"Prefix", "0x123456", 0xFF4F7CFF},
        Row{"NumberSignWithin", "#12#34", 0xFF4F7CFF}, Row{"OtherScript", "#١٢٣٤٥٦", 0xFF4F7CFF}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace elmworth
