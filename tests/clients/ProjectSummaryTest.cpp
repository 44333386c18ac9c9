// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectSummary.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class ProjectSummaryTest : public testing::Test {
 protected:
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    ProjectSummary website() { return projectSummaries(context(), {website_}, now_).at(0); }

    Instant now_ = test::at("2026-03-02T12:00Z");
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
    Ref<TimeEntry> billed_ = library_.addEntry(website_, now_ - 4h, now_ - 3h);
    Ref<TimeEntry> unbilled_ = library_.addEntry(website_, now_ - 2h, now_ - 90min);
    Ref<TimeEntry> running_ = library_.addEntry(website_, now_ - 30min, std::nullopt);
};

TEST_F(ProjectSummaryTest, runningTimeUsesTheBudgetButIsNotTrackedYet) {
    billed_->invoice = library_.addInvoice("A", client_);
    website_->budgetHours = 4;
    for (int i = 0; i < 2; ++i) {  // as pending, and as stored
        EXPECT_EQ(website().trackedSeconds, 5400);
        EXPECT_EQ(website().unbilledSeconds, 1800);
        EXPECT_EQ(website().budgetFraction, 0.5);
        EXPECT_EQ(website().budgetFraction, website_->budgetFraction(now_));
        context().save();
    }
}

TEST_F(ProjectSummaryTest, aBudgetOfLessThanAnHourIsNone) {
    EXPECT_FALSE(website().budgetFraction);
    website_->budgetHours = 0;
    EXPECT_FALSE(website().budgetFraction);
}

TEST_F(ProjectSummaryTest, fewOfManyProjectsHaveTheSameFigures) {
    for (int i = 0; i < 8; ++i)
        library_.addEntry(library_.addProject("Other", client_), now_ - 2h, now_);
    EXPECT_EQ(website().trackedSeconds, 5400);
}

TEST_F(ProjectSummaryTest, allStandByNameAndArchivedOnesOnRequest) {
    library_.addProject("app 10", client_);
    library_.addProject("App 9", client_)->isArchived = true;
    const auto names = [&](bool withArchived) {
        std::vector<std::string> texts;
        for (const auto& summary : allProjectSummaries(context(), now_, withArchived))
            texts.push_back(summary.project->name);
        return texts;
    };
    EXPECT_EQ(names(false), (std::vector<std::string>{"app 10", "Website"}));
    EXPECT_EQ(names(true), (std::vector<std::string>{"App 9", "app 10", "Website"}));
}

}  // namespace
}  // namespace elmworth
