// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <ostream>

#include "screens/invoices/NewInvoiceTest.h"
#include "support/FileSizeLimit.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::utf8;
using NewInvoice = test::NewInvoiceTest;
using Lines = std::vector<std::string>;

// --- what the sheet begins with ------------------------------------------------------------------

struct PresetRow {
    const char* name;
    std::vector<std::string> work;
    const char* preset;
    bool isEmpty = false;
};

void PrintTo(const PresetRow& row, std::ostream* out) {
    *out << row.name;
}

class NewInvoicePreset : public test::NewInvoiceTest,
                         public testing::WithParamInterface<PresetRow> {};

TEST_P(NewInvoicePreset, isTheFirstUsualOneWithUnbilledTime) {
    for (const auto& start : GetParam().work) work(start);
    sheet.open();
    EXPECT_EQ(preset(), GetParam().preset);
    EXPECT_EQ(sheet.figures()->isEmpty(), GetParam().isEmpty);
}

INSTANTIATE_TEST_SUITE_P(
    Row, NewInvoicePreset,
    testing::ValuesIn(std::vector<PresetRow>{
        {"LastWeek", {"2026-02-22T00:00Z", "2026-03-02T08:00Z"}, "Last Week"},
        {"LastWeekToItsEnd", {"2026-02-28T23:59Z"}, "Last Week"},
        {"ThisWeek", {"2026-03-01T09:00Z", "2026-02-10T09:00Z"}, "This Week"},
        {"LastMonth", {"2026-02-10T09:00Z", "2026-03-20T09:00Z"}, "Last Month"},
        {"ThisMonth", {"2026-03-20T09:00Z"}, "This Month"},
        {"NoneOfThem", {"2025-12-01T09:00Z"}, "Last Week", true},
        {"Nothing", {}, "Last Week", true},
    }),
    test::rowName);

TEST_F(NewInvoice, withoutAClientInItBeginsWithTheFirstByName) {
    client("aardvark & Sons");
    client("Zebra");
    sheet.open();
    EXPECT_EQ(utf8(sheet.clients()->title()), "aardvark & Sons");
}

TEST_F(NewInvoice, withoutAnyClientThereIsNothingToCreate) {
    test::TestTimer empty;
    test::TestServices app(empty);
    NewInvoiceModel bare(app.services());
    bare.open();
    EXPECT_EQ(utf8(bare.clients()->title()), "Choose…");
    EXPECT_FALSE(bare.clients()->isSet());
    EXPECT_TRUE(bare.figures()->isEmpty());
    EXPECT_EQ(utf8(bare.figures()->total()), "$0.00");
    EXPECT_FALSE(bare.canSave());
    bare.save();
    EXPECT_TRUE(bare.isOpen());
}

TEST_F(NewInvoice, forAClientItBeginsWithAllOfItsUnbilledTime) {
    const auto other = client("Other");
    workFor(other, "2025-11-03T09:00Z");
    workFor(other, "2026-03-02T07:00Z");
    work("2025-01-01T09:00Z");
    sheet.open(other);
    EXPECT_EQ(utf8(sheet.clients()->title()), "Other");
    EXPECT_EQ(preset(), "Custom");
    EXPECT_EQ(sheet.from()->value(), at("2025-11-03T09:00Z"));
    EXPECT_EQ(sheet.through()->value(), timer.now);
    EXPECT_EQ(utf8(sheet.figures()->entriesText()), "2 entries");
}

TEST_F(NewInvoice, forAClientWithoutUnbilledTimeItStaysWithLastWeek) {
    const auto other = client("Other");
    work("2026-03-02T07:00Z");
    sheet.open(other);
    EXPECT_EQ(preset(), "Last Week");
    EXPECT_TRUE(sheet.figures()->isEmpty());
    EXPECT_FALSE(sheet.canSave());
}

