// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/ProjectTimes.h"

#include <gtest/gtest.h>

#include <random>

#include "records/TimeEntry.h"
#include "support/FailingReads.h"
#include "support/Instants.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::StatementTrace;
using Projects = ProjectTimes::Projects;

class ProjectTimesTest : public testing::Test {
 protected:
    Ref<TimeEntry> addEntry(const Ref<Project>& project, Instant::duration length) {
        return library_.addEntry(project, start_, start_ + length);
    }
    void saveAndForget() {
        library_.context().save();
        heard_.clear();
    }
    UnbilledTime unbilled(const Ref<Project>& project) { return times_.unbilled(project); }
    /// Both figures are asked for, so that both are kept.
    void ask() {
        for (const auto& project : {website_, app_}) {
            (void)times_.trackedSeconds(project);
            (void)times_.unbilled(project);
        }
    }

    const StatementTrace trace_;
    const Instant start_ = at("2026-03-02T09:00Z");
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
    Ref<Project> app_ = library_.addProject("App", client_);
    std::vector<Projects> heard_;
    ProjectTimes times_{library_.context(),
                        [this](const Projects& projects) { heard_.push_back(projects); }};
};

TEST_F(ProjectTimesTest, runningTimeNeverCountsAndBilledTimeIsTracked) {
    library_.addEntry(website_, start_, std::nullopt);
    addEntry(website_, 1h)->invoice = library_.addInvoice("1", client_);
    addEntry(website_, 30min);
    EXPECT_EQ(times_.trackedSeconds(website_), 5400);
    EXPECT_EQ(unbilled(website_).seconds, 1800);
    EXPECT_EQ(unbilled(website_).cents, 5000);
}

TEST_F(ProjectTimesTest, aFrozenRateHolds) {
    addEntry(website_, 1h)->billedRateCents = 7000;
    EXPECT_EQ(unbilled(website_).cents, 7000);
}

TEST_F(ProjectTimesTest, eachProjectIsReadOnceAndOnlyWhenItIsAskedFor) {
    addEntry(website_, 1h);
    addEntry(app_, 2h);
    library_.context().save();
    (void)StatementTrace::take();
    EXPECT_EQ(unbilled(website_).seconds, 3600);
    EXPECT_EQ(times_.trackedSeconds(website_), 3600);
    EXPECT_EQ(StatementTrace::take().size(), 2U) << "one for each figure";
    EXPECT_EQ(unbilled(website_).seconds, 3600);
    EXPECT_EQ(times_.trackedSeconds(website_), 3600);
    EXPECT_TRUE(StatementTrace::take().empty());
}

TEST_F(ProjectTimesTest, aChangeCostsTheProjectsThatItTouches) {
    const auto entry = addEntry(website_, 1h);
    addEntry(app_, 2h);
    ask();
    saveAndForget();
    ask();
    entry->end = start_ + 2h;
    library_.context().save();
    ASSERT_EQ(heard_, std::vector{Projects{website_->id()}});
    (void)StatementTrace::take();
    EXPECT_EQ(unbilled(app_).seconds, 7200);
    EXPECT_TRUE(StatementTrace::take().empty());
    EXPECT_EQ(unbilled(website_).seconds, 7200);
    EXPECT_EQ(times_.trackedSeconds(website_), 7200);
}

TEST_F(ProjectTimesTest, notesArchivesAndNamesTouchNothing) {
    const auto entry = addEntry(website_, 1h);
    ask();
    saveAndForget();
    ask();
    entry->notes = "Layout";
    website_->name = "Site";
    website_->isArchived = true;
    client_->email = "billing@acme.example";
    library_.context().save();
    EXPECT_TRUE(heard_.empty());
}

