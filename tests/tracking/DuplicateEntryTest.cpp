// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/Rows.h"
#include "support/TestLibrary.h"
#include "tracking/EntryService.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::iso;
using test::TestLibrary;

/// "start/end" of the duplicate, or "nothing".
Ref<TimeEntry> duplicateEntryToToday(TestLibrary& library, const Ref<TimeEntry>& entry, Instant now,
                                     const char* zone) {
    const Clock clock = [now] { return now; };
    const auto calendar = [zone] { return Calendar(Locale("en_US"), zone); };
    TimerService timer(library.context(), clock, library.runLoop, calendar);
    UndoHistory history(library.context(), clock);
    return EntryService(library.context(), history, timer, clock, calendar)
        .duplicateEntryToToday(entry);
}

std::string duplicate(TestLibrary& library, const Ref<TimeEntry>& entry, const std::string& now,
                      const char* zone) {
    const auto made = duplicateEntryToToday(library, entry, at(now), zone);
    return made ? iso(made->start) + '/' + iso(made->end->value()) : "nothing";
}

struct Day {
    const char* name;
    const char* zone;
    const char* start;
    const char* end;
    const char* now;
    const char* duplicate;
};

class DuplicateEntry : public testing::TestWithParam<Day> {};

TEST_P(DuplicateEntry, standsOnTheDayOfNow) {
    const Day& day = GetParam();
    TestLibrary library(TestLibrary::emptyFile());
    const auto entry = library.addEntry(nullptr, at(day.start), at(day.end));
    EXPECT_EQ(duplicate(library, entry, day.now, day.zone), day.duplicate);
}

constexpr auto newYork = "America/New_York";
constexpr auto berlin = "Europe/Berlin";

const Day days[] = {
    {"atTheSameTimeOfDay", newYork, "2026-03-02T09:15:30-05:00", "2026-03-02T10:00-05:00",
     "2026-03-04T17:00-05:00", "2026-03-04T14:15:30Z/2026-03-04T15:00:00Z"},
    {"atTheWallClockTimeOfAnotherZone", berlin, "2026-03-02T09:15:30+01:00",
     "2026-03-02T10:00+01:00", "2026-03-04T17:00+01:00",
     "2026-03-04T08:15:30Z/2026-03-04T09:00:00Z"},
    {"endingNowWhenItWouldReachIntoTheFuture", newYork, "2026-03-02T09:00-05:00",
     "2026-03-02T17:00-05:00", "2026-03-04T10:00-05:00",
     "2026-03-04T07:00:00Z/2026-03-04T15:00:00Z"},
    {"whereItIsWhenItEndsExactlyNow", newYork, "2026-03-02T09:00-05:00", "2026-03-02T10:00-05:00",
     "2026-03-04T10:00-05:00", "2026-03-04T14:00:00Z/2026-03-04T15:00:00Z"},
    {"fromYesterdayWhenItIsSoonAfterMidnight", newYork, "2026-03-02T09:00-05:00",
     "2026-03-02T10:00-05:00", "2026-03-04T00:10-05:00",
     "2026-03-04T04:10:00Z/2026-03-04T05:10:00Z"},
    {"withItsLengthThoughItCrossedMidnight", newYork, "2026-03-02T23:30-05:00",
     "2026-03-03T00:30-05:00", "2026-03-04T23:59-05:00",
     "2026-03-05T03:59:00Z/2026-03-05T04:59:00Z"},
    {"fromTodayToo", newYork, "2026-03-04T09:00-05:00", "2026-03-04T10:00-05:00",
     "2026-03-04T17:00-05:00", "2026-03-04T14:00:00Z/2026-03-04T15:00:00Z"},
    {"fromTheFuture", newYork, "2027-01-01T09:00-05:00", "2027-01-01T10:00-05:00",
     "2026-03-04T17:00-05:00", "2026-03-04T14:00:00Z/2026-03-04T15:00:00Z"},
    {"withAllItsThirtyYears", "UTC", "1996-03-02T09:00Z", "2026-03-02T09:00Z", "2026-03-04T10:00Z",
     "1996-03-04T10:00:00Z/2026-03-04T10:00:00Z"},
    {"withOneSecond", "UTC", "2026-03-02T09:00Z", "2026-03-02T09:00:01Z", "2026-03-04T10:00Z",
     "2026-03-04T09:00:00Z/2026-03-04T09:00:01Z"},
    {"notWithoutLength", "UTC", "2026-03-02T09:00Z", "2026-03-02T09:00Z", "2026-03-04T10:00Z",
     "nothing"},
    {"notReversed", "UTC", "2026-03-02T09:00Z", "2026-03-02T08:00Z", "2026-03-04T10:00Z",
     "nothing"},
    // On 2026-03-08 New York goes from 02:00 to 03:00, on 2026-11-01 from 02:00 back to 01:00.
    {"atTheNextValidTimeOnADayThatSkipsIt", newYork, "2026-03-02T02:30-05:00",
     "2026-03-02T03:00-05:00", "2026-03-08T17:00-04:00",
     "2026-03-08T07:00:00Z/2026-03-08T07:30:00Z"},
    {"atTheFirstOfATimeThatTheDayRepeats", newYork, "2026-10-02T01:30-04:00",
     "2026-10-02T02:00-04:00", "2026-11-01T17:00-05:00",
     "2026-11-01T05:30:00Z/2026-11-01T06:00:00Z"},
    {"atTheFirstThoughItBeganAtTheSecond", newYork, "2026-11-01T01:30-05:00",
     "2026-11-01T02:00-05:00", "2026-11-01T17:00-05:00",
     "2026-11-01T05:30:00Z/2026-11-01T06:00:00Z"},
    {"withItsElapsedLengthFromALongDay", newYork, "2026-11-01T00:00-04:00",
     "2026-11-01T04:00-05:00", "2026-11-02T17:00-05:00",
     "2026-11-02T05:00:00Z/2026-11-02T10:00:00Z"},
    {"withItsElapsedLengthFromAShortDay", newYork, "2026-03-08T00:00-05:00",
     "2026-03-08T04:00-04:00", "2026-03-09T17:00-04:00",
     "2026-03-09T04:00:00Z/2026-03-09T07:00:00Z"},
    // On 2026-03-29 Berlin goes from 02:00 to 03:00, on 2026-10-25 from 03:00 back to 02:00.
    {"atTheNextValidTimeInBerlin", berlin, "2026-03-02T02:30+01:00", "2026-03-02T03:00+01:00",
     "2026-03-29T17:00+02:00", "2026-03-29T01:00:00Z/2026-03-29T01:30:00Z"},
    {"atTheFirstOfARepeatedTimeInBerlin", berlin, "2026-03-02T02:30+01:00",
     "2026-03-02T03:00+01:00", "2026-10-25T17:00+01:00",
     "2026-10-25T00:30:00Z/2026-10-25T01:00:00Z"},
};

