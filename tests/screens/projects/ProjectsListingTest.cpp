// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Which projects are listed, and what stands where there are none.

#include <QAbstractItemModelTester>

#include "screens/projects/ProjectsTest.h"

namespace elmworth {
namespace {

using test::Lines;
using test::utf8;
using Projects = test::ProjectsTest;

TEST_F(Projects, areGroupedByClientBothByName) {
    const QAbstractItemModelTester tester(model.rowsModel());
    const auto client9 = client("client 9");
    const auto client10 = client("Client 10");
    project("Zoo", client9);
    project("árbol", client10);
    project("Bank", client10);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website", "client 9", "  Zoo", "Client 10",
                              "  árbol", "  Bank"}));
}

TEST_F(Projects, clientsWithoutAnyAreLeftOut) {
    client("Globex");
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
}

TEST_F(Projects, clientsOfTheSameNameKeepTheirOwn) {
    const auto other = client("Acme Co");
    project("Shop", other);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website", "Acme Co", "  Shop"}));
}

TEST_F(Projects, withoutAClientAreCountedButNotListed) {
    project("Imported", nullptr);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
    EXPECT_EQ(utf8(model.subtitle()), "3 active");
}

TEST_F(Projects, archivedOnesAreListedOnlyWhenAskedFor) {
    archive(appProject);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  Website"}));
    EXPECT_EQ(utf8(model.subtitle()), "1 active");
    model.setShowsArchived(true);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
    EXPECT_EQ(utf8(model.subtitle()), "2 total");
    model.setShowsArchived(false);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  Website"}));
}

TEST_F(Projects, theHeadSaysWhatTheClientTakesForAnHour) {
    acme->currencyCode = "EUR";
    save();
    EXPECT_EQ(text(acme, Rows::rate), "€120.00/h");
    EXPECT_EQ(text(acme, Rows::summary), "Acme Co, €120.00/h");
}

// --- search --------------------------------------------------------------------------------------

TEST_F(Projects, aSearchFindsNamesOfProjectsAndOfClientsWhateverTheirCase) {
    const auto globex = client("Globex");
    project("Shop", globex);
    model.setSearch(QStringLiteral("WEB"));
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  Website"}));
    EXPECT_EQ(utf8(model.subtitle()), "1 active");
    model.setSearch(QStringLiteral("glob"));
    EXPECT_EQ(lines(), (Lines{"Globex", "  Shop"}));
}

TEST_F(Projects, blanksAndTabsAroundASearchDoNotCount) {
    model.setSearch(QStringLiteral(" \tweb\t "));
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  Website"}));
    model.setSearch(QStringLiteral(" \t "));
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
}

TEST_F(Projects, aSearchFindsArchivedOnesOnlyWhereTheyAreListed) {
    archive(website);
    model.setSearch(QStringLiteral("web"));
    EXPECT_EQ(lines(), Lines{});
    EXPECT_TRUE(model.hasNoMatches());
    EXPECT_TRUE(model.hidesArchived());
    model.setShowsArchived(true);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  Website"}));
    EXPECT_FALSE(model.hasNoMatches());
    EXPECT_FALSE(model.hidesArchived());
}

TEST_F(Projects, aSearchThatFindsNothingIsQuotedAsItWasTyped) {
    model.setSearch(QStringLiteral(" <b>%1 "));
    EXPECT_TRUE(model.hasNoMatches());
    EXPECT_FALSE(model.showsList());
    EXPECT_FALSE(model.hidesArchived());
    EXPECT_EQ(utf8(model.noMatchesText()), "No projects match “ <b>%1 ”.");
    EXPECT_EQ(utf8(model.subtitle()), "0 active");
}

TEST_F(Projects, fromSevenOnTheyCanBeSearched) {
    for (int i = 3; i <= 6; ++i) project("Project " + std::to_string(i), acme);
    EXPECT_FALSE(model.offersSearch());
    archive(project("Project 7", acme));
    EXPECT_TRUE(model.offersSearch());
}

TEST_F(Projects, aSearchCanBeClearedWhenThereAreFewerLeft) {
    model.setSearch(QStringLiteral("web"));
    EXPECT_TRUE(model.offersSearch());
    model.setSearch(QString());
    EXPECT_FALSE(model.offersSearch());
}

