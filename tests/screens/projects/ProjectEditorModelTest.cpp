// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/ProjectEditorModel.h"

#include "screens/projects/ProjectsTest.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::utf8;

class ProjectEditor : public test::ProjectsTest {
 protected:
    void choose(const std::string& name) {
        const auto& rows = editor.clients()->rows();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (utf8(rows[i].text) == name) return editor.clients()->choose(static_cast<int>(i));
        }
        FAIL() << name;
    }
    [[nodiscard]] Ref<Project> named(const std::string& name) {
        const auto found =
            context().fetch(Query<Project>{.predicate = key<&Project::name>() == name});
        return found.empty() ? nullptr : found.front();
    }
};

// --- a new project -------------------------------------------------------------------------------

TEST_F(ProjectEditor, aNewProjectHasTheFirstClientAndADrawnColor) {
    client("Aardvark");
    editor.open(nullptr);
    EXPECT_EQ(utf8(editor.title()), "New Project");
    EXPECT_EQ(utf8(editor.subtitle()), "for Aardvark");
    EXPECT_EQ(utf8(editor.name()->text()), "");
    EXPECT_EQ(utf8(editor.colorHex()), "#2EC4B6");
    EXPECT_EQ(editor.colorRow(), 2);
    EXPECT_FALSE(editor.overridesRate());
    EXPECT_EQ(utf8(editor.budget()->text()), "");
    EXPECT_FALSE(editor.isExisting());
    EXPECT_EQ(utf8(editor.problem()), "");
    EXPECT_FALSE(editor.canSave());
}

TEST_F(ProjectEditor, everyColorCanBeDrawn) {
    for (std::size_t drawn = 0; drawn < projectColors.size(); ++drawn) {
        ProjectEditorModel other(services(), [&](std::size_t count) {
            EXPECT_EQ(count, projectColors.size());
            return drawn;
        });
        other.open(nullptr);
        EXPECT_EQ(other.colorRow(), static_cast<int>(drawn));
    }
}

TEST_F(ProjectEditor, saveAddsTheProjectAsOneStep) {
    editor.open(nullptr);
    editor.name()->setText(QStringLiteral("  Shop "));
    editor.save();
    EXPECT_FALSE(editor.isOpen());
    const auto shop = named("Shop");
    ASSERT_TRUE(shop);
    EXPECT_EQ(shop->client.get(), acme);
    EXPECT_EQ(shop->colorHex.get(), "#2EC4B6");
    EXPECT_EQ(shop->rateOverrideCents.get(), std::nullopt);
    EXPECT_EQ(shop->budgetHours.get(), std::nullopt);
    EXPECT_FALSE(shop->isArchived);
    EXPECT_EQ(timer.history->undoText(), "Undo Add Shop");
    timer.history->undo();
    EXPECT_FALSE(named("Shop"));
    timer.history->redo();
    EXPECT_TRUE(named("Shop"));
}

TEST_F(ProjectEditor, cancelAddsNothing) {
    editor.open(nullptr);
    editor.name()->setText(QStringLiteral("Shop"));
    editor.dismiss();
    EXPECT_FALSE(named("Shop"));
    EXPECT_FALSE(timer.history->canUndo());
}

// --- an existing one -----------------------------------------------------------------------------

TEST_F(ProjectEditor, showsWhatTheProjectHolds) {
    website->rateOverrideCents = 15050;
    website->budgetHours = 40;
    website->colorHex = "#FFB400";
    website->isArchived = true;
    editor.open(website);
    EXPECT_EQ(utf8(editor.title()), "Edit Project");
    EXPECT_EQ(utf8(editor.subtitle()), "for Acme Co");
    EXPECT_EQ(utf8(editor.name()->text()), "Website");
    EXPECT_TRUE(editor.overridesRate());
    EXPECT_EQ(utf8(editor.rate()->text()), "150.50");
    EXPECT_EQ(utf8(editor.budget()->text()), "40");
    EXPECT_EQ(editor.colorRow(), 4);
    EXPECT_TRUE(editor.isArchived());
    EXPECT_TRUE(editor.isExisting());
    EXPECT_TRUE(editor.canSave());
}

TEST_F(ProjectEditor, saveChangesAllThatWasChanged) {
    const auto globex = client("Globex");
    editor.open(website);
    editor.name()->setText(QStringLiteral("Site"));
    choose("Globex");
    EXPECT_EQ(utf8(editor.subtitle()), "for Globex");
    editor.setOverridesRate(true);
    editor.rate()->setText(QStringLiteral("120,50"));
    editor.budget()->setText(QStringLiteral("37,5"));
    editor.chooseColor(8);
    editor.setArchived(true);
    editor.save();
    EXPECT_EQ(website->name.get(), "Site");
    EXPECT_EQ(website->client.get(), globex);
    EXPECT_EQ(website->rateOverrideCents.get(), 12050);
    EXPECT_EQ(website->budgetHours.get(), 38);
    EXPECT_EQ(website->colorHex.get(), "#8E8E93");
    EXPECT_TRUE(website->isArchived);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(timer.history->undoText(), "Undo Edit Website");
}

TEST_F(ProjectEditor, withoutChangesSaveIsNoStep) {
    editor.open(website);
    editor.save();
    EXPECT_FALSE(editor.isOpen());
    EXPECT_FALSE(timer.history->canUndo());
}

