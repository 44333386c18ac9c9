// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientEditorModel.h"

#include "screens/clients/ClientsTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class ClientEditor : public test::ClientsTest {
 protected:
    static void type(FormText* field, const char* text) { field->setText(QString::fromUtf8(text)); }
    static std::string said(const QString& text) { return text.toStdString(); }
    void setProfile(std::int64_t dueDays, std::int64_t taxBasisPoints) {
        BusinessProfile profile = profiles.profile();
        profile.defaultDueDays = dueDays;
        profile.defaultTaxBasisPoints = taxBasisPoints;
        profile.taxLabel = "VAT";
        profiles.setProfile(profile);
    }
    void choose(const char* search, int row = 0) {
        editor.currencies()->setSearch(QString::fromUtf8(search));
        editor.currencies()->choose(row);
    }
    /// The only client there is.
    [[nodiscard]] Ref<Client> only() {
        const auto clients = context().fetch<Client>();
        return clients.size() == 1 ? clients.front() : nullptr;
    }

    ClientEditorModel& editor = *model.editor();
};

TEST_F(ClientEditor, beginsWithTheUsualOfANewClient) {
    setProfile(30, 1900);
    model.add();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(said(editor.title()), "New Client");
    EXPECT_EQ(said(editor.subtitle()), "Rate and billing details");
    EXPECT_EQ(said(editor.currencies()->title()), "USD — US Dollar");
    EXPECT_EQ(said(editor.rate()->text()), "100");
    EXPECT_FALSE(editor.hasOwnTerms());
    EXPECT_EQ(editor.dueDays(), 14);
    EXPECT_EQ(said(editor.tax()->text()), "");
    EXPECT_EQ(said(editor.defaultTerms()), "Due in 30 days · VAT 19%");
    EXPECT_FALSE(editor.canSave()) << "without a name";
}

TEST_F(ClientEditor, addsAClient) {
    model.add();
    type(editor.name(), "  Acme Co\t");
    type(editor.email(), "billing@acme.example");
    type(editor.address(), "1 Main St\nSpringfield");
    choose("euro");
    type(editor.rate(), "120,50");
    editor.save();
    EXPECT_FALSE(editor.isOpen());
    ASSERT_TRUE(only());
    EXPECT_EQ(only()->name.get(), "Acme Co");
    EXPECT_EQ(only()->email.get(), "billing@acme.example");
    EXPECT_EQ(only()->address.get(), "1 Main St\nSpringfield");
    EXPECT_EQ(only()->currencyCode.get(), "EUR");
    EXPECT_EQ(only()->hourlyRateCents.get(), 12050);
    EXPECT_FALSE(only()->dueDays.get());
    EXPECT_FALSE(only()->taxBasisPoints.get());
    EXPECT_EQ(timer.history->undoText(), "Undo Add Acme Co");
    timer.history->undo();
    EXPECT_TRUE(model.isEmpty());
}

TEST_F(ClientEditor, showsWhatAClientHas) {
    setProfile(30, 1900);
    const auto acme = addClient("Acme Co");
    acme->hourlyRateCents = 9550;
    acme->currencyCode = "JPY";
    context().save();
    model.edit(0);
    EXPECT_EQ(said(editor.title()), "Edit Client");
    EXPECT_EQ(said(editor.name()->text()), "Acme Co");
    EXPECT_EQ(said(editor.currencies()->title()), "JPY — Japanese Yen");
    EXPECT_EQ(said(editor.rate()->text()), "95.50");
    EXPECT_FALSE(editor.hasOwnTerms());
    EXPECT_EQ(editor.dueDays(), 30) << "what holds now, should it get terms of its own";
    EXPECT_EQ(said(editor.tax()->text()), "19");
    EXPECT_TRUE(editor.canSave());
    editor.dismiss();
    acme->dueDays = 0;
    context().save();
    model.edit(0);
    EXPECT_TRUE(editor.hasOwnTerms());
    EXPECT_EQ(said(editor.dueText()), "Due in 0 days");
}

TEST_F(ClientEditor, offersTheCurrenciesInUseByCode) {
    model.add();
    const auto& rows = editor.currencies()->rows();
    EXPECT_GT(rows.size(), 140U);
    EXPECT_TRUE(std::ranges::is_sorted(rows, {}, &ChoiceRow::text));
    choose("swiss");
    EXPECT_EQ(said(editor.currencies()->title()), "CHF — Swiss Franc");
}

TEST_F(ClientEditor, namesCurrenciesInTheUsersLanguage) {
    auto all = services();
    all.locale = Locale("de_DE");
    ClientService clients(all.context, all.history, TimerCalls::of(all.timer), all.now);
    ClientEditorModel german(all, clients);
    german.open(nullptr);
    EXPECT_EQ(said(german.currencies()->title()), "USD — US-Dollar");
}

TEST_F(ClientEditor, keepsACurrencyThatIsNoLongerInUse) {
    const auto acme = addClient("Acme Co");
    acme->currencyCode = "DEM";
    context().save();
    model.edit(0);
    EXPECT_EQ(said(editor.currencies()->title()), "DEM — German Mark");
    type(editor.email(), "a@acme.example");
    editor.save();
    EXPECT_EQ(acme->currencyCode.get(), "DEM");
}

// --- what can't be saved -------------------------------------------------------------------------

TEST_F(ClientEditor, staysOpenWithoutAName) {
    model.add();
    type(editor.name(), " \t ");
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(editor.isOpen()) << "what was typed is not lost";
    EXPECT_FALSE(only());
}

