// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The calculator on the records of a library.

#include <gtest/gtest.h>

#include <limits>

#include "invoicing/InvoiceBuilder.h"
#include "invoicing/InvoiceCalculator.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using InvoiceCalculator::totals;
using test::at;
using test::moved;

class InvoiceCalculatorRecords : public testing::Test {
 protected:
    Ref<TimeEntry> addEntry(const Ref<Project>& project, const char* start, double hours) {
        return library_.addEntry(project, at(start), moved(at(start), hours * 3600));
    }

    Ref<Invoice> createInvoice() {
        BusinessProfile profile;
        return builder_.createInvoice(client_, at("2026-03-01T00:00Z"), at("2026-04-01T00:00Z"), 0,
                                      profile);
    }

    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
    Ref<Project> app_ = library_.addProject("App", client_);
    InvoiceBuilder builder_{
        library_.context(), [] { return at("2026-04-01T10:00Z"); }, {Locale("en_US"), "UTC"}};
};

TEST_F(InvoiceCalculatorRecords, runningEntriesAndThoseWithoutAProjectAreNoItems) {
    const auto billable = addEntry(website_, "2026-03-02T09:00Z", 1);
    const auto running = library_.addEntry(website_, at("2026-03-02T11:00Z"), std::nullopt);
    const auto loose = addEntry(nullptr, "2026-03-02T13:00Z", 1);
    const auto items = InvoiceCalculator::items({running, billable, loose});
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].start, billable->start.get());
    EXPECT_EQ(items[0].projectName, "Website");
}

TEST_F(InvoiceCalculatorRecords, itemsKeepTheirOrderAndEntriesOfNoOrNegativeLength) {
    const auto empty = addEntry(website_, "2026-03-03T09:00Z", 0);
    const auto reversed = addEntry(app_, "2026-03-02T09:00Z", -1);
    const auto items = InvoiceCalculator::items({empty, reversed});
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].seconds, 0);
    EXPECT_EQ(items[1].seconds, -3600);
}

TEST_F(InvoiceCalculatorRecords, anItemHasTheRateOfItsEntryAndTheExactLength) {
    const auto entry = library_.addEntry(website_, at("2026-03-02T09:00Z"),
                                         at("2026-03-02T09:00Z") + std::chrono::milliseconds(1500));
    entry->notes = "Fix";
    entry->billedRateCents = 7;
    const auto item = InvoiceCalculator::items({entry}).front();
    EXPECT_EQ(item.seconds, 1.5);
    EXPECT_EQ(item.rateCents, 7);
    EXPECT_EQ(item.projectKey, std::pair(website_->id(), std::int64_t{7}));
    EXPECT_EQ(item.notes, "Fix");
}

TEST_F(InvoiceCalculatorRecords, noLaterChangeOfRatesRoundingOrTaxAltersAStoredInvoice) {
    app_->rateOverrideCents = 20000;
    addEntry(website_, "2026-03-02T09:00Z", 1.3);
    addEntry(app_, "2026-03-02T11:00Z", 1);
    const auto invoice = createInvoice();
    const auto before = totals(*invoice);
    client_->hourlyRateCents = 1;
    client_->taxBasisPoints = 1900;
    app_->rateOverrideCents = std::nullopt;
    website_->rateOverrideCents = 99;
    library_.context().save();
    EXPECT_EQ(totals(*invoice), before);
    EXPECT_EQ(before.totalCents, 33000);
}

TEST_F(InvoiceCalculatorRecords, aNewNameOfAProjectChangesTheLineAndItsPlace) {
    addEntry(website_, "2026-03-02T09:00Z", 1);
    addEntry(app_, "2026-03-02T11:00Z", 1);
    const auto invoice = createInvoice();
    EXPECT_EQ(totals(*invoice).lines[0].projectName, "App");
    app_->name = "Zebra";
    EXPECT_EQ(totals(*invoice).lines[0].projectName, "Website");
    EXPECT_EQ(totals(*invoice).lines[1].projectName, "Zebra");
}

TEST_F(InvoiceCalculatorRecords, anEntryThatLosesItsProjectDropsOutOfTheTotal) {
    const auto entry = addEntry(website_, "2026-03-02T09:00Z", 1);
    addEntry(app_, "2026-03-02T11:00Z", 1);
    const auto invoice = createInvoice();
    EXPECT_EQ(totals(*invoice).totalCents, 20000);
    entry->project = nullptr;
    EXPECT_EQ(totals(*invoice).totalCents, 10000);
    EXPECT_EQ(totals(*invoice).lines.size(), 1U);
}

TEST_F(InvoiceCalculatorRecords, aStoredInvoiceUsesItsOwnRoundingAndTax) {
    addEntry(website_, "2026-03-02T09:00Z", 1.01);
    const auto invoice = createInvoice();
    invoice->roundingMinutes = 15;
    invoice->taxRateBasisPoints = 1000;
    EXPECT_EQ(totals(*invoice).subtotalCents, 12500);
    EXPECT_EQ(totals(*invoice).taxCents, 1250);
}

TEST_F(InvoiceCalculatorRecords, figuresThatDoNotFitAreAnErrorOfThatInvoice) {
    addEntry(website_, "2026-03-02T09:00Z", 1);
    const auto invoice = createInvoice();
    invoice->taxRateBasisPoints = std::numeric_limits<std::int64_t>::max();
    try {
        (void)totals(*invoice);
        FAIL();
    } catch (const FiguresError& error) {
        EXPECT_STREQ(error.what(), "The figures of INV-2026-001 are too large.");
    }
}

}  // namespace
}  // namespace elmworth
