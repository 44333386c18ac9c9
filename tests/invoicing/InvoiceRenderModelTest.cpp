// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceRenderModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/BilledMarch.h"
#include "support/Golden.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::rowName;
using EntryRow = InvoiceRenderModel::EntryRow;
using Party = InvoiceRenderModel::Party;
using ProjectRow = InvoiceRenderModel::ProjectRow;
using testing::ElementsAre;
using testing::VariantWith;

/// `text` in quotes on one line.
std::string quoted(std::string text) {
    for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at))
        text.replace(at, 1, "\\n");
    return '"' + text + '"';
}

/// The whole model, a line for each text.
std::string print(const InvoiceRenderModel& model) {
    std::string text;
    const auto line = [&](const std::string& name, const std::string& value) {
        text += name + ": " + quoted(value) + "\n";
    };
    const auto party = [&](const std::string& name, const Party& who) {
        line(name + ".name", who.name);
        line(name + ".address", who.address);
        line(name + ".email", who.email);
        line(name + ".taxID", who.taxID);
    };
    line("number", model.number);
    line("issueDate", model.issueDate);
    line("dueDate", model.dueDate);
    line("period", model.period);
    party("business", model.business);
    party("billTo", model.billTo);
    for (const auto& row : model.rows) {
        if (const auto* project = std::get_if<ProjectRow>(&row)) {
            line("project", project->name + " | " + project->hours + " | " + project->rate + " | " +
                                project->amount);
        } else {
            const auto& entry = std::get<EntryRow>(row);
            line("  entry", entry.date + " | " + entry.notes + " | " + entry.hours);
        }
    }
    line("subtotal", model.subtotal);
    line("taxLabel", model.taxLabel.value_or("(absent)"));
    line("tax", model.tax);
    line("total", model.total);
    line("paymentInstructions", model.paymentInstructions);
    line("notes", model.notes);
    return text;
}

class InvoiceRenderModelTest : public testing::Test {
 protected:
    [[nodiscard]] InvoiceRenderModel model(const Locale& locale = Locale("en_US"),
                                           const char* zone = "America/New_York") const {
        return makeInvoiceRenderModel(*march_.invoice, march_.profile, {locale, locale, zone},
                                      nullptr);
    }

    test::BilledMarch march_;
};

struct GoldenRow {
    const char* name;
    const char* currency;
};

class InvoiceRenderModelGolden : public InvoiceRenderModelTest,
                                 public testing::WithParamInterface<GoldenRow> {};

TEST_P(InvoiceRenderModelGolden, readsAsTheLocaleWritesIt) {
    const auto& [locale, currency] = GetParam();
    march_.invoice->currencyCode = currency;
    test::expectGolden(print(model(Locale(locale))),
                       std::string("invoicing/RenderModel.") + locale + ".txt");
}

INSTANTIATE_TEST_SUITE_P(, InvoiceRenderModelGolden,
                         testing::Values(GoldenRow{"en_US", "USD"}, GoldenRow{"de_DE", "EUR"},
                                         GoldenRow{"ja_JP", "JPY"}),
                         rowName);

// --- parties -----------------------------------------------------------------------------------

TEST_F(InvoiceRenderModelTest, anInvoiceWithoutAClientHasAnEmptyRecipientAndDollars) {
    march_.invoice->client = nullptr;
    march_.invoice->currencyCode = "";
    EXPECT_EQ(model().billTo, Party{});
    EXPECT_EQ(model().subtotal.front(), '$');
}

TEST_F(InvoiceRenderModelTest, theIssuerIsTheOneOfTheDayOfIssue) {
    march_.profile.name = "Ada & Co";
    march_.profile.taxLabel = "GST";
    march_.profile.paymentInstructions = "Cash";
    EXPECT_EQ(model().business.name, "Ada Byron Design");
    EXPECT_EQ(model().taxLabel, "VAT (8.25%)");
    EXPECT_EQ(model().paymentInstructions, "IBAN GB00 1234\n");

    march_.addEntry(march_.app, "2026-03-05T09:00-05:00", 60, "");
    march_.invoice = march_.builder.createInvoice(march_.client, at("2026-03-01T00:00Z"),
                                                  at("2026-04-01T00:00Z"), 0, march_.profile);
    EXPECT_EQ(model().business.name, "Ada & Co") << "a later invoice shows the later profile";
}

