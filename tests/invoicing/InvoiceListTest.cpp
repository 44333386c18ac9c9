// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/Rows.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::rowName;
using testing::ElementsAre;

class InvoiceListTest : public testing::Test {
 protected:
    Ref<Invoice> add(const char* number, const char* issueDate) {
        const auto invoice = library_.addInvoice(number, nullptr);
        invoice->issueDate = at(issueDate);
        return invoice;
    }
    std::vector<std::string> numbers() {
        std::vector<std::string> numbers;
        for (const auto& invoice : listInvoices(library_.context())) {
            numbers.push_back(invoice.number);
        }
        return numbers;
    }
    /// Whether the list follows what `change` does.
    template <class Change>
    bool follows(const Change& change) {
        library_.context().save();
        bool followed = false;
        const auto observation = library_.context().observeAll(
            [&](const RecordChanges& changes) { followed = changeList(changes); });
        change();
        library_.context().save();
        return followed;
    }

    test::TestLibrary library_{test::InMemory{}};
};

TEST_F(InvoiceListTest, beginsWithTheNewest) {
    add("B", "2026-03-01T00:00Z");
    add("A", "2026-03-01T00:00Z");
    library_.context().save();
    add("C", "2026-02-01T00:00Z");
    add("D", "2026-04-01T00:00Z");  // not saved
    EXPECT_THAT(numbers(), ElementsAre("D", "B", "A", "C"));
}

TEST_F(InvoiceListTest, readsAStatusThatNobodyKnowsAsDraft) {
    add("A", "2026-03-01T00:00Z")->statusRaw = "void";
    EXPECT_EQ(listInvoices(library_.context()).front().status, InvoiceStatus::draft);
}

TEST_F(InvoiceListTest, isAnotherOneAfterAChangeOfWhatItTells) {
    const auto invoice = add("A", "2026-03-01T00:00Z");
    EXPECT_TRUE(follows([&] { invoice->number = "B"; }));
    EXPECT_TRUE(follows([&] { invoice->issueDate = at("2026-03-02T00:00Z"); }));
    EXPECT_TRUE(follows([&] { invoice->dueDate = at("2026-03-02T00:00Z"); }));
    EXPECT_TRUE(follows([&] { invoice->setStatus(InvoiceStatus::sent); }));
    EXPECT_FALSE(follows([&] { invoice->notes = "Thank you"; }));
    EXPECT_FALSE(follows([&] { invoice->showsEntryDetails = false; }));
    EXPECT_FALSE(follows([&] { library_.addClient("Acme"); }));
    EXPECT_TRUE(follows([&] { add("C", "2026-03-01T00:00Z"); }));
    EXPECT_TRUE(follows([&] { library_.context().deleteRecord(invoice); }));
}

struct FilterRow {
    const char* name;
    const char* status;
    const char* dueDate;
    bool open;
    bool overdue;
    bool paid;
};

class InvoiceFilterTest : public testing::TestWithParam<FilterRow> {};

TEST_P(InvoiceFilterTest, showsAnInvoiceByStatusAndDueDay) {
    const auto& row = GetParam();
    ListedInvoice invoice;
    invoice.status = invoiceStatusFromRawValue(row.status).value_or(InvoiceStatus::draft);
    invoice.dueDate = at(row.dueDate);
    const auto shows = [&](InvoiceFilter filter) {
        return passes(invoice, filter, at("2026-04-15T00:00-04:00"));
    };
    EXPECT_TRUE(shows(InvoiceFilter::all));
    EXPECT_EQ(shows(InvoiceFilter::open), row.open);
    EXPECT_EQ(shows(InvoiceFilter::overdue), row.overdue);
    EXPECT_EQ(shows(InvoiceFilter::paid), row.paid);
}

INSTANTIATE_TEST_SUITE_P(
    , InvoiceFilterTest,
    testing::Values(
        FilterRow{"OldDraft", "draft", "2020-01-01T00:00Z", true, false, false},
        FilterRow{"OldUnknownStatus", "void", "2020-01-01T00:00Z", true, false, false},
        FilterRow{"SentDueEarlierToday", "sent", "2026-04-15T00:00-04:00", true, false, false},
        FilterRow{"SentDueLateYesterday", "sent", "2026-04-14T23:59-04:00", true, true, false},
        FilterRow{"SentDueTomorrow", "sent", "2026-04-16T00:00-04:00", true, false, false},
        FilterRow{"PaidLate", "paid", "2020-01-01T00:00Z", false, false, true}),
    rowName);

}  // namespace
}  // namespace elmworth
