// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What must hold in every library after any sequence of invoices made, deleted and renumbered.

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "invoicing/InvoiceBuilder.h"
#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

constexpr int stepsPerSeed = 60;
constexpr int entriesPerLibrary = 60;

class InvoiceLedger : public testing::TestWithParam<unsigned> {
 protected:
    InvoiceLedger() {
        for (int i = 0; i < 3; ++i) {
            clients_.push_back(library_.addClient("Client " + std::to_string(i)));
            projects_.push_back(library_.addProject("A", clients_.back()));
            projects_.push_back(library_.addProject("B", clients_.back()));
        }
        projects_.push_back(library_.addProject("Nobody's", nullptr));
        for (int i = 0; i < entriesPerLibrary; ++i) addEntry();
        library_.context().save();
    }

    int between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random_);
    }
    template <class T>
    const T& any(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(between(0, static_cast<int>(choices.size()) - 1))];
    }

    void addEntry() {
        const Instant start = january_ + between(0, 90 * 24 * 60) * 1min;
        const auto end = between(0, 9) == 0
                             ? std::nullopt
                             : std::optional<Instant>(start + between(0, 300) * 1min);
        library_.addEntry(any(projects_), start, end);
    }

    void createInvoice() {
        const auto& client = any(clients_);
        const Instant from = january_ + between(0, 80) * 24h;
        const Instant to = from + between(0, 40) * 24h;
        const auto expected = builder_.unbilledEntries(client, from, to);
        try {
            const auto invoice = builder_.createInvoice(client, from, to, 825, profile_);
            ASSERT_EQ(invoice->entries().size(), expected.size());
            for (const auto& entry : expected) ASSERT_EQ(entry->invoice.get(), invoice);
        } catch (const BuildError& error) {
            ASSERT_EQ(error.code(), BuildError::Code::noEntries);
            ASSERT_TRUE(expected.empty());
        }
    }

    void failToCreateInvoice() {
        const auto before = billing();
        const auto count = library_.context().fetchCount<Invoice>();
        const test::FileSizeLimit fullDisk(0);
        EXPECT_ANY_THROW(
            builder_.createInvoice(any(clients_), january_, january_ + 90 * 24h, 0, profile_));
        ASSERT_EQ(billing(), before);
        ASSERT_EQ(library_.context().fetchCount<Invoice>(), count);
        ASSERT_FALSE(library_.context().hasChanges());
    }

    void deleteInvoice() {
        const auto invoices = library_.context().fetch<Invoice>();
        if (invoices.empty()) return;
        const auto invoice = any(invoices);
        const auto entries = invoice->entries();
        builder_.deleteInvoice(invoice);
        for (const auto& entry : entries) {
            ASSERT_FALSE(entry->invoice);
            ASSERT_FALSE(entry->billedRateCents.get());
        }
    }

    void renumberInvoice() {
        const auto invoices = library_.context().fetch<Invoice>();
        if (invoices.empty()) return;
        const std::string number = "INV-2026-" + std::to_string(100 + between(0, 8));
        try {
            builder_.renumber(any(invoices), number);
        } catch (const BuildError& error) {
            ASSERT_EQ(error.code(), BuildError::Code::duplicateNumber);
        }
    }

    /// The invoice number and the frozen rate of each entry, as texts.
    std::map<PersistentID, std::string> billing() {
        std::map<PersistentID, std::string> found;
        for (const auto& entry : library_.context().fetch<TimeEntry>()) {
            found[entry->id()] = (entry->invoice ? entry->invoice->number.get() : "-") + " " +
                                 std::to_string(entry->billedRateCents->value_or(-1));
        }
        return found;
    }

    void checkLedger() {
        const auto invoices = library_.context().fetch<Invoice>();
        std::set<std::string> numbers;
        std::size_t billed = 0;
        for (const auto& invoice : invoices) {
            ASSERT_TRUE(numbers.insert(invoice->number).second) << invoice->number.get();
            const auto entries = invoice->entries();
            ASSERT_FALSE(entries.empty());
            for (const auto& entry : entries) {
                ASSERT_EQ(entry->invoice.get(), invoice);
                ASSERT_EQ(entry->project->client.get(), invoice->client.get());
                ASSERT_FALSE(entry->isRunning());
                ASSERT_TRUE(entry->billedRateCents.get());
            }
            billed += entries.size();
        }
        const auto marked = library_.context().fetchCount(
            Query<TimeEntry>{.predicate = key<&TimeEntry::invoice>() != absent});
        ASSERT_EQ(billed, marked) << "an entry stands on more than one invoice, or on none";
        const auto frozen = library_.context().fetchCount(
            Query<TimeEntry>{.predicate = key<&TimeEntry::billedRateCents>() != absent});
        ASSERT_EQ(frozen, marked);
    }

    void takeStep() {
        switch (between(0, 7)) {
            case 0:
                return deleteInvoice();
            case 1:
                return renumberInvoice();
            case 2:
                return failToCreateInvoice();
            case 3:
                any(clients_)->hourlyRateCents = between(0, 30'000);
                addEntry();
                return library_.context().save();
            default:
                return createInvoice();
        }
    }

    const Instant january_ = at("2026-01-01T00:00Z");
    std::mt19937 random_{GetParam()};
    test::TestLibrary library_;
    BusinessProfile profile_;
    std::vector<Ref<Client>> clients_;
    std::vector<Ref<Project>> projects_;
    InvoiceBuilder builder_{
        library_.context(), [] { return at("2026-04-01T10:00Z"); }, {Locale("en_US"), "UTC"}};
};

TEST_P(InvoiceLedger, billsNoEntryTwiceAndGivesNoNumberTwice) {
    profile_.nextInvoiceNumber = 99;
    for (int step = 0; step < stepsPerSeed && !HasFailure(); ++step) {
        takeStep();
        checkLedger();
    }
}

TEST_P(InvoiceLedger, deletingEveryInvoiceGivesEveryEntryBack) {
    const auto before = billing();
    for (int i = 0; i < 10; ++i) createInvoice();
    ASSERT_NE(billing(), before);
    for (const auto& invoice : library_.context().fetch<Invoice>()) builder_.deleteInvoice(invoice);
    EXPECT_EQ(billing(), before);
}

INSTANTIATE_TEST_SUITE_P(Seed, InvoiceLedger, testing::Range(1U, 9U));

}  // namespace
}  // namespace elmworth