TEST_F(ProjectTimesTest, aRunningEntryTouchesNothingUntilItStops) {
    ask();
    saveAndForget();
    ask();
    const auto entry = library_.addEntry(website_, start_, std::nullopt);
    library_.context().save();
    EXPECT_TRUE(heard_.empty());
    entry->end = start_ + 1h;
    library_.context().save();
    EXPECT_EQ(heard_, std::vector{Projects{website_->id()}});
    EXPECT_EQ(unbilled(website_).seconds, 3600);
}

struct Change {
    const char* name;
    void (*make)(UnitOfWork& context, const Ref<TimeEntry>& entry, const Ref<Project>& other,
                 const Ref<Invoice>& invoice);
    bool touchesOther;
    double tracked, unbilled;  ///< of the entry's former project
};

const Change changes[] = {
    {"moved",
     [](UnitOfWork&, const Ref<TimeEntry>& entry, const Ref<Project>& other, const Ref<Invoice>&) {
         entry->project = other;
     },
     true, 0, 0},
    {"deleted",
     [](UnitOfWork& context, const Ref<TimeEntry>& entry, const Ref<Project>&,
        const Ref<Invoice>&) { context.deleteRecord(entry); },
     false, 0, 0},
    {"billed",
     [](UnitOfWork&, const Ref<TimeEntry>& entry, const Ref<Project>&,
        const Ref<Invoice>& invoice) { entry->invoice = invoice; },
     false, 3600, 0},
    {"resumed",
     [](UnitOfWork&, const Ref<TimeEntry>& entry, const Ref<Project>&, const Ref<Invoice>&) {
         entry->end = std::nullopt;
     },
     false, 0, 0},
};

class ChangedEntry : public ProjectTimesTest, public testing::WithParamInterface<Change> {};

TEST_P(ChangedEntry, isTakenFromTheProjectThatItWasIn) {
    const auto entry = addEntry(website_, 1h);
    const auto invoice = library_.addInvoice("1", client_);
    library_.context().save();
    ask();
    heard_.clear();
    GetParam().make(library_.context(), entry, app_, invoice);
    library_.context().save();
    Projects expected{website_->id()};
    if (GetParam().touchesOther) expected.insert(app_->id());
    ASSERT_EQ(heard_, std::vector{expected});
    EXPECT_EQ(times_.trackedSeconds(website_), GetParam().tracked);
    EXPECT_EQ(unbilled(website_).seconds, GetParam().unbilled);
    EXPECT_EQ(unbilled(app_).seconds, GetParam().touchesOther ? 3600 : 0);
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangedEntry, testing::ValuesIn(changes),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ProjectTimesTest, anInvoiceThatGoesGivesItsTimeBack) {
    const auto invoice = library_.addInvoice("1", client_);
    addEntry(website_, 1h)->invoice = invoice;
    library_.context().save();
    ask();
    library_.context().deleteRecord(invoice);
    library_.context().save();
    EXPECT_EQ(unbilled(website_).seconds, 3600);
}

TEST_F(ProjectTimesTest, billedTimeThatLeavesIsNoLongerTracked) {
    const auto entry = addEntry(website_, 1h);
    entry->invoice = library_.addInvoice("1", client_);
    library_.context().save();
    EXPECT_EQ(times_.trackedSeconds(website_), 3600);
    heard_.clear();
    entry->project = app_;
    library_.context().save();
    EXPECT_EQ(heard_, std::vector{Projects{website_->id()}});
    EXPECT_EQ(times_.trackedSeconds(website_), 0);
}

TEST_F(ProjectTimesTest, ratesOfClientsAndProjectsCountAtOnce) {
    addEntry(website_, 1h);
    app_->rateOverrideCents = 5000;
    addEntry(app_, 1h);
    library_.context().save();
    ask();
    client_->hourlyRateCents = 20000;
    library_.context().save();
    EXPECT_EQ(unbilled(website_).cents, 20000);
    EXPECT_EQ(unbilled(app_).cents, 5000);
    app_->rateOverrideCents = std::nullopt;
    library_.context().save();
    EXPECT_EQ(unbilled(app_).cents, 20000);
    const auto other = library_.addClient("Globex");
    other->hourlyRateCents = 1000;
    app_->client = other;
    library_.context().save();
    EXPECT_EQ(unbilled(app_).cents, 1000);
}

