// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetContents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "support/FailingReads.h"
#include "support/Instants.h"
#include "support/ScopedEnvironment.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"
#include "tracking/ReferenceListing.h"

namespace elmworth {
namespace {

using std::chrono::hours;
using test::at;
using test::StatementTrace;
using test::TestLibrary;

/// A library of years in a zone, and what a timesheet shows of it.
class TimesheetContentsTest : public testing::Test {
 protected:
    using Listing = std::shared_ptr<const TimesheetListing>;

    /// Entries of one hour, every `step` from `from` on.
    void fill(const char* from, int count, hours step) {
        for (int i = 0; i < count; ++i) {
            const Instant start = at(from) + i * step;
            library_.addEntry(website_, start, start + hours(1));
        }
        context().save();
    }
    /// Lets the loop turn until nothing is left to read.
    void readAll() {
        for (int turn = 0; contents_.isReading(); ++turn) {
            ASSERT_LT(turn, 1000);
            library_.runLoop.turn();
        }
    }
    /// As the rules say it, over the whole library.
    [[nodiscard]] test::ListingLines expected() {
        return test::naiveListing(context(), contents_.filter(), now_, calendar_);
    }
    /// The identities of what is listed, twice when one is.
    [[nodiscard]] std::vector<PersistentID> shownIDs() const {
        std::vector<PersistentID> ids;
        for (const auto& place : shown_->entries) ids.push_back(place.entry().id);
        return ids;
    }
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    [[nodiscard]] static TimesheetFilter between(const char* from, const char* to) {
        TimesheetFilter filter;
        filter.range = {at(from), at(to)};
        return filter;
    }

