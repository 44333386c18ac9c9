// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ProjectSectionModel.h"

#include <QAbstractItemModelTester>

#include "screens/panel/PanelModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth {
namespace {

using test::utf8;
using Texts = std::vector<std::string>;

class ProjectSectionTest : public test::LibraryTest {
 protected:
    /// Projects "A", "B" and so on.
    void addProjects(int count) {
        for (int i = 0; i < count; ++i) project(std::string(1, static_cast<char>('A' + i)));
    }
    [[nodiscard]] Ref<Project> named(const std::string& name) {
        return context().fetch(Query<Project>{.predicate = key<&Project::name>() == name}).at(0);
    }
    [[nodiscard]] Texts rows(QString ProjectStartRow::*text) const {
        Texts texts;
        for (const auto& row : section.rows()) texts.push_back(utf8(row.*text));
        return texts;
    }
    [[nodiscard]] Texts names() const { return rows(&ProjectStartRow::name); }
    [[nodiscard]] Texts hints() const { return rows(&ProjectStartRow::hint); }
    [[nodiscard]] std::string title() const { return utf8(section.title()); }
    Texts find(const char* text) {
        section.setSearch(QString::fromUtf8(text));
        return names();
    }

    PanelModel panel{services()};
    ProjectSectionModel& section = *panel.projects();
    QAbstractItemModelTester tester{section.rowsModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

// --- the list without a search -------------------------------------------------------------------

TEST_F(ProjectSectionTest, theRunningOneOfSixProjectsIsNotInTheList) {
    addProjects(6);
    service().start(named("C"));
    EXPECT_EQ(names(), (Texts{"A", "B", "D", "E", "F"}));
    EXPECT_EQ(hints(), (Texts{"Ctrl+1", "Ctrl+2", "Ctrl+3", "Ctrl+4", "Ctrl+5"}));
}

TEST_F(ProjectSectionTest, ofSevenProjectsSixAreShown) {
    addProjects(7);
    EXPECT_EQ(names(), (Texts{"A", "B", "C", "D", "E", "F"}));
    service().start(named("G"));
    EXPECT_EQ(names(), (Texts{"A", "B", "C", "D", "E", "F"}));
    service().start(named("B"));
    EXPECT_EQ(names(), (Texts{"A", "C", "D", "E", "F", "G"}));  // within a second: no trace of G
    timer.setTime("10:00");
    service().start(named("F"));
    EXPECT_EQ(names(), (Texts{"B", "A", "C", "D", "E", "G"}));
}

TEST_F(ProjectSectionTest, theMostRecentlyUsedStandsFirst) {
    addProjects(3);
    entry(named("B"), "07:00", "08:00");
    entry(named("C"), "06:00", "07:00");
    EXPECT_EQ(names(), (Texts{"B", "C", "A"}));
}

TEST_F(ProjectSectionTest, theTitleSaysWhatAClickDoes) {
    addProjects(7);
    EXPECT_EQ(title(), "Start tracking");
    service().start(named("A"));
    EXPECT_EQ(title(), "Switch to");
    find("b");
    EXPECT_EQ(title(), "Results");
    find(" \t\u00A0 ");
    EXPECT_EQ(title(), "Switch to");
}

// --- the search ----------------------------------------------------------------------------------

TEST_F(ProjectSectionTest, theSearchShowsFromSevenProjectsOn) {
    addProjects(6);
    EXPECT_FALSE(section.isSearchShown());
    const auto archived = project("Old");
    archived->isArchived = true;
    context().save();
    EXPECT_FALSE(section.isSearchShown());
    project("Seventh");
    EXPECT_TRUE(section.isSearchShown());
}

TEST_F(ProjectSectionTest, aClientsNameFindsAllItsProjectsThatAreNotArchived) {
    addProjects(8);
    const auto bloom = timer.library.addClient("Bloom");
    project("Zebra", bloom);
    project("Ant", bloom);
    project("Old", bloom)->isArchived = true;
    context().save();
    EXPECT_EQ(find("LOOM"), (Texts{"Ant", "Zebra"}));
}

TEST_F(ProjectSectionTest, resultsStandByNameUncappedWithTheRunningOne) {
    for (const char* name : {"Site 10", "Site 9", "Site 1", "site 2", "Site 3", "Site 4", "Site 5",
                             "Site 6", "Other"}) {
        project(name);
    }
    service().start(named("Site 9"));
    EXPECT_EQ(find("  site "), (Texts{"Site 1", "site 2", "Site 3", "Site 4", "Site 5", "Site 6",
                                      "Site 9", "Site 10"}));
    EXPECT_EQ(hints(), (Texts{"Ctrl+1", "Ctrl+2", "Ctrl+3", "Ctrl+4", "Ctrl+5", "Ctrl+6", "", ""}));
}

TEST_F(ProjectSectionTest, aSearchWithoutMatchSaysSo) {
    addProjects(7);
    EXPECT_FALSE(section.hasNoMatches());
    EXPECT_EQ(find("nothing like it"), Texts{});
    EXPECT_TRUE(section.hasNoMatches());
    find("");
    EXPECT_FALSE(section.hasNoMatches());
}

TEST_F(ProjectSectionTest, theOnlyProjectRunningIsNotASearchWithoutMatch) {
    addProjects(1);
    service().start(named("A"));
    EXPECT_EQ(names(), Texts{});
    EXPECT_FALSE(section.hasNoMatches());
}

TEST_F(ProjectSectionTest, aSearchEndsWhenItsFieldGoes) {
    addProjects(7);
    find("g");
    named("G")->isArchived = true;
    context().save();
    EXPECT_FALSE(section.isSearchShown());
    EXPECT_TRUE(section.search().isEmpty());
    EXPECT_EQ(names().size(), 6U);
}

TEST_F(ProjectSectionTest, aSearchAsksTheLibraryForNothing) {
    addProjects(9);
    find("a");
    (void)statements();
    find("b");
    find("acme");
    EXPECT_EQ(statements(), Texts{});
    EXPECT_EQ(names().size(), 9U);
}

// --- the rows ------------------------------------------------------------------------------------

TEST_F(ProjectSectionTest, aRowSaysWhatItStarts) {
    const auto website = project("Website");
    website->colorHex = "#123456";
    context().save();
    const auto& row = section.rows().at(0);
    EXPECT_EQ(utf8(row.client), "Acme Co");
    EXPECT_EQ(utf8(row.projectColor.name()), "#123456");
    EXPECT_EQ(row.shortcut, 1);
    EXPECT_FALSE(row.isRunning);
    EXPECT_EQ(utf8(row.image), "play");
    EXPECT_EQ(utf8(row.status), "");
    EXPECT_EQ(utf8(row.help), "Start Website");
    EXPECT_EQ(utf8(row.accessibilityLabel), "Start Website");
}

TEST_F(ProjectSectionTest, theRunningRowSaysSo) {
    addProjects(7);
    service().start(named("C"));
    find("c");
    const auto& row = section.rows().at(2);
    EXPECT_EQ(utf8(row.name), "C");
    EXPECT_TRUE(row.isRunning);
    EXPECT_EQ(utf8(row.image), "");
    EXPECT_EQ(utf8(row.status), "Running");
    EXPECT_EQ(utf8(row.help), "Already running");
    EXPECT_EQ(utf8(row.accessibilityLabel), "Start C, running");
}

TEST_F(ProjectSectionTest, aProjectWithoutClientHasNone) {
    project("Own", nullptr);
    EXPECT_TRUE(section.rows().at(0).client.isEmpty());
}

TEST_F(ProjectSectionTest, aPressStartsTheProjectAndEmptiesTheSearch) {
    addProjects(7);
    service().start(named("A"));
    timer.setTime("10:00");
    find("f");
    section.start(0);
    ASSERT_TRUE(service().running());
    EXPECT_EQ(service().running()->project->name.get(), "F");
    EXPECT_EQ(timer.spans(), (Texts{"09:00:00-10:00:00", "10:00:00-"}));
    EXPECT_TRUE(section.search().isEmpty());
    EXPECT_EQ(title(), "Switch to");
}

TEST_F(ProjectSectionTest, theRunningRowDoesNotStartAgain) {
    addProjects(7);
    service().start(named("C"));
    timer.setTime("10:00");
    find("c");
    section.start(2);
    EXPECT_EQ(timer.spans(), Texts{"09:00:00-"});
    EXPECT_EQ(utf8(section.search()), "c");
}

TEST_F(ProjectSectionTest, aRowThatIsNotThereStartsNothing) {
    addProjects(1);
    section.start(-1);
    section.start(1);
    section.startProject(PersistentID::make());
    EXPECT_FALSE(service().running());
}

TEST_F(ProjectSectionTest, aSwitchMovesRowsAndResetsNothing) {
    addProjects(6);
    service().start(named("A"));
    Texts steps;
    auto* model = section.rowsModel();
    QObject::connect(model, &QAbstractItemModel::modelReset, [&] { steps.emplace_back("reset"); });
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, [&](auto&, int first, int last) {
        EXPECT_EQ(first, last);
        steps.push_back("removed " + std::to_string(first));
    });
    QObject::connect(model, &QAbstractItemModel::rowsInserted, [&](auto&, int first, int last) {
        EXPECT_EQ(first, last);
        steps.push_back("inserted " + std::to_string(first));
    });
    timer.setTime("10:00");
    service().start(named("B"));
    turn();
    EXPECT_EQ(steps, (Texts{"removed 0", "inserted 0"}));
    EXPECT_EQ(names(), (Texts{"A", "C", "D", "E", "F"}));
}

// --- the library changes -------------------------------------------------------------------------

TEST_F(ProjectSectionTest, isEmptyUntilThereIsAProject) {
    EXPECT_TRUE(section.isEmpty());
    const auto only = project("Website");
    EXPECT_FALSE(section.isEmpty());
    only->isArchived = true;
    context().save();
    EXPECT_TRUE(section.isEmpty());
}

TEST_F(ProjectSectionTest, unsavedChangesShowInTheNextTurn) {
    const auto website = project("Website");
    website->name = "Shop";
    acme()->name = "Acme Ltd";
    turn();
    EXPECT_EQ(names(), Texts{"Shop"});
    EXPECT_EQ(utf8(section.rows().at(0).client), "Acme Ltd");
}

TEST_F(ProjectSectionTest, theFirstThatASearchFoundAndThatDoesNotRunIsStarted) {
    addProjects(7);
    section.startFirstFound();
    EXPECT_FALSE(service().running()) << "without a search";
    find(" g ");
    section.startFirstFound();
    EXPECT_EQ(service().running()->project.get(), named("G"));
    EXPECT_EQ(utf8(section.search()), "");
    find("acme");
    section.startProject(named("A")->id());
    find("acme");
    section.startFirstFound();
    EXPECT_EQ(service().running()->project.get(), named("B"));
    find("nothing like it");
    section.startFirstFound();
    EXPECT_EQ(service().running()->project.get(), named("B"));
}

TEST_F(ProjectSectionTest, eachOpeningOfThePanelBeginsWithoutASearch) {
    addProjects(7);
    find("c");
    panel.refresh();
    EXPECT_EQ(utf8(section.search()), "");
    EXPECT_EQ(names().size(), 6U);
}

}  // namespace
}  // namespace elmworth
