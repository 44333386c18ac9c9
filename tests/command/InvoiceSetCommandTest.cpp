// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What can be done to an invoice: invoice set, mark, rename and delete.

#include "command/CommandTest.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::Arguments;
using test::at;

class InvoiceSetCommand : public test::CommandTest {
 protected:
    InvoiceSetCommand() {
        addEntry(website_, "2026-03-02T09:00+01:00", 60);
        invoice_ = invoice(billMarch());
    }
    [[nodiscard]] static Arguments set(const char* field, const std::string& value) {
        return {"invoice", "set", "INV-2026-001", field, value};
    }

    Ref<Invoice> invoice_;
};

TEST_F(InvoiceSetCommand, theIssueDateMovesTheDueDateAndKeepsTheTimeOfDay) {
    EXPECT_EQ(output(set("issueDate", "2026-04-03")), "");
    EXPECT_EQ(invoice_->issueDate.get(), at("2026-04-03T12:00+02:00"));
    EXPECT_EQ(invoice_->dueDate.get(), at("2026-04-17T12:00+02:00"));
    EXPECT_FALSE(library_.context().hasChanges());
}

TEST_F(InvoiceSetCommand, theDueDateIsShownAsItWasSet) {
    const auto shown = json(set("dueDate", "2026-05-01"));
    EXPECT_STREQ(shown["dueDate"].GetString(), "2026-05-01T10:00:00Z");
}

TEST_F(InvoiceSetCommand, notesAndDetailsChangeInEveryStatus) {
    for (const char* status : {"draft", "sent", "paid"}) {
        output({"invoice", "mark", "INV-2026-001", status});
        output(set("notes", status));
        EXPECT_EQ(invoice_->notes.get(), status);
        output(set("showsEntryDetails", "no"));
        EXPECT_FALSE(invoice_->showsEntryDetails);
        output(set("showsEntryDetails", "true"));
        EXPECT_TRUE(invoice_->showsEntryDetails);
    }
}

TEST_F(InvoiceSetCommand, notesCanBeEmptied) {
    output(set("notes", "x"));
    output(set("notes", ""));
    EXPECT_EQ(invoice_->notes.get(), "");
}

TEST_F(InvoiceSetCommand, wrongUsageChangesNothing) {
    expectUsageError(set("number", "X"), "The fields are notes, showsEntryDetails, issueDate");
    expectUsageError(set("issueDate", "tomorrow"), "“tomorrow” is no day.");
    expectRefusal(set("showsEntryDetails", "perhaps"), 1,
                  "“perhaps” does not fit: showsEntryDetails is true or false.");
}

TEST_F(InvoiceSetCommand, aChangeThatCannotBeSavedIsTakenBack) {
    const test::FileSizeLimit fullDisk(0);
    EXPECT_EQ(run(set("notes", "x")).exitStatus, 1);
    EXPECT_EQ(invoice_->notes.get(), "");
}

// --- mark --------------------------------------------------------------------------------------

TEST_F(InvoiceSetCommand, everyChangeOfStatusIsAllowed) {
    const auto paid = json({"invoice", "mark", "INV-2026-001", "Paid"});
    EXPECT_STREQ(paid["paidAt"].GetString(), "2026-03-31T10:00:00Z");
    for (const char* status : {"sent", "paid", "draft"})
        EXPECT_EQ(output({"invoice", "mark", "INV-2026-001", status}), "");
    EXPECT_EQ(invoice_->status(), InvoiceStatus::draft);
}

// --- rename and delete -------------------------------------------------------------------------

TEST_F(InvoiceSetCommand, renameFollowsTheRulesOfNumbers) {
    library_.addInvoice("TAKEN", globex_);
    library_.context().save();
    expectRefusal({"invoice", "rename", "INV-2026-001", "TAKEN"}, 1,
                  "Another invoice already uses that number.");
    EXPECT_EQ(output({"invoice", "rename", "INV-2026-001", " 2026/7 "}), "");
    EXPECT_EQ(invoice_->number.get(), "2026/7");
}

TEST_F(InvoiceSetCommand, deleteFreesTheEntries) {
    EXPECT_EQ(output({"invoice", "delete", "INV-2026-001"}),
              "Deleted INV-2026-001. Its 1 time entry is unbilled again.\n");
    EXPECT_TRUE(invoice_->isDeleted());
    EXPECT_EQ(billMarch(), "INV-2026-002");
    EXPECT_TRUE(json({"invoice", "delete", "INV-2026-002"})["deleted"].GetBool());
}

}  // namespace
}  // namespace elmworth
