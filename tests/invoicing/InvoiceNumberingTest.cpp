// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The numbers that the invoice builder gives.

#include <gtest/gtest.h>

#include <limits>

#include "invoicing/InvoiceBuilder.h"
#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/Rows.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::rowName;
using Code = BuildError::Code;

class InvoiceNumbering : public testing::Test {
 protected:
    Ref<Invoice> create() {
        const Instant start = at("2026-03-02T09:00Z");
        library_.addEntry(website_, start, start + std::chrono::hours(1));
        return builder().createInvoice(client_, start, start + std::chrono::hours(1), 0, profile_);
    }
    void take(const std::string& number) { library_.addInvoice(number, client_); }

    Ref<Invoice> storedInvoice(const std::string& number) {
        const auto invoice = library_.addInvoice(number, client_);
        library_.context().save();
        return invoice;
    }

    std::optional<Code> renumber(const Ref<Invoice>& invoice, const std::string& number) {
        try {
            builder().renumber(invoice, number);
        } catch (const BuildError& error) {
            return error.code();
        }
        return std::nullopt;
    }

    [[nodiscard]] InvoiceBuilder builder() {
        return {library_.context(), [this] { return now_; }, {Locale("en_US"), zone_}};
    }

    std::string zone_ = "UTC";
    Instant now_ = at("2026-04-02T10:00Z");
    BusinessProfile profile_;
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
};

// --- years -------------------------------------------------------------------------------------

struct YearRow {
    const char* name;
    bool reset;
    std::int64_t numberingYear;
    const char* number;
};

class InvoiceNumberingYears : public InvoiceNumbering,
                              public testing::WithParamInterface<YearRow> {};

TEST_P(InvoiceNumberingYears, restartOnlyInANewYearWhenAskedTo) {
    const auto& row = GetParam();
    profile_.resetNumberingYearly = row.reset;
    profile_.numberingYear = row.numberingYear;
    profile_.nextInvoiceNumber = 42;
    const auto invoice = create();
    EXPECT_EQ(invoice->number.get(), row.number);
    EXPECT_EQ(profile_.numberingYear, 2026);
}

INSTANTIATE_TEST_SUITE_P(, InvoiceNumberingYears,
                         testing::Values(YearRow{"FirstNumberEver", true, 0, "INV-2026-042"},
                                         YearRow{"SameYear", true, 2026, "INV-2026-042"},
                                         YearRow{"NewYear", true, 2025, "INV-2026-001"},
                                         YearRow{"AYearBack", true, 2027, "INV-2026-001"},
                                         YearRow{"NewYearRunsOn", false, 2025, "INV-2026-042"}),
                         rowName);

TEST_F(InvoiceNumbering, theYearIsThatOfTheIssueDateInTheCalendar) {
    zone_ = "Asia/Tokyo";
    now_ = at("2026-12-31T20:00Z");
    EXPECT_EQ(create()->number.get(), "INV-2027-001");
}

// --- taken numbers -----------------------------------------------------------------------------

TEST_F(InvoiceNumbering, theCounterGoesOnFromTheNumberGiven) {
    EXPECT_EQ(create()->number.get(), "INV-2026-001");
    EXPECT_EQ(create()->number.get(), "INV-2026-002");
    EXPECT_EQ(profile_.nextInvoiceNumber, 3);
}

TEST_F(InvoiceNumbering, takenNumbersAreSkipped) {
    take("INV-2026-001");
    take("INV-2026-002");
    EXPECT_EQ(create()->number.get(), "INV-2026-003");
    EXPECT_EQ(profile_.nextInvoiceNumber, 4);
}

TEST_F(InvoiceNumbering, aRestartThatMeetsATakenNumberGoesOnToAFreeOne) {
    profile_.resetNumberingYearly = true;
    profile_.numberingYear = 2025;
    profile_.nextInvoiceNumber = 9;
    take("INV-2026-001");
    EXPECT_EQ(create()->number.get(), "INV-2026-002");
}

TEST_F(InvoiceNumbering, numbersThatDifferInCaseAreNotTheSame) {
    take("inv-2026-001");
    EXPECT_EQ(create()->number.get(), "INV-2026-001");
}