INSTANTIATE_TEST_SUITE_P(Rows, DuplicateEntry, testing::ValuesIn(days), test::rowName);

TEST(DuplicateEntryFields, projectAndNotesAreTheSameAndNothingIsBilled) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto entry = library.addEntry(library.addProject("Website", client),
                                        at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
    entry->notes = "Landing page";
    entry->billedRateCents = 9500;
    entry->invoice = library.addInvoice("INV-1", client);
    const auto id = duplicateEntryToToday(library, entry, at("2026-03-04T17:00Z"), "UTC")->id();
    library.reopen();
    const auto made = library.context().record<TimeEntry>(id);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->project->name.get(), "Website");
    EXPECT_EQ(made->notes.get(), "Landing page");
    EXPECT_FALSE(made->invoice);
    EXPECT_EQ(made->billedRateCents.get(), std::nullopt);
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 2U);
}

TEST(DuplicateEntryFields, theLengthKeepsItsFraction) {
    TestLibrary library;
    const auto start = at("2026-03-02T09:00Z");
    const auto entry = library.addEntry(nullptr, start + 250ms, start + 90min + 1us);
    const auto made = duplicateEntryToToday(library, entry, at("2026-03-04T17:00Z"), "UTC");
    EXPECT_EQ(made->start.get(), at("2026-03-04T09:00Z"));
    EXPECT_EQ(made->end->value() - made->start.get(), 90min + 1us - 250ms);
}

TEST(DuplicateEntryFields, whatRunsOrIsGoneGivesNothing) {
    TestLibrary library;
    const auto start = at("2026-03-02T09:00Z");
    const auto running = library.addEntry(nullptr, start, std::nullopt);
    EXPECT_EQ(duplicate(library, running, "2026-03-04T17:00Z", "UTC"), "nothing");
    const auto gone = library.addEntry(nullptr, start, start + 1h);
    library.context().deleteRecord(gone);
    EXPECT_EQ(duplicate(library, gone, "2026-03-04T17:00Z", "UTC"), "nothing");
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 1U);
}

TEST(DuplicateEntryFields, aDuplicateThatCannotBeSavedStaysPending) {
    TestLibrary library;
    const auto start = at("2026-03-02T09:00Z");
    const auto entry = library.addEntry(nullptr, start, start + 1h);
    library.context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_NE(duplicate(library, entry, "2026-03-04T17:00Z", "UTC"), "nothing");
    }
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 2U);
}

}  // namespace
}  // namespace elmworth
