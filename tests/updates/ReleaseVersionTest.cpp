// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ReleaseVersion.h"

#include <gtest/gtest.h>

namespace elmworth {
namespace {

struct ReadCase {
    const char* name;
    const char* text;
    const char* shown;  ///< null for a text that is no version
};

class ReleaseVersionText : public testing::TestWithParam<ReadCase> {};

TEST_P(ReleaseVersionText, isReadOrRefused) {
    const auto version = ReleaseVersion::parse(GetParam().text);
    ASSERT_EQ(version.has_value(), GetParam().shown != nullptr);
    if (version) {
        EXPECT_EQ(version->text(), GetParam().shown);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReleaseVersionText,
    testing::Values(ReadCase{"oneNumber", "2", "2.0"}, ReadCase{"twoNumbers", "0.9", "0.9"},
                    ReadCase{"aZeroAtTheEndIsNotShown", "1.2.0", "1.2"},
                    ReadCase{"aZeroBetweenIs", "1.0.3", "1.0.3"},
                    ReadCase{"fourNumbers", "1.2.3.4", "1.2.3.4"},
                    ReadCase{"theLargestNumber", "999999999.1", "999999999.1"},
                    ReadCase{"aNumberTooLarge", "1000000000", nullptr},
                    ReadCase{"fiveNumbers", "1.2.3.4.5", nullptr}, ReadCase{"nothing", "", nullptr},
                    ReadCase{"aDotAtTheEnd", "1.", nullptr},
                    ReadCase{"aDotAtTheStart", ".1", nullptr}, ReadCase{"twoDots", "1..2", nullptr},
                    ReadCase{"aSign", "-1", nullptr}, ReadCase{"aBlank", "1. 2", nullptr},
                    ReadCase{"aSuffix", "1.2-rc1", nullptr}),
    [](const auto& info) { return info.param.name; });

TEST(ReleaseVersion, isComparedNumberByNumber) {
    const auto version = [](const char* text) { return ReleaseVersion::parse(text).value(); };
    EXPECT_LT(version("0.9"), version("0.10"));
    EXPECT_LT(version("1.9.9"), version("2"));
    EXPECT_EQ(version("1.2"), version("1.2.0"));
    EXPECT_LT(version("1.2"), version("1.2.0.1"));
}

}  // namespace
}  // namespace elmworth