TEST_F(InvoiceRenderModelTest, withoutASnapshotThatCanBeReadTheSettingsStandIn) {
    march_.profile.name = "Live";
    march_.invoice->businessSnapshot = Blob{"{\"name\":"};
    EXPECT_EQ(model().business.name, "Live");
    march_.invoice->businessSnapshot = std::nullopt;
    EXPECT_EQ(model().business.name, "Live");
}

TEST_F(InvoiceRenderModelTest, theRecipientIsTheClientOfToday) {
    march_.client->name = "Northwind";
    march_.client->address = "New Street";
    march_.client->email = "";
    EXPECT_EQ(model().billTo, (Party{"Northwind", "New Street", "", ""}));
}

// --- tax and notes -----------------------------------------------------------------------------

struct TaxLabelRow {
    const char* name;
    std::int64_t basisPoints;
    const char* word;
    std::optional<std::string> label;
};

class InvoiceRenderModelTax : public InvoiceRenderModelTest,
                              public testing::WithParamInterface<TaxLabelRow> {};

TEST_P(InvoiceRenderModelTax, labelNamesTheRate) {
    const auto& row = GetParam();
    march_.profile.taxLabel = row.word;
    march_.invoice->businessSnapshot = std::nullopt;
    march_.invoice->taxRateBasisPoints = row.basisPoints;
    EXPECT_EQ(model().taxLabel, row.label);
}

INSTANTIATE_TEST_SUITE_P(, InvoiceRenderModelTax,
                         testing::Values(TaxLabelRow{"NoTax", 0, "VAT", std::nullopt},
                                         TaxLabelRow{"BelowNothing", -1, "VAT", std::nullopt},
                                         TaxLabelRow{"OneBasisPoint", 1, "VAT", "VAT (0.01%)"},
                                         TaxLabelRow{"NoWord", 1900, "", "Tax (19%)"},
                                         TaxLabelRow{"Half", 850, "VAT", "VAT (8.50%)"}),
                         rowName);

TEST_F(InvoiceRenderModelTest, theTaxIsWrittenAlsoWithoutALabel) {
    march_.invoice->taxRateBasisPoints = 0;
    EXPECT_EQ(model().tax, "$0.00");
    EXPECT_EQ(model().total, model().subtotal);
}

TEST_F(InvoiceRenderModelTest, notesOfNothingButBlanksAreEmpty) {
    march_.invoice->notes = " \n\t ";
    EXPECT_EQ(model().notes, "");
}

// --- period ------------------------------------------------------------------------------------

TEST_F(InvoiceRenderModelTest, thePeriodEndsOnItsLastDay) {
    EXPECT_EQ(model().period, "Mar 1, 2026 – Mar 31, 2026");
}

TEST_F(InvoiceRenderModelTest, aReversedPeriodIsAnEmptyOneAtItsStart) {
    march_.invoice->periodEnd = at("2026-01-01T00:00Z");
    EXPECT_EQ(model().period, "Mar 1, 2026 – Feb 28, 2026");
}

TEST_F(InvoiceRenderModelTest, datesStandInTheTimeZoneOfTheReader) {
    const auto model = this->model(Locale("en_US"), "Asia/Tokyo");
    EXPECT_EQ(std::get<EntryRow>(model.rows[2]).date, "Apr 1, 2026");
}

// --- rows --------------------------------------------------------------------------------------

TEST_F(InvoiceRenderModelTest, withoutDetailsThereAreOnlyProjects) {
    march_.invoice->showsEntryDetails = false;
    EXPECT_THAT(model().rows,
                ElementsAre(VariantWith<ProjectRow>(ProjectRow{"App", "2.30", "$95.00", "$218.50"}),
                            VariantWith<ProjectRow>(
                                ProjectRow{"Website", "1.10", "$1,234.50", "$1,357.95"})));
}

TEST_F(InvoiceRenderModelTest, twoRatesOfAProjectHaveTheirOwnEntries) {
    march_.invoice->entries()[0]->billedRateCents = 5000;
    EXPECT_THAT(model().rows,
                ElementsAre(VariantWith<ProjectRow>(ProjectRow{"App", "1.50", "$50.00", "$75.00"}),
                            VariantWith<EntryRow>(EntryRow{"Mar 2, 2026", "Login", "1.50"}),
                            VariantWith<ProjectRow>(ProjectRow{"App", "0.80", "$95.00", "$76.00"}),
                            VariantWith<EntryRow>(EntryRow{"Mar 31, 2026", "", "0.80"}), testing::_,
                            testing::_));
}

}  // namespace
}  // namespace elmworth
