// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/DemoData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "invoicing/InvoiceCalculator.h"
#include "records/ProfileStore.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"
#include "tracking/TimerService.h"

namespace elmworth {
namespace {

using test::at;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class DemoDataTest : public testing::Test {
 protected:
    void seed(Instant now) {
        now_ = now;
        DemoData::seed(library_.context(), defaults_, now, calendar_);
    }
    void seed(const char* now = "2026-03-19T15:00-04:00") { seed(at(now)); }

    [[nodiscard]] UnitOfWork& context() { return library_.context(); }

    std::vector<Ref<TimeEntry>> finishedEntries() {
        return context().fetch(
            Query<TimeEntry>{.predicate = key<&TimeEntry::end>() != absent,
                             .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)}});
    }
    Ref<Invoice> invoice(const std::string& number) {
        return context()
            .fetch(Query<Invoice>{.predicate = key<&Invoice::number>() == number})
            .at(0);
    }
    static std::vector<std::string> notes(const std::vector<Ref<TimeEntry>>& entries) {
        std::vector<std::string> texts;
        for (const auto& entry : entries) texts.push_back(entry->notes);
        return texts;
    }

    Instant now_;
    Calendar calendar_{Locale("en_US"), "America/New_York"};
    test::TestLibrary library_;
    Settings defaults_{library_.folder.path() / "ElmworthDemo.ini"};
};

TEST_F(DemoDataTest, holdsClientsProjectsEntriesATimerAndInvoices) {
    seed();
    EXPECT_EQ(context().fetchCount<Client>(), 3U);
    EXPECT_EQ(context().fetchCount<Project>(), 5U);
    EXPECT_EQ(finishedEntries().size(), 12U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 13U);
    EXPECT_EQ(context().fetchCount<Invoice>(), 2U);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(DemoDataTest, entriesStartAtTheirHourAndLastAsLongAsTheySay) {
    seed();
    const auto entries = finishedEntries();
    EXPECT_EQ(entries.front()->notes.get(), "Onboarding flow review");
    EXPECT_EQ(entries.front()->start.get(), at("2026-03-19T13:00-04:00"));
    EXPECT_EQ(entries.front()->duration(now_), 120 * 60 - 60) << "it ends a minute before now";
    EXPECT_EQ(entries.back()->notes.get(), "Blog templates");
    EXPECT_EQ(entries.back()->start.get(), at("2026-03-09T10:00-04:00"));
    EXPECT_EQ(entries.back()->duration(now_), 160 * 60);
}

TEST_F(DemoDataTest, atEightTheEntriesOfTodayAreStillToCome) {
    seed("2026-03-19T08:00-04:00");
    EXPECT_EQ(finishedEntries().size(), 10U);
}

TEST_F(DemoDataTest, atHalfPastNineTheFirstEntryEndsAMinuteAgo) {
    seed("2026-03-19T09:30-04:00");
    ASSERT_EQ(finishedEntries().size(), 11U);
    EXPECT_EQ(finishedEntries().front()->start.get(), at("2026-03-19T09:00-04:00"));
    EXPECT_EQ(finishedEntries().front()->end.get(), at("2026-03-19T09:29-04:00"));
}

TEST_F(DemoDataTest, anEntryThatWouldStartNowIsSkipped) {
    seed("2026-03-19T09:00-04:00");
    EXPECT_EQ(finishedEntries().size(), 10U);
}

TEST_F(DemoDataTest, theFirstInvoiceIsSentAndOverdueWithAllTimeOfItsClient) {
    seed();
    const auto first = invoice("INV-2026-001");
    EXPECT_EQ(first->client->name.get(), "Initech");
    EXPECT_EQ(first->status(), InvoiceStatus::sent);
    EXPECT_TRUE(first->isOverdue(now_, calendar_));
    EXPECT_EQ(first->issueDate.get(), now_ - std::chrono::hours(20 * 24));
    EXPECT_THAT(notes(first->entries()), ElementsAre("New cover sheets"));
    EXPECT_EQ(InvoiceCalculator::totals(*first).totalCents, 7600);
}

TEST_F(DemoDataTest, theSecondInvoiceIsADraftWithTaxOnTheTimeOfAWeekAgo) {
    seed();
    const auto second = invoice("INV-2026-002");
    EXPECT_EQ(second->client->name.get(), "Acme Co");
    EXPECT_EQ(second->status(), InvoiceStatus::draft);
    EXPECT_EQ(second->issueDate.get(), now_);
    EXPECT_EQ(second->taxRateBasisPoints.get(), 825);
    EXPECT_THAT(notes(second->entries()), UnorderedElementsAre("Logo lockups", "Blog templates"));
    EXPECT_EQ(InvoiceCalculator::totals(*second).totalCents, 63651);
}

TEST_F(DemoDataTest, theTimerHasRunForThreeQuartersOfAnHour) {
    seed();
    TimerService timer(
        context(), [this] { return now_; }, library_.runLoop, [this] { return calendar_; });
    timer.restore();
    ASSERT_TRUE(timer.running());
    EXPECT_EQ(timer.elapsedLongText(), "0:47:12");
    EXPECT_EQ(timer.running()->notes.get(), "Case study page");
    EXPECT_EQ(timer.running()->project->name.get(), "Website Redesign");
}

TEST_F(DemoDataTest, theProfileGoesToTheSettingsWithTheNumbersUsed) {
    seed();
    const ProfileStore profiles(defaults_);
    EXPECT_EQ(profiles.profile().name, "Jane Doe Design");
    EXPECT_EQ(profiles.profile().nextInvoiceNumber, 3);
    EXPECT_EQ(profiles.profile().numberingYear, 2026);
}

TEST_F(DemoDataTest, thereAreTwoInvoicesAtWhateverHourOfTheYear) {
    for (int day = 0; day < 365; day += 7) {
        test::TestLibrary library;
        const Instant now = at("2026-01-01T00:30-05:00") + std::chrono::hours(day * 25);
        DemoData::seed(library.context(), defaults_, now, calendar_);
        ASSERT_EQ(library.context().fetchCount<Invoice>(), 2U) << test::iso(now);
        const auto finished = library.context().fetchCount(
            Query<TimeEntry>{.predicate = key<&TimeEntry::end>() != absent});
        ASSERT_GE(finished, 10U) << test::iso(now);
    }
}

}  // namespace
}  // namespace elmworth
