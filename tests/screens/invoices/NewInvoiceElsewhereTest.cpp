// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What happens elsewhere while the sheet is open.

#include "screens/invoices/NewInvoiceTest.h"
#include "support/FailingReads.h"

namespace elmworth {
namespace {

using test::at;
using test::utf8;
using Lines = std::vector<std::string>;

/// The sheet on the last week of Acme Co, with an hour in it.
class NewInvoiceElsewhere : public test::NewInvoiceTest {
 protected:
    NewInvoiceElsewhere() {
        sheet.open();
        turn();
        static_cast<void>(statements());
        count.watch(*sheet.figures());
    }
    /// How often the figures changed since the last call.
    [[nodiscard]] int figureChanges() { return count.take()["NewInvoiceFigures::changed"]; }

    Ref<TimeEntry> hour = work("2026-02-24T09:00Z");
    test::SignalCount count;
};

TEST_F(NewInvoiceElsewhere, anEntryThatComesIsTakenIn) {
    work("2026-02-25T09:00Z");
    EXPECT_EQ(total(), "$200.00");
    EXPECT_EQ(figureChanges(), 1);
}

TEST_F(NewInvoiceElsewhere, anEntryThatIsBilledOrDeletedIsLeftOut) {
    hour->invoice = timer.library.addInvoice("2026-001", acme());
    context().save();
    EXPECT_TRUE(sheet.figures()->isEmpty());
    EXPECT_FALSE(sheet.canSave());
    sheet.save();
    EXPECT_TRUE(sheet.isOpen());
    EXPECT_TRUE(created.empty());
}

TEST_F(NewInvoiceElsewhere, aRateThatChangesCounts) {
    acme()->hourlyRateCents = 120'00;
    context().save();
    EXPECT_EQ(lines(), Lines{"Website|1.00 h × $120.00|$120.00"});
}

TEST_F(NewInvoiceElsewhere, aProjectThatIsRenamedShowsItsName) {
    website->name = "Relaunch";
    context().save();
    EXPECT_EQ(lines(), Lines{"Relaunch|1.00 h × $100.00|$100.00"});
}

TEST_F(NewInvoiceElsewhere, notesAreOfNoConcern) {
    hour->notes = "Landing page";
    context().save();
    turn();
    EXPECT_EQ(figureChanges(), 0);
}

TEST_F(NewInvoiceElsewhere, typingATaxReadsNothing) {
    for (const char* text : {"8", "8.", "8.2", "8.25"}) typeTax(text);
    EXPECT_EQ(total(), "$108.25");
    EXPECT_EQ(statements(), Lines{});
}

TEST_F(NewInvoiceElsewhere, aChangeIsComputedOnce) {
    typeTax("8.25");
    EXPECT_EQ(figureChanges(), 1);
    typeTax("8.250");
    typeTax("8.25 %");
    EXPECT_EQ(figureChanges(), 0);
    choose(DateRangePreset::thisWeek);
    EXPECT_EQ(figureChanges(), 1);
    turn();
    timer.library.runLoop.fire();
    EXPECT_EQ(figureChanges(), 0);
}

TEST_F(NewInvoiceElsewhere, aClientThatIsDeletedIsSaidAndAnotherCanBeChosen) {
    const auto other = client("Other");
    workFor(other, "2026-02-24T09:00Z");
    workFor(other, "2026-02-25T09:00Z");
    context().deleteRecord(acme());
    context().save();
    EXPECT_EQ(utf8(sheet.clients()->title()), "Choose…");
    EXPECT_EQ(utf8(sheet.notice()), "The client was deleted elsewhere. Choose another one.");
    EXPECT_TRUE(sheet.figures()->isEmpty());
    EXPECT_FALSE(sheet.canSave());
    choose("Other");
    EXPECT_EQ(utf8(sheet.notice()), "");
    EXPECT_EQ(total(), "$200.00");
    sheet.save();
    EXPECT_EQ(created.size(), 1U);
}

TEST_F(NewInvoiceElsewhere, deletedInTheSameTurnItIsNotInvoiced) {
    context().deleteRecord(acme());
    sheet.save();
    EXPECT_TRUE(sheet.isOpen());
    EXPECT_TRUE(created.empty());
}

TEST_F(NewInvoiceElsewhere, theRoundingOfTheProfileIsFollowed) {
    setProfile([](BusinessProfile& profile) { profile.roundingMinutes = 45; });
    EXPECT_EQ(utf8(sheet.rounding()), "Each entry up to 45 min");
    EXPECT_EQ(total(), "$150.00");
}

TEST_F(NewInvoiceElsewhere, theNumberOfTheProfileIsFollowed) {
    setProfile([](BusinessProfile& profile) { profile.nextInvoiceNumber = 7; });
    EXPECT_EQ(utf8(sheet.subtitle()), "Next number INV-2026-007");
}

TEST_F(NewInvoiceElsewhere, aTaxThatNobodyTypedFollowsTheClient) {
    acme()->taxBasisPoints = 7'00;
    context().save();
    EXPECT_EQ(utf8(sheet.tax()->text()), "7");
    typeTax("9");
    acme()->taxBasisPoints = 8'00;
    context().save();
    EXPECT_EQ(utf8(sheet.tax()->text()), "9");
}

TEST_F(NewInvoiceElsewhere, theWeekIsAnotherOneAfterMidnight) {
    EXPECT_EQ(utf8(sheet.dates()), "Feb 22, 2026 – Feb 28, 2026");
    timer.setClock("2026-03-08T00:00Z");
    timer.library.runLoop.fire();
    EXPECT_EQ(utf8(sheet.dates()), "Mar 1, 2026 – Mar 7, 2026");
    EXPECT_TRUE(sheet.figures()->isEmpty());
}

TEST_F(NewInvoiceElsewhere, closedItFollowsNothing) {
    sheet.dismiss();
    static_cast<void>(figureChanges());
    work("2026-02-25T09:00Z");
    setProfile([](BusinessProfile& profile) { profile.roundingMinutes = 45; });
    turn();
    EXPECT_EQ(figureChanges(), 0);
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
}

TEST(NewInvoiceUnreadable, saysThatTheLibraryCantBeRead) {
    const test::FailingReads failing;
    test::TestTimer timer;
    test::TestServices app(timer);
    const auto client = timer.library.addClient("Acme Co");
    const auto project = timer.library.addProject("Website", client);
    timer.library.addEntry(project, at("2026-02-24T09:00Z"), at("2026-02-24T10:00Z"));
    timer.library.context().save();
    NewInvoiceModel sheet(app.services());
    sheet.open();
    test::FailingReads::fail();
    sheet.choosePreset(static_cast<int>(DateRangePreset::lastMonth));
    EXPECT_EQ(utf8(sheet.problem()), "The library can't be read, so there is nothing to invoice.");
    EXPECT_FALSE(sheet.canSave());
    test::FailingReads::heal();
    sheet.choosePreset(static_cast<int>(DateRangePreset::lastWeek));
    EXPECT_EQ(utf8(sheet.problem()), "");
    EXPECT_TRUE(sheet.canSave());
}

}  // namespace
}  // namespace elmworth
