// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
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

}  // namespace
}  // namespace elmworth
