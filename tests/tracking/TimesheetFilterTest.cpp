// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/Rows.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"
#include "tracking/TimesheetDays.h"

namespace elmworth {
namespace {

using test::at;
using test::iso;
using test::rowName;
using test::TestLibrary;
using testing::ElementsAre;
using testing::IsEmpty;

TimesheetFilter marchWeek() {
    TimesheetFilter filter;
    filter.range = {at("2026-03-02T00:00+01:00"), at("2026-03-09T00:00+01:00")};
    return filter;
}

/// Two clients, a project of each, one without a client; the days of March 2 to 8 in Berlin.
class Timesheet : public testing::Test {
 protected:
    Ref<TimeEntry> add(const Ref<Project>& project, const char* start, const char* end,
                       const std::string& notes = {}) {
        auto entry = library_.addEntry(project, at(start),
                                       end == nullptr ? std::nullopt : std::optional(at(end)));
        entry->notes = notes;
        return entry;
    }
    [[nodiscard]] TimesheetReader reader() { return {library_.context(), filter_, now_}; }
    std::vector<Ref<TimeEntry>> shown() { return reader().entries(); }
    struct Day {
        Instant start;
        std::vector<Ref<TimeEntry>> entries;
        double seconds;
    };
    std::vector<Day> days() {
        const auto entries = shown();
        const auto piece = std::make_shared<TimesheetPiece>();
        for (const auto& entry : entries) piece->add(*entry);
        std::vector<Day> days;
        for (const auto& day :
             listTimesheet({piece}, filter_.range, now_, calendar_, TimesheetSearch("")).days) {
            days.push_back({day->start, {}, day->seconds(now_)});
            for (const auto& place : day->entries) {
                days.back().entries.push_back(entries[place.index]);
            }
        }
        return days;
    }

