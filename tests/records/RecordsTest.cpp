// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/ISO8601.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "support/Instants.h"
#include "support/RawDatabase.h"
#include "support/Rows.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::moved;
using test::TestLibrary;

// --- dates
// -----------------------------------------------------------------------------------------

TEST(Dates, areOnlyThoseThatABackupCanHoldWhateverIsSet) {
    TestLibrary library;
    const auto entry = library.addEntry(nullptr, Instant::min(), Instant::max());
    const auto invoice = library.addInvoice("1", nullptr);
    invoice->dueDate = latestISO8601 + 1us;
    invoice->issueDate = latestISO8601;
    EXPECT_EQ(entry->start.get(), earliestISO8601);
    EXPECT_EQ(entry->end.get(), latestISO8601);
    EXPECT_EQ(invoice->dueDate.get(), latestISO8601);
    EXPECT_EQ(invoice->issueDate.get(), latestISO8601);
}

TEST(Dates, thatALibraryHoldsFromEarlierAreReadAsTheNearestOnes) {
    TestLibrary library;
    library.addEntry(nullptr, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
    library.context().save();
    library.close();
    EXPECT_EQ(
        test::RawDatabase(library.file()).run("UPDATE TimeEntry SET \"end\" = 300000000000000000"),
        SQLITE_OK);
    library.open();
    EXPECT_EQ(library.context().fetch<TimeEntry>().at(0)->end.get(), latestISO8601);
}

// --- what a new record holds ---------------------------------------------------------------------

TEST(NewRecords, aClientHasTheDefaults) {
    const auto before = currentInstant();
    const Client client("Acme");
    EXPECT_EQ(client.name.get(), "Acme");
    EXPECT_EQ(client.email.get(), "");
    EXPECT_EQ(client.address.get(), "");
    EXPECT_EQ(client.currencyCode.get(), "USD");
    EXPECT_EQ(client.hourlyRateCents.get(), 10000);
    EXPECT_GE(client.createdAt.get(), before);
    EXPECT_LE(client.createdAt.get(), currentInstant());
    EXPECT_FALSE(client.dueDays.get());
    EXPECT_FALSE(client.taxBasisPoints.get());
}

TEST(NewRecords, aProjectHasTheDefaults) {
    const auto client = std::make_shared<Client>("Acme");
    const Project project("Website", client);
    EXPECT_EQ(project.name.get(), "Website");
    EXPECT_EQ(project.client.get(), client);
    EXPECT_FALSE(project.rateOverrideCents.get());
    EXPECT_EQ(project.colorHex.get(), "#4F7CFF");
    EXPECT_FALSE(project.isArchived.get());
    EXPECT_FALSE(project.budgetHours.get());
}

TEST(NewRecords, anEntryRuns) {
    const TimeEntry entry(at("2026-03-02T09:00Z"), nullptr);
    EXPECT_TRUE(entry.isRunning());
    EXPECT_EQ(entry.notes.get(), "");
    EXPECT_FALSE(entry.project);
    EXPECT_FALSE(entry.invoice);
    EXPECT_FALSE(entry.billedRateCents.get());
}

TEST(NewRecords, anInvoiceIsADraft) {
    const Invoice invoice("1");
    EXPECT_EQ(invoice.statusRaw.get(), "draft");
    EXPECT_EQ(invoice.status(), InvoiceStatus::draft);
    EXPECT_EQ(invoice.taxRateBasisPoints.get(), 0);
    EXPECT_EQ(invoice.roundingMinutes.get(), 6);
    EXPECT_EQ(invoice.notes.get(), "");
    EXPECT_FALSE(invoice.paidAt.get());
    EXPECT_TRUE(invoice.showsEntryDetails.get());
    EXPECT_FALSE(invoice.businessSnapshot.get());
    EXPECT_EQ(invoice.currencyCode.get(), "");
}

// --- entries -------------------------------------------------------------------------------------

TEST(TimeEntry, durationOfAFinishedEntryDoesNotDependOnNow) {
    TimeEntry entry(at("2026-03-02T09:00Z"), nullptr);
    entry.end = entry.start.get() + 90min + 500ms;
    EXPECT_FALSE(entry.isRunning());
    EXPECT_DOUBLE_EQ(entry.duration(at("2027-01-01T00:00Z")), 5400.5);
}

TEST(TimeEntry, durationOfARunningEntryLastsUntilNow) {
    const TimeEntry entry(at("2026-03-02T09:00Z"), nullptr);
    EXPECT_DOUBLE_EQ(entry.duration(at("2026-03-02T10:00Z")), 3600);
}

TEST(TimeEntry, durationOfAReversedEntryIsNegative) {
    TimeEntry entry(at("2026-03-02T09:00Z"), nullptr);
    entry.end = entry.start.get() - 1min;
    EXPECT_DOUBLE_EQ(entry.duration(), -60);
}

struct Rates {
    const char* name;
    std::optional<std::int64_t> billed;
    bool hasProject;
    std::optional<std::int64_t> projectOverride;
    std::optional<std::int64_t> clientRate;  ///< absent: the project has no client
    std::int64_t expected;
};
class EffectiveRate : public testing::TestWithParam<Rates> {};

TEST_P(EffectiveRate, isTheNearestOne) {
    const auto& rates = GetParam();
    Ref<Client> client;
    if (rates.clientRate) {
        client = std::make_shared<Client>("Acme");
        client->hourlyRateCents = *rates.clientRate;
    }
    const auto project = std::make_shared<Project>("Website", client);
    project->rateOverrideCents = rates.projectOverride;
    TimeEntry entry(at("2026-03-02T09:00Z"), rates.hasProject ? project : nullptr);
    entry.billedRateCents = rates.billed;
    EXPECT_EQ(entry.effectiveRateCents(), rates.expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, EffectiveRate,
                         testing::Values(Rates{"theBilledOne", 1, true, 2, 3, 1},
                                         Rates{"theBilledOneOfZero", 0, true, 2, 3, 0},
                                         Rates{"theProjects", {}, true, 2, 3, 2},
                                         Rates{"theProjectsOfZero", {}, true, 0, 3, 0},
                                         Rates{"theClients", {}, true, {}, 3, 3},
                                         Rates{"noneWithoutClient", {}, true, {}, {}, 0},
                                         Rates{"noneWithoutProject", {}, false, 2, 3, 0},
                                         Rates{"theBilledOneWithoutProject", 1, false, {}, {}, 1}),
                         test::rowName);

TEST(TimeEntry, aBilledEntryKeepsItsRateWhenTheClientsChanges) {
    const auto client = std::make_shared<Client>("Acme");
    TimeEntry entry(at("2026-03-02T09:00Z"), std::make_shared<Project>("Website", client));
    entry.billedRateCents = entry.effectiveRateCents();
    client->hourlyRateCents = 20000;
    EXPECT_EQ(entry.effectiveRateCents(), 10000);
}

// --- the budget ----------------------------------------------------------------------------------

class Budget : public testing::Test {
 protected:
    Budget() { project = library.addProject("Website", nullptr); }
    void addHours(double hours) {
        const auto start = at("2026-03-01T09:00Z");
        library.addEntry(project, start, moved(start, hours * 3600));
    }
    /// How often the table of the entries was read since the last call.
    [[nodiscard]] static long readingsOfEntries() {
        const auto statements = test::StatementTrace::take();
        return std::count_if(statements.begin(), statements.end(), [](const auto& sql) {
            return sql.starts_with("SELECT") && sql.find("FROM \"TimeEntry\"") != std::string::npos;
        });
    }
    [[nodiscard]] std::optional<double> fraction() const { return project->budgetFraction(now); }

    TestLibrary library;
    Ref<Project> project;
    const Instant now = at("2026-03-02T12:00Z");
};

TEST_F(Budget, isAbsentWithoutHours) {
    addHours(1);
    EXPECT_FALSE(fraction());
    for (const std::int64_t hours : {0, -1}) {
        project->budgetHours = hours;
        EXPECT_FALSE(fraction()) << hours;
    }
}

TEST_F(Budget, ofAnEmptyProjectIsUnused) {
    project->budgetHours = 1;
    EXPECT_EQ(fraction(), 0.0);
}

TEST_F(Budget, isNotCapped) {
    project->budgetHours = 4;
    addHours(5);
    EXPECT_DOUBLE_EQ(fraction().value(), 1.25);
}

TEST_F(Budget, countsBilledTimeToo) {
    project->budgetHours = 4;
    addHours(1);
    addHours(2);
    project->entries().at(0)->invoice = library.addInvoice("1", nullptr);
    EXPECT_DOUBLE_EQ(fraction().value(), 0.75);
    library.context().save();
    EXPECT_DOUBLE_EQ(fraction().value(), 0.75);
}

TEST_F(Budget, countsARunningEntryUpToTheGivenInstant) {
    project->budgetHours = 4;
    library.addEntry(project, now - 2h, std::nullopt);
    EXPECT_DOUBLE_EQ(fraction().value(), 0.5);
    EXPECT_DOUBLE_EQ(project->budgetFraction(now + 1h).value(), 0.75);
}

TEST_F(Budget, isSummedByTheLibraryOnceAndMakesNoRecords) {
    const test::StatementTrace trace;
    library.reopen();
    project = library.addProject("Website", nullptr);
    project->budgetHours = 4;
    const auto entry = library.addEntry(project, now - 2h, std::nullopt);
    library.context().save();
    (void)test::StatementTrace::take();
    EXPECT_DOUBLE_EQ(fraction().value(), 0.5);
    EXPECT_EQ(readingsOfEntries(), 2) << "the sum, and what runs";
    entry->notes = "Draft";
    entry->end = now - 1h;
    library.context().save();
    EXPECT_DOUBLE_EQ(fraction().value(), 0.25);
    EXPECT_EQ(readingsOfEntries(), 1) << "what runs";
}

// --- invoices ------------------------------------------------------------------------------------

class InvoiceRecord : public testing::Test {
 protected:
    Invoice invoice{"1"};
    const Instant monday = at("2026-03-02T12:00Z");
    const Calendar calendar{Locale("en_US"), "UTC"};
};

TEST_F(InvoiceRecord, statusesHaveRawValuesInOrder) {
    std::string all;
    for (const auto status : allInvoiceStatuses) all += std::string(rawValue(status)) + ' ';
    EXPECT_EQ(all, "draft sent paid ");
}

TEST_F(InvoiceRecord, anUnknownStatusReadsAsDraftAndIsNotOverdue) {
    for (const char* raw : {"", "Sent", "overdue", "paid "}) {
        invoice.statusRaw = raw;
        invoice.dueDate = monday - 48h;
        EXPECT_EQ(invoice.status(), InvoiceStatus::draft) << raw;
        EXPECT_FALSE(invoice.isOverdue(monday, calendar)) << raw;
    }
}

TEST_F(InvoiceRecord, payingTwiceKeepsTheFirstPayment) {
    invoice.setStatus(InvoiceStatus::paid, monday);
    invoice.setStatus(InvoiceStatus::paid, monday + 24h);
    EXPECT_EQ(invoice.statusRaw.get(), "paid");
    EXPECT_EQ(invoice.paidAt.get(), monday);
}

TEST_F(InvoiceRecord, reopeningForgetsThePayment) {
    for (const auto status : {InvoiceStatus::draft, InvoiceStatus::sent}) {
        invoice.setStatus(InvoiceStatus::paid, monday);
        invoice.setStatus(status, monday + 1h);
        EXPECT_EQ(invoice.status(), status);
        EXPECT_FALSE(invoice.paidAt.get());
        invoice.setStatus(InvoiceStatus::paid, monday + 24h);
        EXPECT_EQ(invoice.paidAt.get(), monday + 24h);
        invoice.setStatus(InvoiceStatus::draft);
    }
}

TEST_F(InvoiceRecord, aRestoredPaymentDateStays) {
    invoice.paidAt = monday - 24h;
    invoice.setStatus(InvoiceStatus::paid, monday);
    EXPECT_EQ(invoice.paidAt.get(), monday - 24h);
}

TEST_F(InvoiceRecord, itsOwnCurrencyWins) {
    const auto client = std::make_shared<Client>("Acme");
    client->currencyCode = "EUR";
    invoice.client = client;
    EXPECT_EQ(invoice.effectiveCurrencyCode(), "EUR");
    invoice.currencyCode = "GBP";
    EXPECT_EQ(invoice.effectiveCurrencyCode(), "GBP");
    invoice.currencyCode = "";
    invoice.client = nullptr;
    EXPECT_EQ(invoice.effectiveCurrencyCode(), "USD");
}

struct Due {
    const char* name;
    InvoiceStatus status;
    const char* due;
    const char* asOf;
    bool isOverdue;
};
class Overdue : public testing::TestWithParam<Due> {};

TEST_P(Overdue, isAMatterOfDays) {
    Invoice invoice("1");
    invoice.setStatus(GetParam().status);
    invoice.dueDate = at(GetParam().due);
    const Calendar calendar(Locale("de_DE"), "Europe/Berlin");
    EXPECT_EQ(invoice.isOverdue(at(GetParam().asOf), calendar), GetParam().isOverdue);
}

constexpr auto sent = InvoiceStatus::sent;
INSTANTIATE_TEST_SUITE_P(
    Rows, Overdue,
    testing::Values(
        Due{"earlierOnTheDayItIsDue", sent, "2026-03-02T18:00+01:00", "2026-03-02T09:00+01:00",
            false},
        Due{"laterOnTheDayItIsDue", sent, "2026-03-02T00:00+01:00", "2026-03-02T23:59+01:00",
            false},
        Due{"theDayAfter", sent, "2026-03-02T23:59+01:00", "2026-03-03T00:00+01:00", true},
        Due{"theDayBefore", sent, "2026-03-03T00:00+01:00", "2026-03-02T23:59+01:00", false},
        Due{"aDayOfTheCalendarAndNotOfUTC", sent, "2026-03-02T22:30Z", "2026-03-02T23:30Z", true},
        Due{"aDraft", InvoiceStatus::draft, "2026-03-02T12:00Z", "2026-04-02T12:00Z", false},
        Due{"aPaidOne", InvoiceStatus::paid, "2026-03-02T12:00Z", "2026-04-02T12:00Z", false}),
    test::rowName);

}  // namespace
}  // namespace elmworth