TEST_F(InvoiceNumbering, theLastNumberThereIsCanBeGivenOnce) {
    constexpr auto last = std::numeric_limits<std::int64_t>::max();
    profile_.nextInvoiceNumber = last;
    EXPECT_EQ(create()->number.get(), "INV-2026-" + std::to_string(last));
    EXPECT_THROW(create(), BuildError);
    EXPECT_EQ(profile_.nextInvoiceNumber, last);
}

// --- renumbering -------------------------------------------------------------------------------

TEST_F(InvoiceNumbering, aDraftTakesAnotherNumberTrimmed) {
    const auto invoice = storedInvoice("A-1");
    EXPECT_EQ(renumber(invoice, " \t2026/7\n"), std::nullopt);
    EXPECT_EQ(invoice->number.get(), "2026/7");
    library_.reopen();
    EXPECT_EQ(library_.context().fetch<Invoice>().front()->number.get(), "2026/7");
}

TEST_F(InvoiceNumbering, thePresentNumberAgainIsNotSaved) {
    const auto invoice = storedInvoice("A-1");
    const test::FileSizeLimit fullDisk(0);
    client_->name = "Unsaved";
    EXPECT_EQ(renumber(invoice, "  A-1 "), std::nullopt);
    EXPECT_TRUE(library_.context().hasChanges());
}

TEST_F(InvoiceNumbering, anotherInvoicesNumberIsRefused) {
    const auto invoice = storedInvoice("A-1");
    take("A-2");
    EXPECT_EQ(renumber(invoice, "A-2 "), Code::duplicateNumber);
    EXPECT_EQ(invoice->number.get(), "A-1");
}

TEST_F(InvoiceNumbering, anotherInvoicesNumberInOtherCaseIsFree) {
    const auto invoice = storedInvoice("A-1");
    take("A-2");
    EXPECT_EQ(renumber(invoice, "a-2"), std::nullopt);
    EXPECT_EQ(renumber(invoice, "a-1"), std::nullopt);
}

TEST_F(InvoiceNumbering, numbersAreEqualHoweverTheirCharactersAreComposed) {
    const auto invoice = storedInvoice("\u00c9-1");
    take("\u00c9-2");
    EXPECT_EQ(renumber(invoice, "E\u0301-2"), Code::duplicateNumber);
    EXPECT_EQ(renumber(invoice, "E\u0301-1"), std::nullopt);
    EXPECT_EQ(invoice->number.get(), "\u00c9-1");
    take("E\u0301-2026-001");
    profile_.invoicePrefix = "\u00c9";
    EXPECT_EQ(create()->number.get(), "\u00c9-2026-002");
}

TEST_F(InvoiceNumbering, anEmptyNumberIsRefused) {
    EXPECT_EQ(renumber(storedInvoice("A-1"), " \n\t\u00A0"), Code::emptyNumber);
}

TEST_F(InvoiceNumbering, onlyDraftsAreRenumberedWhateverIsTyped) {
    const auto invoice = storedInvoice("A-1");
    for (const auto status : {InvoiceStatus::sent, InvoiceStatus::paid}) {
        invoice->setStatus(status, now_);
        for (const char* number : {"B-1", "", "A-1"})
            EXPECT_EQ(renumber(invoice, number), Code::notDraft) << number;
    }
    EXPECT_EQ(invoice->number.get(), "A-1");
}

TEST_F(InvoiceNumbering, aStatusThatNobodyKnowsIsADraft) {
    const auto invoice = storedInvoice("A-1");
    invoice->statusRaw = "archived";
    EXPECT_EQ(renumber(invoice, "B-1"), std::nullopt);
    EXPECT_EQ(invoice->number.get(), "B-1");
}

TEST_F(InvoiceNumbering, renumberingLeavesTheCounterAlone) {
    const auto invoice = create();
    EXPECT_EQ(renumber(invoice, "INV-2026-009"), std::nullopt);
    EXPECT_EQ(create()->number.get(), "INV-2026-002");
}

}  // namespace
}  // namespace elmworth