    TestLibrary library_{TestLibrary::emptyFile()};
    test::ScopedEnvironment locale_{"LC_ALL", "de_DE.UTF-8"};
    Calendar calendar_{Locale("de_DE"), "Europe/Berlin"};
    Instant now_ = at("2026-03-06T12:00+01:00");
    Ref<Client> acme_ = library_.addClient("Acme");
    Ref<Client> globex_ = library_.addClient("Globex");
    Ref<Project> web_ = library_.addProject("Website", acme_);
    Ref<Project> shop_ = library_.addProject("Shop", globex_);
    Ref<Project> own_ = library_.addProject("Own", nullptr);
    TimesheetFilter filter_ = marchWeek();
};

struct PeriodRow {
    const char* name;
    const char* start;
    const char* end;
    bool isShown;
};

class TimesheetPeriod : public Timesheet, public testing::WithParamInterface<PeriodRow> {};

TEST_P(TimesheetPeriod, showsWhatTouchesItWithMoreThanAnEdge) {
    const auto& row = GetParam();
    const auto entry = add(web_, row.start, row.end);
    EXPECT_EQ(filter_.admits(*entry, now_), row.isShown);
    EXPECT_EQ(shown().size(), row.isShown ? 1U : 0U);
    library_.context().save();
    library_.reopen();
    EXPECT_EQ(shown().size(), row.isShown ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetPeriod,
    testing::Values(
        PeriodRow{"Within", "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00", true},
        PeriodRow{"EndsAtItsStart", "2026-03-01T23:00+01:00", "2026-03-02T00:00+01:00", false},
        PeriodRow{"EndsASecondLater", "2026-03-01T23:00+01:00", "2026-03-02T00:00:01+01:00", true},
        PeriodRow{"StartsAtItsStart", "2026-03-02T00:00+01:00", "2026-03-02T01:00+01:00", true},
        PeriodRow{"StartsAtItsEnd", "2026-03-09T00:00+01:00", "2026-03-09T01:00+01:00", false},
        PeriodRow{"StartsASecondEarlier", "2026-03-08T23:59:59+01:00", "2026-03-09T01:00+01:00",
                  true},
        PeriodRow{"CoversAllOfIt", "2026-02-01T00:00+01:00", "2026-04-01T00:00+01:00", true},
        PeriodRow{"RunsSinceBefore", "2026-02-01T00:00+01:00", nullptr, true},
        PeriodRow{"RunsFromNowOn", "2026-03-06T12:00+01:00", nullptr, true},
        PeriodRow{"RunsAfterIt", "2026-03-09T00:00+01:00", nullptr, false},
        PeriodRow{"EndsBeforeItsStartWithin", "2026-03-03T10:00+01:00", "2026-03-03T09:00+01:00",
                  true},
        PeriodRow{"LongBefore", "2020-03-03T09:00+01:00", "2020-03-03T10:00+01:00", false}),
    rowName);

TEST_F(Timesheet, isNewestFirst) {
    const auto second = add(web_, "2026-03-04T09:00+01:00", "2026-03-04T10:00+01:00");
    const auto first = add(shop_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    const auto third = add(own_, "2026-03-05T09:00+01:00", nullptr);
    EXPECT_THAT(shown(), ElementsAre(third, second, first));
}

TEST_F(Timesheet, isHandedOutOldestFirst) {
    add(web_, "2026-03-04T09:00+01:00", "2026-03-04T10:00+01:00", "third");
    add(web_, "2026-03-01T21:00+01:00", "2026-03-02T10:00+01:00", "second");
    add(own_, "2026-03-05T09:00+01:00", nullptr, "fourth");
    add(shop_, "2026-02-20T09:00+01:00", "2026-03-03T10:00+01:00", "first");
    add(shop_, "2026-03-04T09:30+01:00", "2026-03-04T10:00+01:00", "unsaid");
    filter_.search = "r";  // first, third, fourth
    std::vector<std::string> notes;
    reader().forEach([&](const TimeEntry& entry) { notes.push_back(entry.notes); });
    EXPECT_THAT(notes, ElementsAre("first", "third", "fourth"));
    auto entries = shown();
    std::reverse(entries.begin(), entries.end());
    ASSERT_EQ(entries.size(), notes.size());
    for (std::size_t i = 0; i < notes.size(); ++i) EXPECT_EQ(entries[i]->notes.get(), notes[i]);
}

TEST_F(Timesheet, withTheUnbilledOnlyLeavesOutWhatIsOnAnInvoice) {
    const auto billed = add(web_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    billed->invoice = library_.addInvoice("1", acme_);
    const auto open = add(web_, "2026-03-04T09:00+01:00", "2026-03-04T10:00+01:00");
    EXPECT_THAT(shown(), ElementsAre(open, billed));
    filter_.unbilledOnly = true;
    EXPECT_FALSE(filter_.admits(*billed, now_));
    EXPECT_THAT(shown(), ElementsAre(open));
}

TEST_F(Timesheet, ofAProjectOrAClientShowsNothingElse) {
    const auto web = add(web_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    add(shop_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    add(own_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    add(nullptr, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    filter_.project = web_;
    EXPECT_THAT(shown(), ElementsAre(web));
    filter_.client = acme_;
    EXPECT_THAT(shown(), ElementsAre(web));
    filter_.project = nullptr;
    EXPECT_THAT(shown(), ElementsAre(web));
}

TEST_F(Timesheet, ofAProjectOfAnotherClientIsEmpty) {
    add(web_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    filter_.project = web_;
    filter_.client = globex_;
    EXPECT_THAT(shown(), IsEmpty());
}

struct SearchRow {
    const char* name;
    const char* search;
    bool isFound;
};

class TimesheetSearch : public Timesheet, public testing::WithParamInterface<SearchRow> {};

TEST_P(TimesheetSearch, looksIntoNotesProjectAndClientWithoutRegardToCase) {
    add(web_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00", "Entwurf für die STRASSE");
    filter_.search = GetParam().search;
    EXPECT_EQ(shown().size(), GetParam().isFound ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetSearch,
    testing::Values(SearchRow{"Nothing", "", true}, SearchRow{"Blanks", " \t ", true},
                    SearchRow{"Notes", "entwurf", true},
                    SearchRow{"BlanksAround", "\t entwurf ", true},
                    SearchRow{"Project", "webSITE", true}, SearchRow{"Client", "acme", true},
                    SearchRow{"Umlaut", "FÜR", true}, SearchRow{"OtherClient", "Globex", false},
                    SearchRow{"AcrossFields", "STRASSE Website", false},
                    SearchRow{"Wildcard", "Ent%", false}, SearchRow{"LineBreak", "\n", false}),
    rowName);

TEST_F(Timesheet, searchesTheNotesOfTimeWithoutAProject) {
    const auto entry =
        add(nullptr, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00", "Buchhaltung");
    filter_.search = "buch";
    EXPECT_THAT(shown(), ElementsAre(entry));
    filter_.search = "Acme";
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(Timesheet, ofTimeOverMidnightHasItInBothDays) {
    const auto entry = add(web_, "2026-03-03T23:30+01:00", "2026-03-04T00:30+01:00");
    const auto groups = days();
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(iso(groups[0].start), "2026-03-03T23:00:00Z");
    EXPECT_EQ(iso(groups[1].start), "2026-03-02T23:00:00Z");
    for (const auto& group : groups) {
        EXPECT_EQ(group.seconds, 1800);
        EXPECT_THAT(group.entries, ElementsAre(entry));
    }
}

TEST_F(Timesheet, ofTimeOverItsEdgeHasOnlyTheDaysWithin) {
    add(web_, "2026-03-08T22:00+01:00", "2026-03-09T03:00+01:00");
    add(web_, "2026-03-01T20:00+01:00", "2026-03-02T01:00+01:00");
    const auto groups = days();
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].seconds, 7200);
    EXPECT_EQ(groups[1].seconds, 3600);
}

TEST_F(Timesheet, daysStandNewestFirstAndTheirEntriesToo) {
    const auto early = add(web_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    const auto late = add(web_, "2026-03-03T15:00+01:00", "2026-03-03T16:00+01:00");
    const auto running = add(web_, "2026-03-06T11:00+01:00", nullptr);
    const auto groups = days();
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_THAT(groups[0].entries, ElementsAre(running));
    EXPECT_EQ(groups[0].seconds, 3600);
    EXPECT_THAT(groups[1].entries, ElementsAre(late, early));
    EXPECT_EQ(groups[1].seconds, 7200);
}

TEST_F(Timesheet, ofReversedTimeHasNoDay) {
    add(web_, "2026-03-03T10:00+01:00", "2026-03-03T09:00+01:00");
    EXPECT_EQ(shown().size(), 1U);
    EXPECT_THAT(days(), IsEmpty());
}

TEST_F(Timesheet, ofADayOf23HoursCountsThem) {
    filter_.range = {at("2026-03-29T00:00+01:00"), at("2026-03-30T00:00+02:00")};
    add(web_, "2026-03-28T12:00+01:00", "2026-03-30T12:00+02:00");
    const auto groups = days();
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].seconds, 23 * 3600);
}

TEST_F(Timesheet, seesChangesThatAreNotSavedYet) {
    const auto entry = add(web_, "2026-03-03T09:00+01:00", "2026-03-03T10:00+01:00");
    library_.context().save();
    entry->start = at("2026-04-03T09:00+02:00");
    entry->end = at("2026-04-03T10:00+02:00");
    EXPECT_THAT(shown(), IsEmpty());
}

}  // namespace
}  // namespace elmworth
