// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ZoneOffsets.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/Calendar.h"
#include "support/Instants.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

TEST(ZoneOffsets, ofThisComputerAreThoseOfTheZoneThatItIsSetTo) {
    const test::ScopedEnvironment zone("TZ", "Asia/Kathmandu");
    EXPECT_EQ(currentZoneID(), "Asia/Kathmandu");
}

TEST(ZoneOffsets, changeAtTheVeryInstantOfTheClocksChange) {
    const ZoneOffsets berlin("Europe/Berlin");
    const Instant spring = at("2026-03-29T01:00:00Z");
    EXPECT_EQ(berlin.secondsAt(spring - 1us), 3600);
    EXPECT_EQ(berlin.secondsAt(spring), 7200);
    EXPECT_EQ(berlin.secondsAt(spring - 1us), 3600);
}

TEST(ZoneOffsets, ofAnUnknownZoneAreThoseOfUTC) {
    EXPECT_EQ(ZoneOffsets("Mars/Olympus_Mons").secondsAt(at("2026-07-01T00:00Z")), 0);
}

class ZoneOffsetsOf : public testing::TestWithParam<const char*> {};

TEST_P(ZoneOffsetsOf, agreeWithTheCalendarAtAnyInstantInAnyOrder) {
    const ZoneOffsets offsets(GetParam());
    const Calendar calendar(Locale("en_US"), GetParam());
    std::mt19937_64 random(7);
    std::uniform_int_distribution<std::int64_t> far(-4'500'000'000, 8'000'000'000);  // 1827 to 2223
    std::uniform_int_distribution<std::int64_t> near(-8'000'000, 8'000'000);
    for (int i = 0; i < 400; ++i) {
        const Instant middle = Instant(std::chrono::seconds(far(random)));
        for (int j = 0; j < 8; ++j) {
            const Instant instant = middle + std::chrono::seconds(near(random));
            ASSERT_EQ(offsets.secondsAt(instant), calendar.secondsFromUTC(instant))
                << instant.time_since_epoch().count();
        }
    }
    for (const Instant instant : {Instant::min() + 24h, Instant::max() - 24h}) {
        EXPECT_EQ(offsets.secondsAt(instant), calendar.secondsFromUTC(instant));
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, ZoneOffsetsOf,
                         testing::Values("UTC", "Europe/Berlin", "America/New_York",
                                         "Europe/Dublin", "Africa/Casablanca",
                                         "Australia/Lord_Howe", "Asia/Kathmandu", "Pacific/Apia",
                                         "America/St_Johns", "Antarctica/Troll"));

}  // namespace
}  // namespace elmworth