TEST_F(ClientEditor, takesANameThatAnotherClientHasInAnotherCaseOrComposition) {
    for (const char* name : {"Café", "café", "Cafe\xCC\x81"}) {
        model.add();
        type(editor.name(), name);
        editor.save();
    }
    EXPECT_EQ(model.cards().size(), 3U);
}

TEST_F(ClientEditor, keepsARateThatIsNoNumberAndSaysHow) {
    model.add();
    type(editor.name(), "Acme Co");
    type(editor.rate(), "abc");
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(said(editor.rateProblem()), "Enter a number like 120 or 120.50");
    EXPECT_EQ(said(editor.rate()->text()), "abc");
}

TEST_F(ClientEditor, asksForATaxWithOwnTermsAlone) {
    model.add();
    type(editor.name(), "Acme Co");
    type(editor.tax(), "101");
    EXPECT_TRUE(editor.canSave()) << "the business defaults hold";
    editor.setHasOwnTerms(true);
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(said(editor.taxProblem()), "Enter a percentage up to 100, like 8 or 8.25");
}

// --- terms ---------------------------------------------------------------------------------------

TEST_F(ClientEditor, takesNoTaxAtAllForReverseCharge) {
    setProfile(30, 1900);
    for (const char* typed : {"0", ""}) {
        model.add();
        type(editor.name(), "Acme Co");
        editor.setHasOwnTerms(true);
        type(editor.tax(), typed);
        editor.save();
        EXPECT_EQ(only()->taxBasisPoints.get(), 0);
        EXPECT_EQ(only()->dueDays.get(), 14);
        timer.history->undo();
    }
}

TEST_F(ClientEditor, givesAClientBackToTheBusinessDefaults) {
    const auto acme = addClient("Acme Co");
    acme->dueDays = 7;
    acme->taxBasisPoints = 825;
    context().save();
    model.edit(0);
    EXPECT_EQ(editor.dueDays(), 7);
    EXPECT_EQ(said(editor.tax()->text()), "8.25");
    editor.setHasOwnTerms(false);
    editor.save();
    EXPECT_FALSE(acme->dueDays.get());
    EXPECT_FALSE(acme->taxBasisPoints.get());
}

TEST_F(ClientEditor, keepsATermWithinItsLimits) {
    model.add();
    editor.setDueDays(121);
    EXPECT_EQ(editor.dueDays(), 120);
    editor.setDueDays(-1);
    EXPECT_EQ(said(editor.dueText()), "Due in 0 days");
}

// --- what happens elsewhere ----------------------------------------------------------------------

class ClientElsewhere : public ClientEditor {
 protected:
    ClientElsewhere() { model.edit(0); }

    // Made before the editor opens.
    Ref<Client> acme = [this] {
        auto client = addClient("Acme Co");
        client->email = "old@acme.example";
        context().save();
        return client;
    }();
};

TEST_F(ClientElsewhere, changesFieldsThatNobodyTouchedAndNoOthers) {
    type(editor.name(), "Acme Inc");
    choose("euro");
    acme->name = "Acme Ltd";
    acme->email = "new@acme.example";
    acme->currencyCode = "GBP";
    acme->hourlyRateCents = 5000;
    acme->dueDays = 7;
    context().save();
    EXPECT_EQ(said(editor.name()->text()), "Acme Inc");
    EXPECT_EQ(said(editor.email()->text()), "new@acme.example");
    EXPECT_EQ(said(editor.currencies()->title()), "EUR — Euro");
    EXPECT_EQ(said(editor.rate()->text()), "50");
    EXPECT_TRUE(editor.hasOwnTerms());
    EXPECT_EQ(editor.dueDays(), 7);
    editor.save();
    EXPECT_EQ(acme->name.get(), "Acme Inc");
    EXPECT_EQ(acme->email.get(), "new@acme.example");
    EXPECT_EQ(acme->hourlyRateCents.get(), 5000);
}

TEST_F(ClientElsewhere, changesTheCurrencyThatNobodyTouched) {
    acme->currencyCode = "GBP";
    context().save();
    EXPECT_EQ(said(editor.currencies()->title()), "GBP — British Pound");
    editor.save();
    EXPECT_EQ(acme->currencyCode.get(), "GBP");
}

TEST_F(ClientElsewhere, changesTheDefaultTermsThatAreShown) {
    setProfile(45, 700);
    EXPECT_EQ(said(editor.defaultTerms()), "Due in 45 days · VAT 7%");
    EXPECT_EQ(editor.dueDays(), 45);
}

TEST_F(ClientElsewhere, deletesTheClientWhichIsSavedAsANewOne) {
    type(editor.rate(), "75");
    context().deleteRecord(acme);
    context().save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(said(editor.title()), "New Client");
    EXPECT_EQ(said(editor.notice()),
              "This client was deleted elsewhere. Save adds it as a new one.");
    editor.save();
    ASSERT_TRUE(only());
    EXPECT_NE(only(), acme);
    EXPECT_EQ(only()->name.get(), "Acme Co");
    EXPECT_EQ(only()->email.get(), "old@acme.example");
    EXPECT_EQ(only()->hourlyRateCents.get(), 7500);
}

TEST_F(ClientElsewhere, isNotReadAfterTheSheetIsClosed) {
    editor.dismiss();
    QSignalSpy changed(&editor, &ClientEditorModel::changed);
    acme->name = "Acme Ltd";
    context().save();
    EXPECT_TRUE(changed.empty());
}

}  // namespace
}  // namespace elmworth
