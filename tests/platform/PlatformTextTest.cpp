// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/PlatformText.h"

#include <gtest/gtest.h>

#include <string>

namespace elmworth {
namespace {

/// From the first to the last text.
class PlatformTexts : public testing::TestWithParam<int> {
 protected:
    [[nodiscard]] static const PlatformWordings& row() {
        return wordings(static_cast<PlatformText>(GetParam()));
    }
    /// The {placeholder} of a text with its braces, or nothing.
    static std::string_view placeholder(std::string_view text) {
        const auto begin = text.find('{');
        return begin == text.npos ? "" : text.substr(begin, text.find('}') + 1 - begin);
    }
};

TEST_P(PlatformTexts, standInTheTableInBothWordings) {
    EXPECT_EQ(row().text, static_cast<PlatformText>(GetParam()));
    EXPECT_FALSE(row().original.empty());
    EXPECT_NE(row().original, row().desktop);
    EXPECT_EQ(placeholder(row().original), placeholder(row().desktop));
}

TEST_P(PlatformTexts, nameNothingOfTheOtherPlatformHere) {
    for (const char* foreign : {"Mac", "Finder", "enu bar", "Return", "⌘", "⌥", "⇧", "⌃"}) {
        EXPECT_EQ(row().desktop.find(foreign), std::string_view::npos) << foreign;
    }
    EXPECT_EQ(platformText(row().text), row().desktop);
}

INSTANTIATE_TEST_SUITE_P(All, PlatformTexts,
                         testing::Range(0, static_cast<int>(PlatformText::welcomeTrackText) + 1));

TEST(PlatformText, aValueTakesThePlaceholdersPlace) {
    EXPECT_EQ(platformText(PlatformText::awayQuestion, "2:15"),
              "Computer slept for 2:15. Keep that time?");
    EXPECT_EQ(platformText(PlatformText::startRowHint, "1"), "Ctrl+1");
}

}  // namespace
}  // namespace elmworth