TEST_F(NewInvoice, theCustomDaysAreTheLastThirtyAtFirst) {
    sheet.open();
    choose(DateRangePreset::custom);
    EXPECT_EQ(utf8(sheet.dates()), "Jan 31, 2026 – Mar 2, 2026");
}

TEST_F(NewInvoice, openedAgainItBeginsAnew) {
    work("2026-02-24T09:00Z");
    sheet.open();
    chooseDays("2025-01-01", "2025-01-02");
    typeTax("7");
    sheet.open();
    EXPECT_EQ(preset(), "Last Week");
    EXPECT_EQ(utf8(sheet.tax()->text()), "0");
    EXPECT_EQ(utf8(sheet.dates()), "Feb 22, 2026 – Feb 28, 2026");
}

TEST_F(NewInvoice, saysWhichNumberComesNext) {
    setProfile([](BusinessProfile& profile) {
        profile.nextInvoiceNumber = 42;
        profile.resetNumberingYearly = true;
        profile.numberingYear = 2025;
    });
    sheet.open();
    EXPECT_EQ(utf8(sheet.title()), "New Invoice");
    EXPECT_EQ(utf8(sheet.subtitle()), "Next number INV-2026-001");
    EXPECT_EQ(profiles.profile().nextInvoiceNumber, 42) << "looking changes nothing";
}

TEST_F(NewInvoice, offersTheEightPeriods) {
    EXPECT_EQ(utf8(NewInvoiceModel::presets().join(u'|')),
              "Today|Yesterday|This Week|Last Week|This Month|Last Month|This Year|Custom");
    sheet.open();
    choose(DateRangePreset::today);
    EXPECT_EQ(utf8(sheet.dates()), "Mar 2, 2026 – Mar 2, 2026");
    choose(DateRangePreset::lastMonth);
    EXPECT_EQ(utf8(sheet.dates()), "Feb 1, 2026 – Feb 28, 2026");
    sheet.choosePreset(8);
    sheet.choosePreset(-1);
    EXPECT_EQ(preset(), "Last Month");
}

TEST_F(NewInvoice, saysHowTimeIsRounded) {
    setProfile([](BusinessProfile& profile) { profile.roundingMinutes = 15; });
    sheet.open();
    EXPECT_EQ(utf8(sheet.rounding()), "Each entry up to 15 min");
}

TEST_F(NewInvoice, warnsOfABusinessWithoutAName) {
    work("2026-02-24T09:00Z");
    setProfile([](BusinessProfile& profile) { profile.name = " \t"; });
    sheet.open();
    EXPECT_TRUE(sheet.lacksBusinessName());
    EXPECT_TRUE(sheet.canSave()) << "it is a warning, not a block";
    setProfile([](BusinessProfile& profile) { profile.name = "Jane Doe"; });
    EXPECT_FALSE(sheet.lacksBusinessName());
}

TEST_F(NewInvoice, offersTheSettingsOnceThereAreSome) {
    EXPECT_FALSE(sheet.canOpenSettings());
    sheet.offerSettings();
    EXPECT_TRUE(sheet.canOpenSettings());
}

// --- custom days ---------------------------------------------------------------------------------

TEST_F(NewInvoice, customDaysInTheOtherOrderAreTheSameSpan) {
    work("2026-02-10T00:00Z");
    work("2026-02-12T23:00Z");
    work("2026-02-13T00:00Z");
    sheet.open();
    chooseDays("2026-02-12", "2026-02-10");
    EXPECT_EQ(utf8(sheet.figures()->entriesText()), "2 entries");
    EXPECT_EQ(utf8(sheet.dates()), "Feb 10, 2026 – Feb 12, 2026");
    sheet.save();
    EXPECT_EQ(invoices().at(0)->periodStart.get(), at("2026-02-10T00:00Z"));
    EXPECT_EQ(invoices().at(0)->periodEnd.get(), at("2026-02-13T00:00Z"));
}

