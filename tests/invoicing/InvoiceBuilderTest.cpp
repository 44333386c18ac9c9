// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::FileSizeLimit;
using testing::ElementsAre;
using testing::IsEmpty;

class InvoiceBuilderTest : public testing::Test {
 protected:
    Ref<TimeEntry> addHour(const char* start, const Ref<Project>& project) {
        return library_.addEntry(project, at(start), at(start) + std::chrono::hours(1));
    }
    Ref<TimeEntry> addHour(const char* start) { return addHour(start, website_); }

    std::vector<Ref<TimeEntry>> unbilled() {
        return builder().unbilledEntries(client_, march_, april_);
    }
    Ref<Invoice> create(std::int64_t tax = 0) {
        return builder().createInvoice(client_, march_, april_, tax, profile_);
    }

    /// The code of the BuildError that `action` throws; absent when it throws none.
    template <class Action>
    static std::optional<BuildError::Code> errorOf(Action action) {
        try {
            action();
        } catch (const BuildError& error) {
            return error.code();
        }
        return std::nullopt;
    }

    [[nodiscard]] InvoiceBuilder builder() {
        return {library_.context(), [this] { return now_; }, {Locale("en_US"), zone_}};
    }

    std::string zone_ = "America/New_York";
    Instant march_ = at("2026-03-01T00:00-05:00");
    Instant april_ = at("2026-04-01T00:00-04:00");
    Instant now_ = at("2026-04-02T10:00-04:00");
    BusinessProfile profile_;
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
};

// --- which entries -----------------------------------------------------------------------------

TEST_F(InvoiceBuilderTest, thePeriodHoldsItsStartButNotItsEnd) {
    const auto first = addHour("2026-03-01T00:00-05:00");
    const auto last = addHour("2026-03-31T23:59:59-04:00");
    addHour("2026-04-01T00:00-04:00");
    addHour("2026-02-28T23:59:59-05:00");
    EXPECT_THAT(unbilled(), ElementsAre(first, last));
}

TEST_F(InvoiceBuilderTest, anEntryThatEndsAfterThePeriodBelongsToItWhole) {
    const auto overnight = addHour("2026-03-31T23:30-04:00");
    EXPECT_THAT(unbilled(), ElementsAre(overnight));
}

TEST_F(InvoiceBuilderTest, entriesComeInTheOrderOfTheirStart) {
    const auto second = addHour("2026-03-03T09:00Z");
    const auto first = addHour("2026-03-02T09:00Z");
    EXPECT_THAT(unbilled(), ElementsAre(first, second));
    library_.context().save();
    EXPECT_THAT(unbilled(), ElementsAre(first, second));
}

TEST_F(InvoiceBuilderTest, runningAndBilledEntriesAreLeftOut) {
    library_.addEntry(website_, at("2026-03-02T09:00Z"), std::nullopt);
    addHour("2026-03-02T11:00Z")->invoice = library_.addInvoice("A", client_);
    EXPECT_THAT(unbilled(), IsEmpty());
}

TEST_F(InvoiceBuilderTest, entriesOfOthersAndOfNobodyAreLeftOut) {
    addHour("2026-03-02T09:00Z", library_.addProject("Other", library_.addClient("Globex")));
    addHour("2026-03-02T11:00Z", library_.addProject("Loose", nullptr));
    addHour("2026-03-02T13:00Z", nullptr);
    EXPECT_THAT(unbilled(), IsEmpty());
    EXPECT_EQ(errorOf([&] { create(); }), BuildError::Code::noEntries);
}

TEST_F(InvoiceBuilderTest, archivedProjectsAreBilledToo) {
    website_->isArchived = true;
    addHour("2026-03-02T09:00Z");
    EXPECT_EQ(unbilled().size(), 1U);
}

// --- what an invoice freezes -------------------------------------------------------------------