TEST_F(ProjectEditor, anOverrideThatIsTurnedOffIsGoneWhateverItsTextSays) {
    website->rateOverrideCents = 15000;
    editor.open(website);
    editor.rate()->setText(QStringLiteral("ten"));
    EXPECT_FALSE(editor.canSave());
    editor.setOverridesRate(false);
    EXPECT_EQ(utf8(editor.rateProblemText()), "");
    EXPECT_TRUE(editor.canSave());
    editor.save();
    EXPECT_EQ(website->rateOverrideCents.get(), std::nullopt);
}

TEST_F(ProjectEditor, anEmptyTextClearsTheBudget) {
    website->budgetHours = 40;
    editor.open(website);
    editor.budget()->setText(QStringLiteral(" \t"));
    editor.save();
    EXPECT_EQ(website->budgetHours.get(), std::nullopt);
}

TEST_F(ProjectEditor, theClientsRateStandsThereInItsCurrency) {
    const auto globex = client("Globex");
    globex->hourlyRateCents = 9550;
    globex->currencyCode = "EUR";
    save();
    editor.open(website);
    EXPECT_EQ(utf8(editor.clientRate()), "$120.00");
    choose("Globex");
    EXPECT_EQ(utf8(editor.clientRate()), "€95.50");
}

// --- bad input -----------------------------------------------------------------------------------

TEST_F(ProjectEditor, aRateOrABudgetThatIsNoNumberSaysHowAndStays) {
    editor.open(website);
    editor.setOverridesRate(true);
    EXPECT_FALSE(editor.canSave()) << "not yet";
    EXPECT_EQ(utf8(editor.rateProblemText()), "");
    editor.rate()->setText(QStringLiteral("ten"));
    EXPECT_EQ(utf8(editor.rateProblemText()), "Enter a number like 120 or 120.50");
    editor.rate()->setText(QStringLiteral("0"));
    EXPECT_TRUE(editor.canSave());
    editor.budget()->setText(QStringLiteral("40 h"));
    EXPECT_EQ(utf8(editor.budgetProblemText()), "Enter a number like 40 or 37.5");
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(utf8(editor.budget()->text()), "40 h");
    EXPECT_EQ(website->budgetHours.get(), std::nullopt);
}

TEST_F(ProjectEditor, aNameThatWasTakenAwayIsAskedFor) {
    editor.open(website);
    editor.name()->setText(QStringLiteral(" \t "));
    EXPECT_EQ(utf8(editor.problem()), "The name can't be empty.");
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(website->name.get(), "Website");
}

TEST_F(ProjectEditor, aNameIsKeptAsItIsTypedInOneLine) {
    editor.open(nullptr);
    editor.name()->setText(QStringLiteral("<b>Shop</b> &amp; %1\nBerlin"));
    editor.save();
    EXPECT_TRUE(named("<b>Shop</b> &amp; %1 Berlin"));
}

TEST_F(ProjectEditor, aSaveThatFailsLosesNothing) {
    editor.open(website);
    editor.name()->setText(QStringLiteral("Site"));
    {
        const test::FileSizeLimit fullDisk(0);
        editor.save();
    }
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(utf8(editor.name()->text()), "Site");
    EXPECT_EQ(website->name.get(), "Website");
    EXPECT_FALSE(context().hasChanges());
    const auto problem = utf8(editor.property("problem").toString());
    EXPECT_TRUE(problem.starts_with("The library can't be changed: ")) << problem;
    editor.save();
    EXPECT_EQ(website->name.get(), "Site");
}

// --- colors --------------------------------------------------------------------------------------

TEST_F(ProjectEditor, thePaletteHasNineColors) {
    EXPECT_EQ(editor.palette().size(), 9);
    editor.open(website);
    for (int row = 0; row < 9; ++row) {
        editor.chooseColor(row);
        EXPECT_EQ(editor.colorRow(), row);
        EXPECT_EQ(editor.colorHex(), editor.palette().at(row));
    }
    editor.chooseColor(9);
    editor.chooseColor(-1);
    EXPECT_EQ(editor.colorRow(), 8);
}

TEST_F(ProjectEditor, aColorThatIsNoneOfThemStays) {
    website->colorHex = "#123456";
    editor.open(website);
    EXPECT_EQ(editor.colorRow(), -1);
    EXPECT_EQ(utf8(editor.colorHex()), "#123456");
    editor.name()->setText(QStringLiteral("Site"));
    editor.save();
    EXPECT_EQ(website->colorHex.get(), "#123456");
}

TEST_F(ProjectEditor, aColorInSmallLettersIsTheSame) {
    website->colorHex = "#7c6cff";
    editor.open(website);
    EXPECT_EQ(editor.colorRow(), 0);
}

// --- invoiced time -------------------------------------------------------------------------------

TEST_F(ProjectEditor, withInvoicedTimeItStaysWithItsClient) {
    client("Globex");
    bill(entry(website, "07:00", "08:00"));
    editor.open(website);
    EXPECT_EQ(utf8(editor.clientLock()), "Projects with invoiced time stay with their client.");
    editor.name()->setText(QStringLiteral("Site"));
    editor.save();
    EXPECT_EQ(website->name.get(), "Site");
}

TEST_F(ProjectEditor, withoutInvoicedTimeItMayMove) {
    entry(website, "07:00", "08:00");
    editor.open(website);
    EXPECT_EQ(utf8(editor.clientLock()), "");
    editor.open(nullptr);
    EXPECT_EQ(utf8(editor.clientLock()), "");
}

}  // namespace
}  // namespace elmworth