TEST_F(ProjectTimesTest, manyChangesAtOnceTouchAllThatWasAskedFor) {
    ask();
    saveAndForget();
    ask();
    for (int i = 0; i < 600; ++i) addEntry(website_, 1min);
    library_.context().save();
    ASSERT_EQ(heard_.size(), 1U);
    EXPECT_EQ(unbilled(website_).seconds, 36000);
    EXPECT_EQ(times_.trackedSeconds(website_), 36000);
}

/// Whatever happens, what is kept is what would be read now.
TEST_F(ProjectTimesTest, isAlwaysWhatTheLibraryHolds) {
    auto& context = library_.context();
    const auto invoice = library_.addInvoice("1", client_);
    const std::vector projects{website_, app_, library_.addProject("Shop", client_)};
    std::vector<Ref<TimeEntry>> entries;
    std::mt19937 dice(20260302);
    const auto any = [&](std::size_t count) { return dice() % count; };
    for (int step = 0; step < 400; ++step) {
        if (entries.size() < 5) entries.push_back(addEntry(projects[any(3)], 1min));
        const auto at = any(entries.size());
        const auto entry = entries[at];
        switch (any(8)) {
            case 0:
                entries.push_back(addEntry(projects[any(3)], std::chrono::minutes(any(99))));
                break;
            case 1:
                entry->project = any(4) == 0 ? nullptr : projects[any(3)];
                break;
            case 2:
                entry->end = entry->start.get() + std::chrono::minutes(any(99));
                break;
            case 3:
                entry->end = std::nullopt;
                break;
            case 4:
                entry->invoice = entry->invoice ? nullptr : invoice;
                break;
            case 5:
                projects[any(3)]->rateOverrideCents = static_cast<std::int64_t>(any(9000));
                break;
            case 6:
                client_->hourlyRateCents = static_cast<std::int64_t>(any(9000));
                break;
            default:
                context.deleteRecord(entry);
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(at));
        }
        if (any(3) == 0) continue;  // several changes in one save
        context.save();
        for (const auto& project : projects) {
            const auto fresh = unbilledTime(context, project);
            ASSERT_EQ(unbilled(project).seconds, fresh.seconds) << step;
            ASSERT_EQ(unbilled(project).cents, fresh.cents) << step;
            double tracked = 0;
            for (const auto& each : project->entries()) {
                if (!each->isRunning()) tracked += each->duration();
            }
            ASSERT_EQ(times_.trackedSeconds(project), tracked) << step;
        }
    }
}

TEST_F(ProjectTimesTest, aDeletedProjectIsForgotten) {
    addEntry(website_, 1h);
    library_.context().save();
    ask();
    library_.context().deleteRecord(website_);
    EXPECT_NO_THROW(library_.context().save());
    EXPECT_EQ(unbilled(app_).seconds, 0);
}

TEST(ProjectTimesOnADamagedDisk, countAsNoneUntilTheyCanBeRead) {
    const test::FailingReads disk;
    test::TestLibrary library;
    const auto project = library.addProject("Website", library.addClient("Acme"));
    const Instant start = at("2026-03-02T09:00Z");
    library.addEntry(project, start, start + 1h);
    library.context().save();
    ProjectTimes times(library.context(), nullptr);
    disk.fail();
    EXPECT_EQ(times.unbilled(project).seconds, 0);
    EXPECT_EQ(times.trackedSeconds(project), 0);
    disk.heal();
    EXPECT_EQ(times.unbilled(project).seconds, 3600);
    EXPECT_EQ(times.trackedSeconds(project), 3600);
}

}  // namespace
}  // namespace elmworth
