// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Instant.h"

#include <gtest/gtest.h>

#include "support/Instants.h"

namespace elmworth {
namespace {

using test::at;

TEST(Instant, secondsBetweenKeepTheFractionAndTheSign) {
    const Instant start = at("2026-03-01T10:00Z");
    EXPECT_DOUBLE_EQ(secondsBetween(start, start + std::chrono::microseconds(1'500'000)), 1.5);
    EXPECT_DOUBLE_EQ(secondsBetween(start, start - std::chrono::hours(1)), -3600.0);
}

TEST(Instant, wholeSecondsRoundDownAlsoBefore1970) {
    EXPECT_EQ(wholeSeconds(Instant(std::chrono::microseconds(1'999'999))), 1);
    EXPECT_EQ(wholeSeconds(Instant(std::chrono::microseconds(-1))), -1);
}

}  // namespace
}  // namespace elmworth
