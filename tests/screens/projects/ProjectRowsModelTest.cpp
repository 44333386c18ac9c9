// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the row of a project says.

#include "screens/projects/ProjectRowsModel.h"

#include "screens/projects/ProjectsTest.h"

namespace elmworth {
namespace {

using test::Lines;

class ProjectRows : public test::ProjectsTest {
 protected:
    ProjectRows() {
        QObject::connect(model.rowsModel(), &QAbstractItemModel::dataChanged,
                         [this](const QModelIndex& first, const QModelIndex& last) {
                             for (int row = first.row(); row <= last.row(); ++row) {
                                 changed.push_back(textAt(row, Rows::title));
                             }
                         });
    }
    void budget(const Ref<Project>& project, std::int64_t hours) {
        project->budgetHours = hours;
        save();
    }
    [[nodiscard]] Lines takeChanged() {
        turn();
        return std::exchange(changed, {});
    }

    Lines changed;
};

/// Without anybody who asks for what changed.
using UnseenProjectRows = test::ProjectsTest;

TEST_F(ProjectRows, sayWhatWasTrackedAndWhatIsUnbilled) {
    bill(entry(website, "05:00", "06:30"));
    entry(website, "07:00", "08:00");
    EXPECT_EQ(text(website, Rows::time), "2:30 tracked · 1:00 unbilled");
    EXPECT_EQ(text(appProject, Rows::time), "0:00 tracked · 0:00 unbilled");
}

TEST_F(ProjectRows, sayTheBudget) {
    budget(website, 40);
    EXPECT_EQ(text(website, Rows::time), "0:00 tracked · 0:00 unbilled · budget 40 h");
}

TEST_F(ProjectRows, runningTimeUsesTheBudget) {
    budget(website, 10);
    entry(website, "00:00", "07:00");
    service().start(website);
    EXPECT_DOUBLE_EQ(value(rowOf(website), Rows::budgetFraction).toDouble(), 0.7);
    EXPECT_EQ(value(rowOf(website), Rows::budgetLevel).toInt(), 0);
    EXPECT_TRUE(value(rowOf(website), Rows::isRunning).toBool());
    EXPECT_FALSE(value(rowOf(appProject), Rows::isRunning).toBool());
    passTo("10:00:01");
    EXPECT_NEAR(value(rowOf(website), Rows::budgetFraction).toDouble(), 0.8, 0.0001);
    EXPECT_EQ(value(rowOf(website), Rows::budgetLevel).toInt(), 1);
    EXPECT_EQ(text(website, Rows::budgetHelp), "80% of budget used");
}

TEST_F(ProjectRows, overBudgetTheyNameAllOfIt) {
    budget(website, 4);
    entry(website, "01:00", "06:00");
    EXPECT_EQ(text(website, Rows::budgetHelp), "125% of budget used");
    EXPECT_EQ(text(website, Rows::budgetLabel), "125 percent of budget used");
    EXPECT_EQ(value(rowOf(website), Rows::budgetLevel).toInt(), 2);
}

TEST_F(ProjectRows, haveABarForABudgetOfAtLeastAnHour) {
    EXPECT_FALSE(value(rowOf(website), Rows::hasBudget).toBool());
    budget(website, 0);
    EXPECT_FALSE(value(rowOf(website), Rows::hasBudget).toBool());
    budget(website, 1);
    EXPECT_TRUE(value(rowOf(website), Rows::hasBudget).toBool());
}

TEST_F(ProjectRows, sayTheRateThatHolds) {
    EXPECT_EQ(text(website, Rows::rate), "$120.00/h");
    EXPECT_FALSE(value(rowOf(website), Rows::hasCustomRate).toBool());
    website->rateOverrideCents = 15050;
    acme->currencyCode = "EUR";
    save();
    EXPECT_EQ(text(website, Rows::rate), "€150.50/h");
    EXPECT_TRUE(value(rowOf(website), Rows::hasCustomRate).toBool());
    EXPECT_EQ(text(appProject, Rows::rate), "€120.00/h");
}

TEST_F(ProjectRows, sayAllOfItInASentence) {
    EXPECT_EQ(text(website, Rows::summary), "Website, 0:00 tracked · 0:00 unbilled, $120.00/h");
    website->rateOverrideCents = 15000;
    website->isArchived = true;
    budget(website, 2);
    model.setShowsArchived(true);
    service().start(website);
    turn();
    passTo("10:00");
    EXPECT_EQ(text(website, Rows::summary),
              "Website, Archived, Custom rate, 0:00 tracked · 0:00 unbilled · budget 2 h, "
              "50 percent of budget used, $150.00/h, Running");
}

TEST_F(ProjectRows, namesAreShownAsTheyAre) {
    website->name = "<b>%1</b> &amp; \u05D0\u05EA\u05E8";
    save();
    EXPECT_EQ(text(website, Rows::title), website->name.get());
    EXPECT_TRUE(text(website, Rows::summary).starts_with(website->name.get() + ", 0:00 tracked"));
}

// --- what changes shows, and nothing else --------------------------------------------------------

TEST_F(ProjectRows, finishedTimeChangesItsOwnRow) {
    (void)lines();
    (void)text(website, Rows::time);
    (void)text(appProject, Rows::time);
    (void)takeChanged();
    entry(website, "07:00", "08:00");
    EXPECT_EQ(takeChanged(), Lines{"Website"});
    EXPECT_EQ(text(website, Rows::time), "1:00 tracked · 1:00 unbilled");
}

TEST_F(ProjectRows, aClientChangesItsHeadAndItsProjects) {
    const auto globex = client("Globex");
    project("Shop", globex);
    EXPECT_EQ(text(appProject, Rows::rate), "$120.00/h");
    (void)takeChanged();
    acme->currencyCode = "EUR";
    save();
    EXPECT_EQ(takeChanged(), (Lines{"Acme Co", "App", "Website"}));
    EXPECT_EQ(text(appProject, Rows::rate), "€120.00/h");
}

TEST_F(ProjectRows, aSwitchOfTheTimerChangesBothRows) {
    service().start(website);
    (void)takeChanged();
    passTo("09:10");
    service().start(appProject);
    const auto rows = takeChanged();
    EXPECT_NE(std::ranges::find(rows, "App"), rows.end());
    EXPECT_NE(std::ranges::find(rows, "Website"), rows.end());
    EXPECT_EQ(std::ranges::find(rows, "Acme Co"), rows.end());
}

TEST_F(ProjectRows, aTickChangesTheRunningBudgetAloneAndReadsNothing) {
    budget(website, 1);
    budget(appProject, 1);
    service().start(website);
    passTo("09:01");
    for (int row = 0; row < 3; ++row) (void)textAt(row, Rows::summary);
    (void)takeChanged();
    (void)test::StatementTrace::take();
    passTo("09:02");
    EXPECT_EQ(changed, Lines{"Website"});
    EXPECT_EQ(test::StatementTrace::take(), Lines{});
    EXPECT_EQ(text(website, Rows::budgetHelp), "3% of budget used");
}

TEST_F(ProjectRows, aTickThatNobodyWouldSeeChangesNothing) {
    budget(website, 1000);
    service().start(website);
    passTo("09:01");
    (void)text(website, Rows::summary);
    passTo("09:02");
    (void)takeChanged();
    passTo("09:02:01");
    EXPECT_EQ(takeChanged(), Lines{});
}

TEST_F(ProjectRows, aTickWithoutABudgetChangesNothing) {
    service().start(website);
    passTo("09:01");
    (void)text(website, Rows::summary);
    (void)takeChanged();
    passTo("09:02");
    EXPECT_EQ(takeChanged(), Lines{});
}

TEST_F(ProjectRows, aTickWhileNobodyLooksChangesNothing) {
    budget(website, 1);
    service().start(website);
    passTo("09:01");
    (void)text(website, Rows::summary);
    model.setShown(false);
    (void)takeChanged();
    passTo("09:30");
    EXPECT_EQ(takeChanged(), Lines{});
    model.setShown(true);
    EXPECT_EQ(text(website, Rows::budgetHelp), "50% of budget used");
}

TEST_F(ProjectRows, anEarlierStartOfTheRunningEntryShowsInItsBudget) {
    budget(website, 10);
    service().start(website);
    passTo("09:01");
    (void)text(website, Rows::summary);
    service().running()->start = test::TestTimer::today("07:01");
    save();
    EXPECT_EQ(text(website, Rows::budgetHelp), "20% of budget used");
}

TEST_F(UnseenProjectRows, areReadOnceAndOnlyWhenAViewAsks) {
    entry(website, "07:00", "08:00");
    entry(appProject, "07:00", "08:00");
    model.setShown(false);
    context().save();
    (void)test::StatementTrace::take();
    website->name = "Site";
    context().save();
    (void)test::StatementTrace::take();
    model.setShown(true);
    const auto aboutEntries = [](const Lines& statements) {
        return std::ranges::count_if(statements, [](const std::string& sql) {
            return sql.find("\"TimeEntry\"") != std::string::npos;
        });
    };
    EXPECT_EQ(aboutEntries(test::StatementTrace::take()), 0) << "nothing shows yet";
    for (int round = 0; round < 2; ++round) {
        (void)text(website, Rows::time);
        (void)text(website, Rows::summary);
    }
    EXPECT_LE(aboutEntries(test::StatementTrace::take()), 2) << "one project, once";
}

}  // namespace
}  // namespace elmworth
