// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/OneLine.h"

#include <gtest/gtest.h>

#include "support/Rows.h"

namespace elmworth {
namespace {

struct OneLineRow {
    const char* name;
    std::string_view text;
    std::string_view line;
};

class OneLine : public testing::TestWithParam<OneLineRow> {};

TEST_P(OneLine, HasABlankForWhatBreaksOrSteers) {
    EXPECT_EQ(oneLine(GetParam().text), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(, OneLine,
                         testing::Values(OneLineRow{"Nothing", "", ""},
                                         OneLineRow{"Plain", "Logo, v2", "Logo, v2"},
                                         OneLineRow{"LineBreaks", "a\r\nb\tc", "a  b c"},
                                         OneLineRow{"Escape", "\x1b[31mred\x7f", " [31mred "},
                                         OneLineRow{"Nul", std::string_view("a\0b", 3), "a b"},
                                         OneLineRow{"TerminalControl", "\u009b31m", " 31m"},
                                         OneLineRow{"NoBreakSpaceStays", "a\u00a0b", "a\u00a0b"},
                                         OneLineRow{"OtherScripts", "日本語 é 👩‍👧",
                                                    "日本語 é 👩‍👧"},
                                         OneLineRow{"HalfACharacter", "a\xc2", "a\xc2"}),
                         test::rowName);

}  // namespace
}  // namespace elmworth
