// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceService.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "invoicing/InvoiceFiles.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "support/BilledMarch.h"
#include "support/FileSizeLimit.h"
#include "support/LibraryText.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class InvoiceServiceTest : public testing::Test {
 protected:
    [[nodiscard]] UnitOfWork& context() { return march_.library.context(); }

    std::filesystem::path storeFile(const std::string& number) {
        const auto file = storedInvoiceFile(number);
        writeAtomically(file, "%PDF");
        return file;
    }
    bool hasStored(const std::string& number) {
        return std::filesystem::exists(storedInvoiceFile(number));
    }

    test::BilledMarch march_;
    Ref<Invoice> invoice_ = march_.invoice;
    test::ScopedEnvironment data_{"XDG_DATA_HOME", march_.library.folder.path().string()};
    const Instant issue_ = march_.invoice->issueDate;
    const Instant due_ = march_.invoice->dueDate;
    UndoHistory history_{context()};
    Settings settings_{march_.library.folder.path() / "Elmworth.ini"};
    ProfileStore profiles_{settings_};
    InvoiceService invoices_{context(), history_, profiles_, march_.builder.now,
                             march_.builder.calendar};
};

TEST_F(InvoiceServiceTest, onlyDraftsHaveDatesThatCanBeChanged) {
    EXPECT_TRUE(canChangeDates(*invoice_));
    invoice_->setStatus(InvoiceStatus::sent);
    EXPECT_FALSE(canChangeDates(*invoice_));
    invoice_->setStatus(InvoiceStatus::paid);
    EXPECT_FALSE(canChangeDates(*invoice_));
    invoice_->statusRaw = "unheard of";
    EXPECT_TRUE(canChangeDates(*invoice_));
}