TEST_F(NewInvoice, aDayThatIsNoDateCreatesNothingAndStays) {
    work("2026-03-02T07:00Z");
    sheet.open();
    choose(DateRangePreset::custom);
    sheet.through()->day()->edit(QStringLiteral("soon"));
    EXPECT_FALSE(sheet.canSave());
    sheet.save();
    EXPECT_TRUE(sheet.isOpen());
    EXPECT_EQ(utf8(sheet.through()->day()->text()), "soon");
    EXPECT_NE(utf8(sheet.through()->day()->problem()), "");
    choose(DateRangePreset::thisWeek);
    EXPECT_TRUE(sheet.canSave()) << "it counts no longer";
}

// --- tax -----------------------------------------------------------------------------------------

struct TaxRow {
    const char* name;
    const char* text;
    const char* problem;
    const char* note;
    const char* total;  ///< of an invoice over $100.00
};

void PrintTo(const TaxRow& row, std::ostream* out) {
    *out << row.name;
}

class NewInvoiceTax : public test::NewInvoiceTest, public testing::WithParamInterface<TaxRow> {};

TEST_P(NewInvoiceTax, isTakenOrSaysWhyNot) {
    const auto& row = GetParam();
    work("2026-02-24T09:00Z");
    sheet.open();
    typeTax(row.text);
    EXPECT_EQ(utf8(sheet.taxProblem()), row.problem);
    EXPECT_EQ(utf8(sheet.taxNote()), row.note);
    EXPECT_EQ(sheet.canSave(), std::string(row.problem).empty());
    EXPECT_EQ(total(), row.total);
    EXPECT_EQ(utf8(sheet.tax()->text()), row.text) << "what is typed stays";
    sheet.save();
    EXPECT_EQ(sheet.isOpen(), !std::string(row.problem).empty());
}

INSTANTIATE_TEST_SUITE_P(
    Row, NewInvoiceTax,
    testing::ValuesIn(std::vector<TaxRow>{
        {"Zero", "0", "", "", "$100.00"},
        {"Comma", "8,25", "", "", "$108.25"},
        {"MoreDecimals", "8.255", "", "Taken as 8.26%.", "$108.26"},
        {"NoNumber", "abc", "“abc” is no percentage. Enter a number like 0 or 8.25, at most 100.",
         "", "$100.00"},
        {"JustAboveAll", "100.01",
         "“100.01” is no percentage. Enter a number like 0 or 8.25, at most 100.", "", "$100.00"},
    }),
    test::rowName);

TEST_F(NewInvoice, withoutTaxThereIsNoSubtotal) {
    work("2026-02-24T09:00Z");
    sheet.open();
    EXPECT_FALSE(sheet.figures()->hasTax());
    typeTax("8.25");
    EXPECT_TRUE(sheet.figures()->hasTax());
    EXPECT_EQ(utf8(sheet.figures()->subtotal()), "$100.00");
    EXPECT_EQ(utf8(sheet.figures()->tax()), "$8.25");
}

TEST_F(NewInvoice, aTaxOfLessThanHalfACentIsNone) {
    acme()->hourlyRateCents = 1;
    work("2026-02-24T09:00Z");
    sheet.open();
    typeTax("49.99");
    EXPECT_FALSE(sheet.figures()->hasTax());
    typeTax("50");
    EXPECT_TRUE(sheet.figures()->hasTax());
}

TEST_F(NewInvoice, anotherClientReplacesTheTaxAndThePreview) {
    const auto other = client("Other");
    other->taxBasisPoints = 19'00;
    workFor(other, "2026-02-25T09:00Z");
    workFor(other, "2026-02-26T09:00Z");
    work("2026-02-24T09:00Z");
    sheet.open();
    typeTax("5");
    EXPECT_EQ(total(), "$105.00");
    choose("Other");
    EXPECT_EQ(utf8(sheet.tax()->text()), "19");
    EXPECT_EQ(total(), "$238.00");
    choose("Choose…");
    EXPECT_TRUE(sheet.figures()->isEmpty());
    EXPECT_FALSE(sheet.canSave());
}