    const StatementTrace trace_;  // these before the library is opened
    const test::FailingReads reads_;
    test::ScopedEnvironment locale_{"LC_ALL", "de_DE.UTF-8"};
    TestLibrary library_{test::InMemory{}};
    Calendar calendar_{Locale("de_DE"), "Europe/Berlin"};
    Instant now_ = at("2026-11-06T12:00+01:00");
    Ref<Client> acme_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", acme_);
    Listing shown_;
    int showCount_ = 0;
    std::vector<std::string> notesShown_;
    TimesheetContents contents_{
        context(),
        library_.runLoop,
        [this] { return now_; },
        [this] { return calendar_; },
        {[this](Listing listing) {
             shown_ = std::move(listing);
             ++showCount_;
         },
         [this](const TimesheetPlace& place) { notesShown_.emplace_back(place.notes()); }},
        500};
};

const TimesheetFilter twentyYears = [] {
    TimesheetFilter filter;
    filter.range = {at("2007-01-01T00:00+01:00"), at("2027-01-01T00:00+01:00")};
    return filter;
}();

TEST_F(TimesheetContentsTest, ofAWeekShowAtOnce) {
    fill("2026-11-02T09:00+01:00", 5, hours(24));
    contents_.setFilter(between("2026-11-02T00:00+01:00", "2026-11-09T00:00+01:00"));
    EXPECT_FALSE(contents_.isReading());
    EXPECT_EQ(showCount_, 1);
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(TimesheetContentsTest, ofManyYearsShowTheNewestFirstAndMoreInEachTurn) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    contents_.setFilter(twentyYears);
    EXPECT_TRUE(contents_.isReading());
    ASSERT_EQ(showCount_, 1);
    const auto first = shownIDs();
    EXPECT_GE(first.size(), 100U);
    EXPECT_LT(first.size(), 600U);
    library_.runLoop.turn();
    EXPECT_EQ(showCount_, 2);
    EXPECT_GT(shownIDs().size(), first.size());
    readAll();
    const auto all = shownIDs();
    ASSERT_EQ(all.size(), 1'200U);
    EXPECT_TRUE(std::equal(first.begin(), first.end(), all.begin()));
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(TimesheetContentsTest, ofAClientAreAskedOfTheLibraryAndNotPickedFromAllEntries) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    const auto globex = library_.addClient("Globex");
    const auto shop = library_.addProject("Shop", globex);
    library_.addProject("Empty", globex);
    library_.addEntry(shop, at("2021-03-03T09:00Z"), at("2021-03-03T10:00Z"));
    context().save();
    auto filter = twentyYears;
    filter.client = globex;
    contents_.setFilter(filter);
    static_cast<void>(StatementTrace::take());
    readAll();
    const auto statements = StatementTrace::take();
    EXPECT_EQ(shown_->entries.size(), 1U);
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
    int reads = 0;
    for (const auto& statement : statements) {
        if (statement.find("FROM \"TimeEntry\"") == std::string::npos) continue;
        ++reads;
        EXPECT_NE(statement.find("\"project\" ="), std::string::npos) << statement;
    }
    EXPECT_GT(reads, 0);
}

TEST_F(TimesheetContentsTest, ofAClientWithoutProjectsAreNone) {
    fill("2026-11-02T09:00+01:00", 3, hours(24));
    auto filter = twentyYears;
    filter.client = library_.addClient("Globex");
    contents_.setFilter(filter);
    readAll();
    EXPECT_EQ(shown_->entries.size(), 0U);
}

TEST_F(TimesheetContentsTest, ofFewEntriesInManyYearsAreNotReadInOneTurn) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    auto filter = twentyYears;
    filter.project = library_.addProject("Empty", acme_);
    contents_.setFilter(filter);
    EXPECT_TRUE(contents_.isReading());
    readAll();
    EXPECT_EQ(shown_->entries.size(), 0U);
}

TEST_F(TimesheetContentsTest, thatBeganBeforeThePeriodStandLastWhereverTheyEnd) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    library_.addEntry(website_, at("2006-05-05T09:00Z"), at("2007-01-02T09:00Z"));
    library_.addEntry(website_, at("2006-06-05T09:00Z"), at("2023-01-02T09:00Z"));
    library_.addEntry(website_, at("2006-07-05T09:00Z"), at("2030-01-02T09:00Z"));
    library_.addEntry(nullptr, at("2006-08-05T09:00Z"), std::nullopt);
    library_.addEntry(website_, at("2006-08-05T09:00Z"), at("2006-12-31T09:00Z"));
    contents_.setFilter(twentyYears);
    readAll();
    EXPECT_EQ(shown_->entries.size(), 1'204U);
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(TimesheetContentsTest, anotherSearchReadsNothing) {
    fill("2026-01-02T09:00+01:00", 50, hours(100));
    auto filter = between("2026-01-01T00:00+01:00", "2027-01-01T00:00+01:00");
    contents_.setFilter(filter);
    static_cast<void>(StatementTrace::take());
    filter.search = "web";
    contents_.setFilter(filter);
    EXPECT_EQ(StatementTrace::take().size(), 0U);
    EXPECT_EQ(shown_->entries.size(), 50U);
    filter.search = "nowhere";
    contents_.setFilter(filter);
    EXPECT_EQ(StatementTrace::take().size(), 0U);
    EXPECT_EQ(shown_->entries.size(), 0U);
}

TEST_F(TimesheetContentsTest, aSearchWhileYearsAreReadEndsAsOneAfterIt) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    auto filter = twentyYears;
    contents_.setFilter(filter);
    filter.search = "acme";
    contents_.setFilter(filter);
    readAll();
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
    EXPECT_EQ(shown_->entries.size(), 1'200U);
}

TEST_F(TimesheetContentsTest, aChangeOfTheNewestYearShowsBeforeTheOthersAreReadAgain) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    contents_.setFilter(twentyYears);
    readAll();
    const auto added = library_.addEntry(nullptr, now_ - hours(1), now_);
    contents_.reload();
    EXPECT_TRUE(contents_.isReading());
    const auto ids = shownIDs();
    EXPECT_EQ(ids.size(), 1'201U);
    EXPECT_EQ(ids.front(), added->id());
    readAll();
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(TimesheetContentsTest, anEntryThatMovesBetweenYearsNeverStandsTwice) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    contents_.setFilter(twentyYears);
    readAll();
    const auto entry = context().fetch(
        Query<TimeEntry>{.sortBy = {sortedBy<&TimeEntry::start>()}, .fetchLimit = 1})[0];
    for (const char* start : {"2026-10-01T09:00+02:00", "2021-05-05T09:00+02:00"}) {
        entry->start = at(start);
        entry->end = at(start) + hours(1);
        contents_.reload();
        auto ids = shownIDs();
        std::sort(ids.begin(), ids.end());
        EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end()) << start;
        readAll();
        EXPECT_EQ(test::linesOf(*shown_, now_), expected()) << start;
    }
}

TEST_F(TimesheetContentsTest, aChangeWhileYearsAreReadIsNotLost) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    contents_.setFilter(twentyYears);
    library_.runLoop.turn();
    library_.addEntry(nullptr, at("2020-02-01T00:00Z"), at("2020-02-01T01:00Z"));
    contents_.reload();
    library_.runLoop.turn();
    library_.addEntry(nullptr, now_ - hours(1), now_);
    contents_.reload();
    readAll();
    EXPECT_EQ(shown_->entries.size(), 1'202U);
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(TimesheetContentsTest, ofAnotherPeriodForgetTheYearsThatWereStillToBeRead) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    contents_.setFilter(twentyYears);
    contents_.setFilter(between("2026-10-01T00:00+02:00", "2026-11-01T00:00+01:00"));
    EXPECT_FALSE(contents_.isReading());
    const int shows = showCount_;
    library_.runLoop.turn();
    EXPECT_EQ(showCount_, shows);
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

/// The same, told of each change as a window is.
class FollowedTimesheetContents : public TimesheetContentsTest {
 protected:
    FollowedTimesheetContents() {
        fill("2020-01-01T09:00+01:00", 1'200, hours(50));
        running_ = library_.addEntry(website_, now_ - hours(1), std::nullopt);
        context().save();
        contents_.setFilter(twentyYears);
        readAll();
        showCount_ = 0;
        static_cast<void>(StatementTrace::take());
    }
    [[nodiscard]] static std::size_t readsOfEntries() {
        const auto statements = StatementTrace::take();
        return static_cast<std::size_t>(
            std::count_if(statements.begin(), statements.end(), [](const std::string& statement) {
                return statement.find("FROM \"TimeEntry\"") != std::string::npos;
            }));
    }

    Ref<TimeEntry> running_;
    const UnitOfWork::Observation observation_ =
        context().observeAll([this](const RecordChanges& changes) { contents_.follow(changes); });
};

TEST_F(FollowedTimesheetContents, showAKeyInTheNotesAndReadNothing) {
    const auto listing = shown_;
    for (const char* notes : {"r", "re", "review"}) {
        running_->notes = notes;
        library_.runLoop.turn();
    }
    EXPECT_EQ(readsOfEntries(), 0U);
    EXPECT_EQ(showCount_, 0) << "nothing is listed anew";
    EXPECT_EQ(notesShown_, (std::vector<std::string>{"r", "re", "review"}));
    EXPECT_EQ(listing->entries.front().notes(), "review");
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(FollowedTimesheetContents, listWhatTheSearchFindsOfTheNotes) {
    auto filter = twentyYears;
    filter.search = "rev";
    contents_.setFilter(filter);
    for (const char* notes : {"re", "rev", "revi", "re", ""}) {
        running_->notes = notes;
        library_.runLoop.turn();
        EXPECT_EQ(test::linesOf(*shown_, now_), expected()) << notes;
    }
    EXPECT_EQ(notesShown_, std::vector<std::string>{"revi"});
}

TEST_F(FollowedTimesheetContents, leaveAloneTheNotesOfWhatTheFilterHides) {
    auto filter = twentyYears;
    filter.unbilledOnly = true;
    contents_.setFilter(filter);
    readAll();
    const auto billed =
        context().fetch<TimeEntry>({.sortBy = {sortedBy<&TimeEntry::start>()}, .fetchLimit = 1})[0];
    billed->invoice = library_.addInvoice("INV-1", acme_);
    library_.runLoop.turn();
    showCount_ = 0;
    billed->notes = "billed";
    library_.runLoop.turn();
    EXPECT_EQ(showCount_, 0);
    EXPECT_TRUE(notesShown_.empty());
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

TEST_F(FollowedTimesheetContents, takeInAndOutSingleEntriesWithoutReadingYears) {
    const auto oldest =
        context().fetch<TimeEntry>({.sortBy = {sortedBy<&TimeEntry::start>()}, .fetchLimit = 1})[0];
    static_cast<void>(StatementTrace::take());
    const auto expectFollowed = [&](const char* what) {
        library_.runLoop.turn();
        EXPECT_EQ(readsOfEntries(), 0U) << what;
        EXPECT_FALSE(contents_.isReading()) << what;
        EXPECT_EQ(test::linesOf(*shown_, now_), expected()) << what;
        static_cast<void>(StatementTrace::take());
    };
    running_->end = now_;
    expectFollowed("stopped");
    oldest->start = at("2026-10-01T09:00+02:00");
    oldest->end = at("2026-10-01T10:00+02:00");
    expectFollowed("moved by years");
    oldest->start = at("2006-10-01T09:00+02:00");
    expectFollowed("begins before the period");
    library_.addEntry(nullptr, at("2023-02-01T23:00Z"), at("2023-02-03T01:00Z"));
    expectFollowed("added");
    running_->project = nullptr;
    expectFollowed("of no project");
    oldest->end = at("2006-10-01T10:00+02:00");
    expectFollowed("outside the period");
}

TEST_F(FollowedTimesheetContents, keepTheDaysThatAChangeLeavesAlone) {
    const auto before = shown_->days;
    running_->end = now_;
    library_.runLoop.turn();
    ASSERT_EQ(shown_->days.size(), before.size());
    EXPECT_NE(shown_->days.front(), before.front());
    EXPECT_EQ(shown_->days.back(), before.back()) << "the very same";
}

TEST_F(TimesheetContentsTest, ofALibraryThatCannotBeReadAreNone) {
    fill("2026-11-02T09:00+01:00", 3, hours(24));
    const auto week = between("2026-11-02T00:00+01:00", "2026-11-09T00:00+01:00");
    contents_.setFilter(week);
    EXPECT_EQ(shown_->entries.size(), 3U);
    test::FailingReads::fail();
    contents_.reload();
    EXPECT_EQ(shown_->entries.size(), 0U);
    test::FailingReads::heal();
    contents_.reload();
    EXPECT_EQ(shown_->entries.size(), 3U);
}

TEST_F(TimesheetContentsTest, yearsThatCannotBeReadInALaterTurnAreEmpty) {
    fill("2020-01-01T09:00+01:00", 1'200, hours(50));
    contents_.setFilter(twentyYears);
    const auto first = shownIDs();
    test::FailingReads::fail();
    readAll();
    EXPECT_EQ(shownIDs(), first);
    test::FailingReads::heal();
    contents_.reload();
    readAll();
    EXPECT_EQ(test::linesOf(*shown_, now_), expected());
}

}  // namespace
}  // namespace elmworth