TEST_F(InvoiceServiceTest, theIssueDateTakesTheDueDateAlong) {
    invoices_.setIssueDay(invoice_, issue_ + 72h);
    EXPECT_EQ(invoice_->dueDate.get(), due_ + 72h);
    invoices_.setIssueDay(invoice_, issue_ - 48h);
    EXPECT_EQ(invoice_->dueDate.get(), due_ - 48h);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(InvoiceServiceTest, theDueDateStopsAtTheIssueDate) {
    invoices_.setDueDay(invoice_, issue_ + 24h);
    EXPECT_EQ(invoice_->dueDate.get(), issue_ + 24h);
    invoices_.setDueDay(invoice_, issue_ - 24h);
    EXPECT_EQ(invoice_->dueDate.get(), issue_);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(InvoiceServiceTest, aDueDateThatLayBeforeTheIssueDateIsMendedByMovingIt) {
    invoice_->dueDate = issue_ - 240h;
    invoices_.setIssueDay(invoice_, issue_ + 24h);
    EXPECT_EQ(invoice_->dueDate.get(), issue_ + 24h);
}

TEST_F(InvoiceServiceTest, notesAreCutToSixHundredCharacters) {
    invoices_.setNotes(invoice_, std::string(700, 'a'));
    EXPECT_EQ(invoice_->notes->size(), 600U);
    invoices_.setNotes(invoice_, std::string(600, 'b'));
    EXPECT_EQ(invoice_->notes.get(), std::string(600, 'b'));
}

TEST_F(InvoiceServiceTest, notesAreCountedAsPeopleCount) {
    std::string notes;
    for (int i = 0; i < 601; ++i) notes += "👩‍👩‍👧";
    invoices_.setNotes(invoice_, notes);
    EXPECT_EQ(characterCount(invoice_->notes.get()), longestInvoiceNotes);
}

TEST_F(InvoiceServiceTest, tellsTheNextNumberOfTheYearAndTakesNone) {
    BusinessProfile profile;
    profile.nextInvoiceNumber = 42;
    profile.resetNumberingYearly = true;
    const auto numberIn = [&](std::int64_t numberingYear) {
        profile.numberingYear = numberingYear;
        profiles_.setProfile(profile);
        const auto number = invoices_.nextNumber();
        EXPECT_EQ(profiles_.profile(), profile);
        return number;
    };
    EXPECT_EQ(numberIn(0), "INV-2026-042");
    EXPECT_EQ(numberIn(2026), "INV-2026-042");
    EXPECT_EQ(numberIn(2025), "INV-2026-001");
}

TEST_F(InvoiceServiceTest, previewsWhatItThenCreates) {
    invoices_.remove(invoice_);
    const DateInterval march{invoice_->periodStart, invoice_->periodEnd};
    const auto client = march_.library.context().fetch<Client>().front();
    const auto entries = invoices_.unbilledEntries(client, march);
    const auto preview = invoices_.preview(entries, 8'25);
    EXPECT_EQ(invoices_.preview(client, march, 8'25), preview);
    const auto created = invoices_.create(client, march, 8'25);
    EXPECT_EQ(created->entries().size(), entries.size());
    EXPECT_EQ(InvoiceCalculator::totals(*created), preview);
}

struct Edit {
    const char* name;
    void (*make)(InvoiceService&, const Ref<Invoice>&, Instant day);
};

constexpr Edit edits[] = {
    {"IssueDay",
     [](auto& service, auto& invoice, Instant day) { service.setIssueDay(invoice, day); }},
    {"DueDay", [](auto& service, auto& invoice, Instant day) { service.setDueDay(invoice, day); }},
    {"Notes", [](auto& service, auto& invoice, Instant) { service.setNotes(invoice, "x"); }},
    {"Details",
     [](auto& service, auto& invoice, Instant) { service.setShowsEntryDetails(invoice, false); }},
    {"Status", [](auto& service, auto& invoice,
                  Instant) { service.setStatus(invoice, InvoiceStatus::paid); }},
    {"Number", [](auto& service, auto& invoice, Instant) { service.rename(invoice, "X"); }},
    {"Deletion", [](auto& service, auto& invoice, Instant) { service.remove(invoice); }},
};

class InvoiceEdit : public InvoiceServiceTest, public testing::WithParamInterface<Edit> {};

TEST_P(InvoiceEdit, isSavedWholeOrNotDone) {
    context().save();
    const auto before = test::libraryText(context());
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_THROW(GetParam().make(invoices_, invoice_, issue_ + 24h), StoreError);
    }
    EXPECT_EQ(test::libraryText(context()), before);
    EXPECT_FALSE(context().hasChanges());
    GetParam().make(invoices_, invoice_, issue_ + 24h);
    EXPECT_NE(test::libraryText(context()), before);
    EXPECT_FALSE(context().hasChanges());
}

INSTANTIATE_TEST_SUITE_P(, InvoiceEdit, testing::ValuesIn(edits), test::rowName);

TEST_F(InvoiceServiceTest, datesAreLockedOnceItIsSent) {
    for (const auto status : {InvoiceStatus::sent, InvoiceStatus::paid}) {
        invoices_.setStatus(invoice_, status);
        EXPECT_THROW(invoices_.setIssueDay(invoice_, issue_ + 24h), Refused);
        EXPECT_THROW(invoices_.setDueDay(invoice_, issue_ + 24h), Refused);
    }
    EXPECT_EQ(invoice_->issueDate.get(), issue_);
    EXPECT_EQ(invoice_->dueDate.get(), due_);
}

TEST_F(InvoiceServiceTest, anotherDayKeepsTheTimeOfDay) {
    invoices_.setIssueDay(invoice_, at("2026-11-20T00:00-05:00"));
    EXPECT_EQ(invoice_->issueDate.get(), at("2026-11-20T10:00-05:00"));
    invoices_.setDueDay(invoice_, at("2026-12-24T23:59-05:00"));
    EXPECT_EQ(invoice_->dueDate.get(), at("2026-12-24T10:00-05:00"));
}

// --- making one --------------------------------------------------------------------------------

TEST_F(InvoiceServiceTest, theTaxIsTheClientsElseTheBusinessDefault) {
    BusinessProfile profile;
    profile.defaultTaxBasisPoints = 100;
    profiles_.setProfile(profile);
    EXPECT_EQ(invoices_.taxRate(*march_.client), 100);
    march_.client->taxBasisPoints = 0;
    EXPECT_EQ(invoices_.taxRate(*march_.client), 0);
}

TEST_F(InvoiceServiceTest, aPreviewComesToWhatTheInvoiceWillAndChangesNothing) {
    invoices_.remove(invoice_);
    const DateInterval march{at("2026-03-01T00:00-05:00"), at("2026-04-01T00:00-04:00")};
    const auto preview = invoices_.preview(march_.client, march, 825);
    EXPECT_EQ(context().fetchCount<Invoice>(), 0U);
    EXPECT_EQ(profiles_.profile(), BusinessProfile());
    const auto invoice = invoices_.create(march_.client, march, 825);
    EXPECT_EQ(InvoiceCalculator::totals(*invoice).totalCents, preview.totalCents);
    EXPECT_TRUE(invoices_.preview(march_.client, march, 825).lines.empty());
}

TEST_F(InvoiceServiceTest, theNumberingIsKeptInTheSettings) {
    invoices_.remove(invoice_);
    const DateInterval march{at("2026-03-01T00:00-05:00"), at("2026-04-01T00:00-04:00")};
    march_.library.addInvoice("INV-2026-001", march_.client);
    context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_THROW(invoices_.create(march_.client, march, 0), StoreError);
    }
    EXPECT_EQ(profiles_.profile().nextInvoiceNumber, 2) << "what was skipped stays skipped";
    EXPECT_EQ(context().fetchCount<Invoice>(), 1U);
    EXPECT_EQ(invoices_.create(march_.client, march, 0)->number.get(), "INV-2026-002");
    EXPECT_EQ(ProfileStore(settings_).profile().nextInvoiceNumber, 3);
}

TEST_F(InvoiceServiceTest, anInvoiceThatIsUndoneFreesItsEntriesButNotItsNumber) {
    const auto entries = invoice_->entries();
    invoices_.remove(invoice_);
    const DateInterval march{at("2026-03-01T00:00-05:00"), at("2026-04-01T00:00-04:00")};
    EXPECT_EQ(invoices_.create(march_.client, march, 0)->number.get(), "INV-2026-001");
    EXPECT_EQ(history_.undoText(), "Undo Create Invoice");
    history_.undo();
    for (const auto& entry : entries) EXPECT_FALSE(entry->invoice || entry->billedRateCents.get());
    EXPECT_EQ(invoices_.create(march_.client, march, 0)->number.get(), "INV-2026-002");
}

// --- files -------------------------------------------------------------------------------------

TEST_F(InvoiceServiceTest, renumberingDeletesTheFileOfTheOldNumber) {
    storeFile("INV-2026-001");
    invoices_.rename(invoice_, " B/1 ");
    EXPECT_EQ(invoice_->number.get(), "B/1");
    EXPECT_FALSE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceServiceTest, theSameNumberAgainKeepsTheFile) {
    storeFile("INV-2026-001");
    invoices_.rename(invoice_, " INV-2026-001 ");
    EXPECT_TRUE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceServiceTest, aRefusedNumberKeepsTheFile) {
    storeFile("INV-2026-001");
    EXPECT_THROW(invoices_.rename(invoice_, " "), BuildError);
    EXPECT_TRUE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceServiceTest, deletingTakesTheFileAlongAndFreesTheEntries) {
    storeFile("INV-2026-001");
    const auto entries = invoice_->entries();
    invoices_.remove(invoice_);
    EXPECT_FALSE(hasStored("INV-2026-001"));
    EXPECT_TRUE(invoice_->isDeleted());
    for (const auto& entry : entries) EXPECT_FALSE(entry->invoice);
}

TEST_F(InvoiceServiceTest, aFileThatCannotBeDeletedStopsNothing) {
    std::filesystem::create_directories(storedInvoiceFile("INV-2026-001") / "in the way");
    invoices_.remove(invoice_);
    EXPECT_EQ(context().fetchCount<Invoice>(), 0U);
}

TEST_F(InvoiceServiceTest, aDeletionThatCannotBeSavedKeepsTheFile) {
    storeFile("INV-2026-001");
    const test::FileSizeLimit fullDisk(0);
    EXPECT_THROW(invoices_.remove(invoice_), StoreError);
    EXPECT_TRUE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceServiceTest, notesThatAreTypedAreOneStepUntilTheyAreLeft) {
    invoice_->notes = "";
    context().save();
    for (const char* text : {"P", "PO", "PO 7"}) invoices_.typeNotes(invoice_, text);
    EXPECT_EQ(invoice_->notes.get(), "PO 7");
    invoices_.leaveNotes();
    EXPECT_FALSE(context().hasChanges());
    invoices_.typeNotes(invoice_, "PO 78");
    history_.undo();
    EXPECT_EQ(invoice_->notes.get(), "PO 7");
    history_.undo();
    EXPECT_EQ(invoice_->notes.get(), "");
}

TEST_F(InvoiceServiceTest, notesThatAreTypedAreCut) {
    std::string family;
    for (int i = 0; i < 700; ++i) family += "👨‍👩‍👧";
    invoices_.typeNotes(invoice_, family);
    EXPECT_EQ(characterCount(invoice_->notes.get()), longestInvoiceNotes);
}

}  // namespace
}  // namespace elmworth
