// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceEditing.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "invoicing/InvoiceFiles.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "support/BilledMarch.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class InvoiceEditing : public testing::Test {
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
};

TEST_F(InvoiceEditing, OnlyDraftsHaveDatesThatCanBeChanged) {
    EXPECT_TRUE(canChangeDates(*invoice_));
    invoice_->setStatus(InvoiceStatus::sent);
    EXPECT_FALSE(canChangeDates(*invoice_));
    invoice_->setStatus(InvoiceStatus::paid);
    EXPECT_FALSE(canChangeDates(*invoice_));
    invoice_->statusRaw = "unheard of";
    EXPECT_TRUE(canChangeDates(*invoice_));
}

TEST_F(InvoiceEditing, TheIssueDateTakesTheDueDateAlong) {
    setIssueDate(invoice_, issue_ + 72h, context());
    EXPECT_EQ(invoice_->dueDate.get(), due_ + 72h);
    setIssueDate(invoice_, issue_ - 48h, context());
    EXPECT_EQ(invoice_->dueDate.get(), due_ - 48h);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(InvoiceEditing, TheDueDateStopsAtTheIssueDate) {
    setDueDate(invoice_, issue_ + 24h, context());
    EXPECT_EQ(invoice_->dueDate.get(), issue_ + 24h);
    setDueDate(invoice_, issue_ - 24h, context());
    EXPECT_EQ(invoice_->dueDate.get(), issue_);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(InvoiceEditing, ADueDateThatLayBeforeTheIssueDateIsMendedByMovingIt) {
    invoice_->dueDate = issue_ - 240h;
    setIssueDate(invoice_, issue_ + 24h, context());
    EXPECT_EQ(invoice_->dueDate.get(), issue_ + 24h);
}

TEST_F(InvoiceEditing, NotesAreCutToSixHundredCharacters) {
    setInvoiceNotes(invoice_, std::string(700, 'a'), context());
    EXPECT_EQ(invoice_->notes->size(), 600U);
    setInvoiceNotes(invoice_, std::string(600, 'b'), context());
    EXPECT_EQ(invoice_->notes.get(), std::string(600, 'b'));
}

TEST_F(InvoiceEditing, NotesAreCountedAsPeopleCount) {
    std::string notes;
    for (int i = 0; i < 601; ++i) notes += "👩‍👩‍👧";
    setInvoiceNotes(invoice_, notes, context());
    EXPECT_EQ(characterCount(invoice_->notes.get()), longestInvoiceNotes);
}

TEST_F(InvoiceEditing, AnEditThatCannotBeSavedStaysPending) {
    const test::FileSizeLimit fullDisk(0);
    setInvoiceNotes(invoice_, "Later", context());
    EXPECT_EQ(invoice_->notes.get(), "Later");
    EXPECT_TRUE(context().hasChanges());
}

TEST_F(InvoiceEditing, RenumberingDeletesTheFileOfTheOldNumber) {
    storeFile("INV-2026-001");
    renumberWithFile(march_.builder, invoice_, " B/1 ");
    EXPECT_EQ(invoice_->number.get(), "B/1");
    EXPECT_FALSE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceEditing, TheSameNumberAgainKeepsTheFile) {
    storeFile("INV-2026-001");
    renumberWithFile(march_.builder, invoice_, " INV-2026-001 ");
    EXPECT_TRUE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceEditing, ARefusedNumberKeepsTheFile) {
    storeFile("INV-2026-001");
    EXPECT_THROW(renumberWithFile(march_.builder, invoice_, " "), BuildError);
    EXPECT_TRUE(hasStored("INV-2026-001"));
}

TEST_F(InvoiceEditing, DeletingTakesTheFileAlongAndFreesTheEntries) {
    storeFile("INV-2026-001");
    const auto entries = invoice_->entries();
    deleteWithFile(march_.builder, invoice_);
    EXPECT_FALSE(hasStored("INV-2026-001"));
    EXPECT_TRUE(invoice_->isDeleted());
    for (const auto& entry : entries) EXPECT_FALSE(entry->invoice);
}

TEST_F(InvoiceEditing, AFileThatCannotBeDeletedStopsNothing) {
    std::filesystem::create_directories(storedInvoiceFile("INV-2026-001") / "in the way");
    deleteWithFile(march_.builder, invoice_);
    EXPECT_EQ(context().fetchCount<Invoice>(), 0U);
}

TEST_F(InvoiceEditing, ADeletionThatCannotBeSavedKeepsTheFile) {
    storeFile("INV-2026-001");
    const test::FileSizeLimit fullDisk(0);
    EXPECT_THROW(deleteWithFile(march_.builder, invoice_), StoreError);
    EXPECT_TRUE(hasStored("INV-2026-001"));
}

}  // namespace
}  // namespace elmworth