TEST_F(InvoiceBuilderTest, anInvoiceIsADraftWithThePeriodAsGiven) {
    addHour("2026-03-02T09:00Z");
    const auto invoice = create(825);
    EXPECT_EQ(invoice->number.get(), "INV-2026-001");
    EXPECT_EQ(invoice->client.get(), client_);
    EXPECT_EQ(invoice->statusRaw.get(), "draft");
    EXPECT_EQ(invoice->issueDate.get(), now_);
    EXPECT_EQ(invoice->periodStart.get(), march_);
    EXPECT_EQ(invoice->periodEnd.get(), april_);
    EXPECT_EQ(invoice->taxRateBasisPoints.get(), 825);
    EXPECT_EQ(invoice->notes.get(), "");
    EXPECT_FALSE(invoice->paidAt.get());
    EXPECT_TRUE(invoice->showsEntryDetails);
}

TEST_F(InvoiceBuilderTest, anInvoiceIsOnDisk) {
    addHour("2026-03-02T09:00Z");
    const auto id = create()->id();
    library_.reopen();
    const auto invoice = library_.context().record<Invoice>(id);
    ASSERT_TRUE(invoice);
    EXPECT_EQ(invoice->entries().size(), 1U);
    EXPECT_EQ(invoice->entries()[0]->billedRateCents.get(), 10000);
}

TEST_F(InvoiceBuilderTest, roundingAndCurrencyAreFrozen) {
    profile_.roundingMinutes = 15;
    client_->currencyCode = "EUR";
    addHour("2026-03-02T09:00Z");
    const auto invoice = create();
    profile_.roundingMinutes = 1;
    client_->currencyCode = "USD";
    EXPECT_EQ(invoice->roundingMinutes.get(), 15);
    EXPECT_EQ(invoice->effectiveCurrencyCode(), "EUR");
}

TEST_F(InvoiceBuilderTest, theRateOfTheMomentIsFrozenOverAnEarlierOne) {
    const auto app = library_.addProject("App", client_);
    app->rateOverrideCents = 0;
    const auto plain = addHour("2026-03-02T09:00Z");
    const auto overridden = addHour("2026-03-02T11:00Z", app);
    plain->billedRateCents = 1;
    client_->hourlyRateCents = 12000;
    create();
    client_->hourlyRateCents = 5;
    EXPECT_EQ(plain->billedRateCents.get(), 12000);
    EXPECT_EQ(plain->effectiveRateCents(), 12000);
    EXPECT_EQ(overridden->billedRateCents.get(), 0) << "an override of nothing stands";
}

TEST_F(InvoiceBuilderTest, theSnapshotHoldsTheProfileWithTheNumberingOfTheInvoice) {
    profile_.name = "Ada";
    profile_.nextInvoiceNumber = 7;
    library_.addInvoice("INV-2026-007", client_);
    addHour("2026-03-02T09:00Z");
    const auto snapshot = create()->resolvedBusiness({});
    EXPECT_EQ(snapshot.name, "Ada");
    EXPECT_EQ(snapshot.nextInvoiceNumber, 8);
    EXPECT_EQ(snapshot.numberingYear, 2026);
    EXPECT_EQ(profile_.nextInvoiceNumber, 9);
}

// --- the due date ------------------------------------------------------------------------------

TEST_F(InvoiceBuilderTest, aClientWithoutATermHasTheBusinessDefault) {
    profile_.defaultDueDays = 30;
    addHour("2026-03-02T09:00Z");
    EXPECT_EQ(create()->dueDate.get(), at("2026-05-02T10:00-04:00"));
}

TEST_F(InvoiceBuilderTest, aTermOfNoDaysIsDueOnTheDayOfIssue) {
    client_->dueDays = 0;
    addHour("2026-03-02T09:00Z");
    EXPECT_EQ(create()->dueDate.get(), now_);
}

TEST_F(InvoiceBuilderTest, theTermCountsCalendarDaysAcrossDaylightSaving) {
    now_ = at("2026-03-07T10:00-05:00");
    client_->dueDays = 1;
    addHour("2026-03-02T09:00Z");
    EXPECT_EQ(create()->dueDate.get(), at("2026-03-08T10:00-04:00"));
}

