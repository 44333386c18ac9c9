// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceFigures.h"

#include <gtest/gtest.h>

#include <random>

#include "invoicing/InvoicePages.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;

class InvoiceFiguresTest : public testing::Test {
 protected:
    std::int64_t upTo(std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(0, most)(random_);
    }
    bool oneIn(std::int64_t cases) { return upTo(cases - 1) == 0; }

    Ref<Invoice> addInvoice() {
        auto invoice = std::make_shared<Invoice>("INV-" + std::to_string(++invoiceCount_));
        invoice->roundingMinutes = upTo(20) - 2;
        invoice->taxRateBasisPoints = upTo(2500);
        invoice->showsEntryDetails = !oneIn(3);
        library_.context().insert(invoice);
        return invoice;
    }
    Ref<TimeEntry> addEntry(const Ref<Project>& project, const Ref<Invoice>& invoice) {
        const Instant start =
            at("2026-03-01T00:00Z") + std::chrono::microseconds(upTo(1'000'000'000));
        const auto length = std::chrono::microseconds(upTo(20'000'000'000) - 1'000'000'000);
        auto entry = library_.addEntry(project, start, start + length);
        entry->invoice = invoice;
        if (!oneIn(4)) entry->billedRateCents = 100 * upTo(5) - 100;
        if (oneIn(20)) entry->end = std::nullopt;
        return entry;
    }
    void expectFiguresOfTheCalculator(const std::vector<Ref<Invoice>>& invoices) {
        const InvoiceFigures figures(library_.context(), invoices);
        for (const auto& invoice : invoices) {
            const auto expected = InvoiceCalculator::totals(*invoice);
            const auto found = figures.totals(*invoice);
            EXPECT_EQ(found.subtotalCents, expected.subtotalCents) << invoice->number.get();
            EXPECT_EQ(found.taxCents, expected.taxCents) << invoice->number.get();
            EXPECT_EQ(found.totalCents, expected.totalCents) << invoice->number.get();
            const auto model = makeInvoiceRenderModel(
                *invoice, {}, {Locale("en_US"), Locale("en_US"), "UTC"}, nullptr);
            EXPECT_EQ(figures.rowCount(*invoice), model.rows.size()) << invoice->number.get();
            EXPECT_EQ(
                pageCount(makeInvoiceFrame(*invoice, {}, nullptr), figures.rowCount(*invoice)),
                static_cast<int>(pages(model).size()));
        }
    }

    std::mt19937_64 random_{2026};
    int invoiceCount_ = 0;
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
};

TEST_F(InvoiceFiguresTest, areThoseOfTheCalculatorForAnyTimeAndSomeOfTheInvoices) {
    std::vector<Ref<Project>> projects{nullptr};
    for (const char* name : {"Website", "App", "Website"}) {
        projects.push_back(library_.addProject(name, client_));
        if (oneIn(2)) projects.back()->rateOverrideCents = upTo(20000);
    }
    client_->hourlyRateCents = 9500;
    std::vector<Ref<Invoice>> invoices{nullptr};
    for (int i = 0; i < 24; ++i) invoices.push_back(addInvoice());
    for (int i = 0; i < 1500; ++i) {
        addEntry(projects[static_cast<std::size_t>(upTo(3))],
                 invoices[static_cast<std::size_t>(upTo(24))]);
    }
    library_.context().save();
    invoices.erase(invoices.begin());
    expectFiguresOfTheCalculator(invoices);
    expectFiguresOfTheCalculator({invoices[3], invoices[7]});  // looked up one by one
    invoices[4]->entries().front()->invoice = invoices[5];     // not saved
    expectFiguresOfTheCalculator(invoices);
}

TEST_F(InvoiceFiguresTest, areThoseOfTheCalculatorWhereSumsOfSecondsAreNotExact) {
    const auto project = library_.addProject("Website", client_);
    const auto invoice = addInvoice();
    invoice->roundingMinutes = 123456789;
    for (int i = 0; i < 1300; ++i) {
        const auto entry = library_.addEntry(project, at("2026-03-01T00:00Z"), Instant::max());
        entry->invoice = invoice;
        entry->billedRateCents = 1;
    }
    library_.context().save();
    expectFiguresOfTheCalculator({invoice});
}

TEST_F(InvoiceFiguresTest, ofAnInvoiceWithoutTimeAreZero) {
    const auto invoice = addInvoice();
    library_.context().save();
    expectFiguresOfTheCalculator({invoice});
}

}  // namespace
}  // namespace elmworth