// --- the preview ---------------------------------------------------------------------------------

TEST_F(NewInvoice, previewsALineForEachProjectAndRate) {
    const auto logo = project("Logo");
    logo->rateOverrideCents = 90'00;
    work("2026-02-24T09:00Z");
    work("2026-02-25T09:00Z");
    work(logo, "2026-02-25T09:00Z");
    sheet.open();
    EXPECT_EQ(lines(), (Lines{"Logo|1.00 h × $90.00|$90.00", "Website|2.00 h × $100.00|$200.00"}));
    EXPECT_EQ(total(), "$290.00");
    EXPECT_EQ(utf8(sheet.figures()->entriesText()), "3 entries");
}

TEST_F(NewInvoice, previewsInTheClientsCurrency) {
    acme()->currencyCode = "EUR";
    work("2026-02-24T09:00Z");
    sheet.open();
    EXPECT_EQ(lines(), Lines{"Website|1.00 h × €100.00|€100.00"});
}

TEST_F(NewInvoice, saysWhenASumIsTooLarge) {
    website->rateOverrideCents = 9'000'000'000'000'000;
    work("2026-02-24T09:00Z");
    sheet.open();
    typeTax("100");
    EXPECT_NE(utf8(sheet.problem()), "");
    EXPECT_FALSE(sheet.canSave());
    typeTax("0");
    EXPECT_EQ(utf8(sheet.problem()), "");
    EXPECT_TRUE(sheet.canSave());
}

// --- creating ------------------------------------------------------------------------------------

TEST_F(NewInvoice, createsTheInvoiceTellsAndCloses) {
    work("2026-02-24T09:00Z");
    sheet.open();
    typeTax("8.25");
    sheet.save();
    ASSERT_EQ(invoices().size(), 1U);
    const auto invoice = invoices().front();
    EXPECT_FALSE(sheet.isOpen());
    EXPECT_EQ(created, std::vector{invoice->id()});
    EXPECT_EQ(invoice->number.get(), "INV-2026-001");
    EXPECT_EQ(invoice->client.get(), acme());
    EXPECT_EQ(invoice->taxRateBasisPoints.get(), 825);
    EXPECT_EQ(invoice->periodStart.get(), at("2026-02-22T00:00Z"));
    EXPECT_EQ(invoice->periodEnd.get(), at("2026-03-01T00:00Z"));
    EXPECT_EQ(profiles.profile().nextInvoiceNumber, 2);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(NewInvoice, cancelChangesNothing) {
    work("2026-02-24T09:00Z");
    sheet.open();
    typeTax("8.25");
    const auto before = profiles.profile();
    sheet.dismiss();
    EXPECT_TRUE(invoices().empty());
    EXPECT_TRUE(created.empty());
    EXPECT_EQ(profiles.profile(), before);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(NewInvoice, aFullDiskLeavesTheSheetOpenWithTheReason) {
    const auto hour = work("2026-02-24T09:00Z");
    sheet.open();
    typeTax("8.25");
    {
        const test::FileSizeLimit fullDisk(0);
        sheet.save();
    }
    EXPECT_TRUE(sheet.isOpen());
    EXPECT_TRUE(
        utf8(sheet.property("problem").toString()).starts_with("The invoice could not be saved: "));
    EXPECT_EQ(utf8(sheet.tax()->text()), "8.25");
    EXPECT_FALSE(hour->invoice);
    EXPECT_TRUE(invoices().empty());
    EXPECT_EQ(total(), "$108.25");
    sheet.save();
    EXPECT_FALSE(sheet.isOpen());
    EXPECT_EQ(invoices().size(), 1U);
}

}  // namespace
}  // namespace elmworth
