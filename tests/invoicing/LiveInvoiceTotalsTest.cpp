// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/LiveInvoiceTotals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/Instants.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using testing::UnorderedElementsAre;

class LiveInvoiceTotalsTest : public testing::Test {
 protected:
    LiveInvoiceTotalsTest() {
        client_->hourlyRateCents = 6000;
        for (int i = 0; i < 20; ++i) {
            invoices_.push_back(library_->addInvoice("INV-" + std::to_string(100 + i), client_));
            invoices_.back()->roundingMinutes = 1;
            for (int hours = 0; hours <= i; ++hours) addHour(invoices_.back());
        }
        context().save();
        observation_ = context().observeAll(
            [this](const RecordChanges& changes) { outdated_ = totals_.follow(changes); });
        lookUps();
    }
    [[nodiscard]] UnitOfWork& context() { return library_->context(); }

    Ref<TimeEntry> addHour(const Ref<Invoice>& invoice) {
        const Instant start = at("2026-03-02T09:00Z");
        auto entry = library_->addEntry(project_, start, start + std::chrono::hours(1));
        entry->invoice = invoice;
        entry->billedRateCents = 10000;
        return entry;
    }
    /// How often time was looked up since the last call.
    static int lookUps() {
        int count = 0;
        for (const auto& sql : test::StatementTrace::take()) {
            if (sql.find("FROM \"TimeEntry\"") != std::string::npos ||
                sql.find("FROM TimeEntry") != std::string::npos) {
                ++count;
            }
        }
        return count;
    }
    /// Does `change`, saves, and gives the numbers of those whose totals were forgotten.
    template <class Change>
    std::unordered_set<PersistentID> after(const Change& change) {
        outdated_.clear();
        change();
        context().save();
        return outdated_;
    }

    test::StatementTrace trace_;
    std::unique_ptr<test::TestLibrary> library_ = std::make_unique<test::TestLibrary>();
    Ref<Client> client_ = library_->addClient("Acme");
    Ref<Project> project_ = library_->addProject("Website", client_);
    std::vector<Ref<Invoice>> invoices_;
    LiveInvoiceTotals totals_{context()};
    std::unordered_set<PersistentID> outdated_;
    UnitOfWork::Observation observation_;
};

TEST_F(LiveInvoiceTotalsTest, areComputedOnceAndOnlyForThoseThatAreAskedFor) {
    EXPECT_EQ(totals_.cents(invoices_[2]), 30000);
    EXPECT_EQ(lookUps(), 1);
    EXPECT_EQ(totals_.cents(invoices_[2]), 30000);
    totals_.read({invoices_[2]});
    EXPECT_EQ(lookUps(), 0);
    totals_.read({invoices_[0], invoices_[1], invoices_[2]});
    EXPECT_EQ(lookUps(), 2);
    EXPECT_FALSE(totals_.keeps(invoices_[3]->id()));
}

TEST_F(LiveInvoiceTotalsTest, ofOneInvoiceAreForgottenWhenItsRecordsChange) {
    totals_.read(invoices_);
    const auto entry = invoices_[4]->entries().front();
    EXPECT_THAT(after([&] { entry->billedRateCents = 20000; }),
                UnorderedElementsAre(invoices_[4]->id()));
    EXPECT_EQ(totals_.cents(invoices_[4]), 60000);
    EXPECT_THAT(after([&] { invoices_[5]->taxRateBasisPoints = 1000; }),
                UnorderedElementsAre(invoices_[5]->id()));
    EXPECT_EQ(totals_.cents(invoices_[5]), 66000);
    EXPECT_THAT(after([&] { invoices_[6]->roundingMinutes = 120; }),
                UnorderedElementsAre(invoices_[6]->id()));
    EXPECT_EQ(totals_.cents(invoices_[6]), 140000);
}

TEST_F(LiveInvoiceTotalsTest, areForgottenWhereAnEntryGoesAndWhereItComesTo) {
    totals_.read(invoices_);
    const auto entry = invoices_[4]->entries().front();
    EXPECT_THAT(after([&] { entry->invoice = invoices_[7]; }),
                UnorderedElementsAre(invoices_[4]->id(), invoices_[7]->id()));
    totals_.read(invoices_);
    EXPECT_THAT(after([&] { context().deleteRecord(entry); }),
                UnorderedElementsAre(invoices_[7]->id()));
    totals_.read(invoices_);
    EXPECT_THAT(after([&] { addHour(invoices_[3]); }), UnorderedElementsAre(invoices_[3]->id()));
    EXPECT_EQ(totals_.cents(invoices_[3]), 50000);
}

TEST_F(LiveInvoiceTotalsTest, stayWhenOtherThingsChange) {
    totals_.read(invoices_);
    const auto unbilled = library_->addEntry(project_, at("2026-03-02T09:00Z"), std::nullopt);
    EXPECT_TRUE(after([&] { unbilled->notes = "Typing"; }).empty());
    EXPECT_TRUE(after([&] { context().deleteRecord(unbilled); }).empty());
    EXPECT_TRUE(after([&] { client_->hourlyRateCents = 1; }).empty());
    EXPECT_TRUE(after([&] { invoices_[1]->notes = "Thank you"; }).empty());
    EXPECT_TRUE(after([&] { invoices_[1]->setStatus(InvoiceStatus::sent); }).empty());
    lookUps();
    totals_.read(invoices_);
    EXPECT_EQ(lookUps(), 0);
}

TEST_F(LiveInvoiceTotalsTest, withRatesThatWereNotFrozenFollowTheProject) {
    invoices_[0]->entries().front()->billedRateCents = std::nullopt;
    context().save();
    totals_.read(invoices_);
    EXPECT_EQ(totals_.cents(invoices_[0]), 6000);
    EXPECT_THAT(after([&] { project_->rateOverrideCents = 7000; }),
                UnorderedElementsAre(invoices_[0]->id()));
    EXPECT_EQ(totals_.cents(invoices_[0]), 7000);
    EXPECT_THAT(after([&] { project_->rateOverrideCents = std::nullopt; }).size(), 1U);
    (void)totals_.cents(invoices_[0]);
    EXPECT_THAT(after([&] { client_->hourlyRateCents = 9000; }),
                UnorderedElementsAre(invoices_[0]->id()));
}

TEST_F(LiveInvoiceTotalsTest, ofADeletedInvoiceAreForgotten) {
    totals_.read(invoices_);
    const auto id = invoices_[2]->id();
    EXPECT_THAT(after([&] { context().deleteRecord(invoices_[2]); }), UnorderedElementsAre(id));
    EXPECT_FALSE(totals_.keeps(id));
}

TEST_F(LiveInvoiceTotalsTest, areAbsentWhereASumIsBeyond64Bits) {
    invoices_[0]->taxRateBasisPoints = std::numeric_limits<std::int64_t>::max();
    context().save();
    EXPECT_EQ(totals_.cents(invoices_[0]), std::nullopt);
    EXPECT_EQ(totals_.cents(invoices_[1]), 20000);
}

TEST_F(LiveInvoiceTotalsTest, areAllForgottenAfterTooManyChangesToBeNamed) {
    totals_.read(invoices_);
    EXPECT_EQ(after([&] {
                  for (int i = 0; i < 1001; ++i) addHour(nullptr);
              }).size(),
              invoices_.size());
}

}  // namespace
}  // namespace elmworth