TEST_F(InvoiceBuilderTest, aTermThatNoCalendarReachesIsDueAtIssue) {
    for (const std::int64_t days :
         {std::int64_t{1} << 40, std::int64_t{2'000'000'000}, std::int64_t{100'000'000},
          std::int64_t{3'000'000}, std::int64_t{-1'000'000}}) {
        client_->dueDays = days;
        addHour("2026-03-02T09:00Z");
        EXPECT_EQ(create()->dueDate.get(), now_) << days;
    }
}

// --- failures ----------------------------------------------------------------------------------

TEST_F(InvoiceBuilderTest, nothingToBillChangesNothing) {
    const auto before = profile_;
    EXPECT_EQ(errorOf([&] { create(); }), BuildError::Code::noEntries);
    EXPECT_EQ(profile_, before);
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 0U);
}

TEST_F(InvoiceBuilderTest, aFailedSaveLeavesNoTraceButTheSkippedNumbers) {
    profile_.nextInvoiceNumber = 5;
    library_.addInvoice("INV-2026-005", client_);
    const auto entry = addHour("2026-03-02T09:00Z");
    library_.context().save();
    {
        const FileSizeLimit fullDisk(0);
        EXPECT_THROW(create(), StoreError);
    }
    EXPECT_FALSE(library_.context().hasChanges());
    EXPECT_FALSE(entry->invoice);
    EXPECT_FALSE(entry->billedRateCents.get());
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 1U);
    EXPECT_EQ(profile_.nextInvoiceNumber, 6);
    EXPECT_EQ(profile_.numberingYear, 2026);
    EXPECT_EQ(create()->number.get(), "INV-2026-006") << "it works again when there is room";
}

TEST_F(InvoiceBuilderTest, aFailedSaveKeepsWhatWaitedFromBefore) {
    addHour("2026-03-02T09:00Z");
    library_.context().save();
    const FileSizeLimit fullDisk(0);
    client_->name = "Acme Corporation";
    library_.context().saveQuietly();
    EXPECT_THROW(create(), StoreError);
    EXPECT_EQ(client_->name.get(), "Acme Corporation");
    EXPECT_TRUE(library_.context().hasChanges());
}

TEST_F(InvoiceBuilderTest, errorsSayWhatToTellThePerson) {
    using Code = BuildError::Code;
    EXPECT_STREQ(BuildError(Code::noEntries).what(),
                 "There are no unbilled, finished entries for this client and range.");
    EXPECT_STREQ(BuildError(Code::emptyNumber).what(), "The invoice number can't be empty.");
    EXPECT_STREQ(BuildError(Code::duplicateNumber).what(),
                 "Another invoice already uses that number.");
    EXPECT_STREQ(BuildError(Code::notDraft).what(), "Only draft invoices can be renumbered.");
}

// --- deleting ----------------------------------------------------------------------------------

TEST_F(InvoiceBuilderTest, deletingSetsTheEntriesFreeToBeBilledUnderTheNextNumber) {
    const auto entry = addHour("2026-03-02T09:00Z");
    const auto first = create();
    builder().deleteInvoice(first);
    EXPECT_TRUE(first->isDeleted());
    EXPECT_FALSE(entry->invoice);
    EXPECT_FALSE(entry->billedRateCents.get());
    client_->hourlyRateCents = 20000;
    EXPECT_EQ(create()->number.get(), "INV-2026-002");
    EXPECT_EQ(entry->billedRateCents.get(), 20000);
}

TEST_F(InvoiceBuilderTest, invoicesOfEveryStatusCanBeDeleted) {
    for (const auto status : {InvoiceStatus::draft, InvoiceStatus::sent, InvoiceStatus::paid}) {
        addHour("2026-03-02T09:00Z");
        const auto invoice = create();
        invoice->setStatus(status, now_);
        builder().deleteInvoice(invoice);
        EXPECT_EQ(library_.context().fetchCount<Invoice>(), 0U);
    }
    library_.reopen();
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 0U);
}

TEST_F(InvoiceBuilderTest, aDeletionThatCannotBeSavedIsReported) {
    addHour("2026-03-02T09:00Z");
    const auto invoice = create();
    const FileSizeLimit fullDisk(0);
    EXPECT_THROW(builder().deleteInvoice(invoice), StoreError);
}

}  // namespace
}  // namespace elmworth
