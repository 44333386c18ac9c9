// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What happens elsewhere while the editor is open.

#include "screens/projects/ProjectEditorModel.h"
#include "screens/projects/ProjectsTest.h"

namespace elmworth {
namespace {

using test::utf8;

class ProjectElsewhere : public test::ProjectsTest {
 protected:
    ProjectElsewhere() { editor.open(website); }
};

TEST_F(ProjectElsewhere, whatNobodyTouchedFollows) {
    website->name = "Site";
    website->rateOverrideCents = 15000;
    website->budgetHours = 40;
    website->colorHex = "#FFB400";
    website->isArchived = true;
    const auto globex = client("Globex");
    website->client = globex;
    save();
    EXPECT_EQ(utf8(editor.name()->text()), "Site");
    EXPECT_TRUE(editor.overridesRate());
    EXPECT_EQ(utf8(editor.rate()->text()), "150");
    EXPECT_EQ(utf8(editor.budget()->text()), "40");
    EXPECT_EQ(editor.colorRow(), 4);
    EXPECT_TRUE(editor.isArchived());
    EXPECT_EQ(utf8(editor.subtitle()), "for Globex");
    editor.save();
    EXPECT_FALSE(timer.history->canUndo()) << "nothing was changed here";
}

TEST_F(ProjectElsewhere, whatWasTypedStays) {
    editor.name()->setText(QStringLiteral("Mine"));
    editor.budget()->setText(QStringLiteral("10"));
    editor.chooseColor(1);
    editor.setArchived(true);
    website->name = "Theirs";
    website->budgetHours = 40;
    website->colorHex = "#FFB400";
    website->rateOverrideCents = 15000;
    save();
    EXPECT_EQ(utf8(editor.name()->text()), "Mine");
    editor.save();
    EXPECT_EQ(website->name.get(), "Mine");
    EXPECT_EQ(website->budgetHours.get(), 10);
    EXPECT_EQ(website->colorHex.get(), "#4AA8FF");
    EXPECT_TRUE(website->isArchived);
    EXPECT_EQ(website->rateOverrideCents.get(), 15000);
}

TEST_F(ProjectElsewhere, aClientThatWasChosenHereStays) {
    const auto globex = client("Globex");
    const auto initech = client("Initech");
    editor.clients()->choose(1);
    EXPECT_EQ(utf8(editor.subtitle()), "for Globex");
    website->client = initech;
    save();
    EXPECT_EQ(utf8(editor.subtitle()), "for Globex");
}

TEST_F(ProjectElsewhere, aRenamedClientShowsItsName) {
    acme->name = "Acme Inc";
    acme->hourlyRateCents = 9900;
    save();
    EXPECT_EQ(utf8(editor.subtitle()), "for Acme Inc");
    EXPECT_EQ(utf8(editor.clientRate()), "$99.00");
}

TEST_F(ProjectElsewhere, changesOfTheTurnOfTheSaveAreNotTakenBack) {
    editor.name()->setText(QStringLiteral("Mine"));
    website->budgetHours = 40;
    editor.save();
    EXPECT_EQ(website->budgetHours.get(), 40);
    EXPECT_EQ(website->name.get(), "Mine");
}

TEST_F(ProjectElsewhere, deletedElsewhereItIsSavedAsANewOne) {
    editor.name()->setText(QStringLiteral("Site"));
    editor.budget()->setText(QStringLiteral("10"));
    remove(website);
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(utf8(editor.notice()),
              "This project was deleted elsewhere. Save adds it as a new one.");
    EXPECT_EQ(utf8(editor.title()), "New Project");
    EXPECT_FALSE(editor.isExisting());
    EXPECT_EQ(utf8(editor.name()->text()), "Site");
    editor.save();
    turn();
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(lines(), (test::Lines{"Acme Co", "  App", "  Site"}));
    EXPECT_EQ(current(), "Site");
    EXPECT_EQ(timer.history->undoText(), "Undo Add Site");
}

TEST_F(ProjectElsewhere, deletedWithItsClientAnotherOneIsChosen) {
    client("Globex");
    editor.budget()->setText(QStringLiteral("10"));
    remove(acme);
    EXPECT_EQ(utf8(editor.notice()),
              "This project was deleted elsewhere. Save adds it as a new one.");
    EXPECT_EQ(utf8(editor.subtitle()), "");
    EXPECT_EQ(utf8(editor.clientRate()), "");
    EXPECT_EQ(utf8(editor.problem()), "Choose a client.");
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(utf8(editor.budget()->text()), "10");
    editor.clients()->choose(0);
    EXPECT_TRUE(editor.canSave());
    editor.save();
    turn();
    EXPECT_EQ(lines(), (test::Lines{"Globex", "  Website"}));
}

TEST_F(ProjectElsewhere, theClientOfANewOneThatIsDeletedIsChosenAgain) {
    client("Globex");
    editor.open(nullptr);
    editor.name()->setText(QStringLiteral("Shop"));
    remove(acme);
    EXPECT_EQ(utf8(editor.problem()), "Choose a client.");
    EXPECT_EQ(utf8(editor.name()->text()), "Shop");
    EXPECT_EQ(utf8(editor.notice()), "");
}

TEST_F(ProjectElsewhere, invoicedMeanwhileItStaysWithItsClient) {
    client("Globex");
    const auto work = entry(website, "07:00", "08:00");
    editor.clients()->choose(1);
    editor.name()->setText(QStringLiteral("Site"));
    bill(work);
    EXPECT_EQ(utf8(editor.clientLock()), "Projects with invoiced time stay with their client.");
    EXPECT_EQ(utf8(editor.subtitle()), "for Acme Co");
    EXPECT_EQ(utf8(editor.name()->text()), "Site");
    editor.save();
    EXPECT_EQ(website->client.get(), acme);
    EXPECT_EQ(website->name.get(), "Site");
}

TEST_F(ProjectElsewhere, anUndoOfItsLastChangeShows) {
    timer.history->perform("Rename Website", [&] { website->name = "Site"; });
    turn();
    EXPECT_EQ(utf8(editor.name()->text()), "Site");
    timer.history->undo();
    turn();
    EXPECT_EQ(utf8(editor.name()->text()), "Website");
}

TEST_F(ProjectElsewhere, closedItFollowsNothing) {
    editor.dismiss();
    website->name = "Site";
    save();
    EXPECT_EQ(utf8(editor.name()->text()), "Website");
}

}  // namespace
}  // namespace elmworth
