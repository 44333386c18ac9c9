// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryForm.h"

#include <gtest/gtest.h>

#include "platform/ISO8601.h"
#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/Rows.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class EntryFormTest : public testing::Test {
 protected:
    [[nodiscard]] EntryForm form() const {
        return {website_, now_ - 2h, now_ - 1h, "Landing page", false};
    }

    Instant now_ = at("2026-03-02T12:00Z");
    test::TestLibrary library_;
    Ref<Project> website_ = library_.addProject("Website", library_.addClient("Acme"));
    TimerService timer_{library_.context(), [this] { return now_; }, library_.runLoop,
                        [] { return Calendar(Locale("en_US"), "UTC"); }};
};

TEST_F(EntryFormTest, aFinishedSpanOnAProjectCanBeSaved) {
    EXPECT_EQ(form().problem(now_), std::nullopt);
}

struct NewEntryRow {
    const char* name;
    const char* zone;
    const char* day;  ///< empty for today
    const char* now;
    const char* start;
};

void PrintTo(const NewEntryRow& row, std::ostream* out) {
    *out << row.name;
}

class NewEntry : public EntryFormTest, public testing::WithParamInterface<NewEntryRow> {};

TEST_P(NewEntry, isAnHourFromNineOnOrAnHourAgo) {
    const auto& row = GetParam();
    const auto day = *row.day == '\0' ? std::nullopt : std::optional(at(row.day));
    const auto form =
        EntryForm::forNewEntry(day, at(row.now), Calendar(Locale("en_US"), row.zone), timer_);
    EXPECT_EQ(test::iso(form.start), row.start);
    EXPECT_EQ(form.end - form.start, 1h);
    EXPECT_EQ(form.project, website_);
    EXPECT_EQ(form.problem(at(row.now)), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Row, NewEntry,
    testing::ValuesIn(std::vector<NewEntryRow>{
        {"PastDay", "UTC", "2026-02-20T17:00Z", "2026-03-02T15:00Z", "2026-02-20T09:00:00Z"},
        {"TodayAt0830", "UTC", "", "2026-03-02T08:30Z", "2026-03-02T07:30:00Z"},
        {"TodayAt15", "UTC", "", "2026-03-02T15:00Z", "2026-03-02T09:00:00Z"},
        {"TodayAtTen", "UTC", "", "2026-03-02T10:00Z", "2026-03-02T09:00:00Z"},
        {"TodayHalfPastMidnight", "UTC", "", "2026-03-02T00:30Z", "2026-03-01T23:30:00Z"},
        {"DayToCome", "UTC", "2026-03-05T12:00Z", "2026-03-02T15:00Z", "2026-03-02T14:00:00Z"},
        {"DayOf23Hours", "Europe/Berlin", "2026-03-29T12:00+02:00", "2026-04-02T15:00Z",
         "2026-03-29T07:00:00Z"},
        {"DayOf25Hours", "America/New_York", "2026-11-01T12:00-05:00", "2026-11-02T15:00Z",
         "2026-11-01T14:00:00Z"},
    }),
    test::rowName);

TEST_F(EntryFormTest, aNewEntryHasNoProjectWhenThereIsNone) {
    website_->isArchived = true;
    const Calendar calendar(Locale("en_US"), "UTC");
    EXPECT_FALSE(EntryForm::forNewEntry({}, now_, calendar, timer_).project);
}

TEST_F(EntryFormTest, anEntrysFormIsWhatItHoldsAndARunningOneEndsNow) {
    const auto entry = library_.addEntry(website_, now_ - 2h, now_ - 1h);
    entry->notes = "Landing page";
    EXPECT_EQ(EntryForm::of(*entry, now_), form());
    entry->end = std::nullopt;
    EXPECT_EQ(EntryForm::of(*entry, now_),
              (EntryForm{website_, now_ - 2h, now_, "Landing page", true}));
}

TEST_F(EntryFormTest, aProjectMustBeChosen) {
    auto form = this->form();
    form.project = nullptr;
    EXPECT_EQ(form.problem(now_), "Choose a project.");
    EXPECT_EQ(form.timeProblem(now_), std::nullopt);
}

TEST_F(EntryFormTest, theEndMustBeAfterTheStart) {
    auto form = this->form();
    form.end = form.start;
    EXPECT_EQ(form.problem(now_), "End must be after start.");
    form.end = form.start - 1s;
    EXPECT_EQ(form.problem(now_), "End must be after start.");
    form.end = form.start + 1us;
    EXPECT_EQ(form.problem(now_), std::nullopt);
}

TEST_F(EntryFormTest, aRunningEntryHasNoEndToLookAt) {
    auto form = this->form();
    form.wasRunning = true;
    form.end = form.start - 1h;
    EXPECT_EQ(form.problem(now_), std::nullopt);
}

TEST_F(EntryFormTest, onlyTheStartMayNotLieInTheFuture) {
    auto form = this->form();
    form.start = now_;
    form.end = now_ + 24h;
    EXPECT_EQ(form.problem(now_), std::nullopt);
    form.start = now_ + 1us;
    EXPECT_EQ(form.problem(now_), "The start can't be in the future.");
    form.wasRunning = true;
    EXPECT_EQ(form.problem(now_), "The start can't be in the future.");
}

TEST_F(EntryFormTest, timesThatABackupCannotHoldCannotBeSaved) {
    auto form = this->form();
    form.end = latestISO8601;
    EXPECT_EQ(form.problem(now_), std::nullopt);
    form.end += 1us;
    EXPECT_EQ(form.problem(now_), "Times must lie in the years 0 to 9999.");
    form.wasRunning = true;
    EXPECT_EQ(form.problem(now_), std::nullopt);
    form.start = earliestISO8601 - 1us;
    EXPECT_EQ(form.problem(now_), "Times must lie in the years 0 to 9999.");
}

TEST_F(EntryFormTest, aNewEntryIsOnDisk) {
    const auto id = form().save(nullptr, library_.context(), timer_)->id();
    library_.reopen();
    const auto entry = library_.context().record<TimeEntry>(id);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->project->name.get(), "Website");
    EXPECT_EQ(entry->start.get(), now_ - 2h);
    EXPECT_EQ(entry->end.get(), now_ - 1h);
    EXPECT_EQ(entry->notes.get(), "Landing page");
}

TEST_F(EntryFormTest, anEntryTakesEveryFieldOfTheForm) {
    const auto entry = library_.addEntry(nullptr, now_ - 9h, now_ - 8h);
    EXPECT_EQ(form().save(entry, library_.context(), timer_), entry);
    EXPECT_EQ(entry->project.get(), website_);
    EXPECT_EQ(entry->start.get(), now_ - 2h);
    EXPECT_EQ(entry->end.get(), now_ - 1h);
    EXPECT_EQ(entry->notes.get(), "Landing page");
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

TEST_F(EntryFormTest, aRunningEntryStaysRunningAndShowsItsNewTimeAtOnce) {
    timer_.start(website_);
    auto form = this->form();
    form.wasRunning = true;
    form.start = now_ - 65min;
    form.save(timer_.running(), library_.context(), timer_);
    ASSERT_TRUE(timer_.running());
    EXPECT_TRUE(timer_.running()->isRunning());
    EXPECT_EQ(timer_.elapsedLongText(), "1:05:00");
}

TEST_F(EntryFormTest, anEntryThatCannotBeSavedStaysPending) {
    library_.context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        form().save(nullptr, library_.context(), timer_);
        EXPECT_TRUE(library_.context().hasChanges());
    }
    library_.context().save();
    library_.reopen();
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

}  // namespace
}  // namespace elmworth