// --- from nothing --------------------------------------------------------------------------------

TEST_F(Projects, withoutClientsTheWayLeadsThere) {
    remove(acme);
    EXPECT_TRUE(model.needsClient());
    EXPECT_FALSE(model.needsProject());
    EXPECT_FALSE(model.hasNoMatches());
    EXPECT_FALSE(model.showsList());
    EXPECT_FALSE(model.canAdd());
    model.add();
    EXPECT_FALSE(editor.isOpen());
    model.goToClients();
    EXPECT_EQ(defaults.string("mainSection").value_or("none"), "Clients");
}

TEST_F(Projects, withClientsAloneTheFirstProjectIsAsked) {
    remove(website);
    remove(appProject);
    EXPECT_TRUE(model.needsProject());
    EXPECT_FALSE(model.needsClient());
    EXPECT_FALSE(model.hasNoMatches());
    EXPECT_TRUE(model.canAdd());
    model.add();
    EXPECT_TRUE(editor.isOpen());
}

TEST_F(Projects, leadToThePanelWhereThereIsNoTray) {
    EXPECT_EQ(utf8(model.emptyMessage()),
              "Create a project to start tracking time against it from the system tray.");
    model.setTrayShown(false);
    EXPECT_EQ(utf8(model.emptyMessage()),
              "Create a project to start tracking time against it from the panel.");
}

TEST_F(Projects, withAllOfThemArchivedNothingMatches) {
    archive(website);
    archive(appProject);
    EXPECT_TRUE(model.hasNoMatches());
    EXPECT_TRUE(model.hidesArchived());
    EXPECT_FALSE(model.needsProject());
}

// --- while nobody looks --------------------------------------------------------------------------

TEST_F(Projects, readNothingBeforeTheyAreShown) {
    (void)test::StatementTrace::take();
    ProjectsModel other{services(), confirmation};
    turn();
    EXPECT_EQ(test::StatementTrace::take(), Lines{});
    EXPECT_FALSE(other.needsClient());
    EXPECT_FALSE(other.needsProject());
    EXPECT_FALSE(other.showsList());
}

TEST_F(Projects, doNothingWhileNobodyLooksAndCatchUp) {
    model.setShown(false);
    website->name = "Site";
    project("Shop", acme);
    EXPECT_EQ(lines().size(), 3U);
    model.setShown(true);
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Shop", "  Site"}));
}

TEST_F(Projects, thatDidNotChangeAreNotReadAgain) {
    (void)lines();
    model.setShown(false);
    (void)test::StatementTrace::take();
    model.setShown(true);
    EXPECT_EQ(test::StatementTrace::take(), Lines{});
}

TEST_F(Projects, followRenamesAndMovesWithoutAReset) {
    const auto globex = client("Globex");
    bool isReset = false;
    QObject::connect(model.rowsModel(), &QAbstractItemModel::modelReset, [&] { isReset = true; });
    website->name = "A site";
    save();
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  A site", "  App"}));
    website->client = globex;
    globex->name = "Aardvark";
    save();
    EXPECT_EQ(lines(), (Lines{"Aardvark", "  A site", "Acme Co", "  App"}));
    EXPECT_FALSE(isReset);
}

// --- selection -----------------------------------------------------------------------------------

TEST_F(Projects, headsCannotBeSelectedAndArrowsPassThem) {
    const auto globex = client("Globex");
    project("Shop", globex);
    model.selection()->click(0);
    EXPECT_EQ(current(), "");
    model.selection()->moveCurrent(1);
    EXPECT_EQ(current(), "App");
    model.selection()->moveCurrent(2);
    EXPECT_EQ(current(), "Shop");
    model.selection()->moveCurrent(-2);
    EXPECT_EQ(current(), "App");
}

TEST_F(Projects, theSelectedOneStaysSelectedWhereverItMoves) {
    click(website);
    website->name = "A site";
    save();
    EXPECT_EQ(current(), "A site");
    model.setSearch(QStringLiteral("App"));
    EXPECT_EQ(current(), "");
    model.setSearch(QString());
    EXPECT_EQ(current(), "A site");
}

}  // namespace
}  // namespace elmworth
