// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceDetailModel.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "platform/Text.h"
#include "screens/invoices/InvoicesTest.h"

namespace elmworth {
namespace {

using test::at;
using test::utf8;
using testing::ElementsAre;

class InvoiceDetail : public test::InvoicesTest {
 protected:
    [[nodiscard]] static std::string day(Instant instant) {
        return test::iso(instant).substr(0, 10);
    }
    [[nodiscard]] std::string issued() const { return day(invoice->issueDate); }
    [[nodiscard]] std::string due() const { return day(invoice->dueDate); }
    void type(DateTimeInput& input, const char* text) {
        input.day()->edit(QString::fromUtf8(text));
        turn();
    }

    Ref<Invoice> invoice = add("INV-1", "2026-02-20");
};

// --- what it shows -------------------------------------------------------------------------------

TEST_F(InvoiceDetail, showsTheFigures) {
    model.selection()->click(0);
    EXPECT_EQ(utf8(facts().number), "INV-1");
    EXPECT_EQ(utf8(facts().subtitle), "Acme Co · Jan 1, 2026 – Jan 31, 2026");
    EXPECT_EQ(utf8(facts().total), "$100.00");
    EXPECT_EQ(utf8(facts().totalCaption), "No tax");
    EXPECT_EQ(utf8(facts().hours), "1.00");
    EXPECT_EQ(utf8(facts().hoursCaption), "1 entries · 6-min rounding");
    EXPECT_EQ(utf8(facts().dueDate), "Mar 6");
    EXPECT_EQ(utf8(facts().dueCaption), "In 4 days");
    EXPECT_EQ(detail().preview()->rows().size(), 1U);
}

TEST_F(InvoiceDetail, followsItsRecords) {
    model.selection()->click(0);
    bill(invoice, 2);
    EXPECT_EQ(utf8(facts().total), "$300.00");
    invoice->taxRateBasisPoints = 825;
    save();
    EXPECT_EQ(utf8(facts().total), "$324.75");
    EXPECT_EQ(utf8(facts().totalCaption), "incl. 8.25% tax");
    acme()->name = "Acme Ltd";
    save();
    EXPECT_EQ(utf8(facts().subtitle), "Acme Ltd · Jan 1, 2026 – Jan 31, 2026");
}

TEST_F(InvoiceDetail, ofAnInvoiceWithoutAClientHasThePeriodAlone) {
    invoice->client = nullptr;
    save();
    model.selection()->click(0);
    EXPECT_EQ(utf8(facts().subtitle), "Jan 1, 2026 – Jan 31, 2026");
    EXPECT_EQ(utf8(facts().total), "$100.00");
}

TEST_F(InvoiceDetail, aSnapshotThatIsNoJSONGivesWayToTheProfile) {
    invoice->businessSnapshot = Blob{"{no JSON"};
    save();
    model.selection()->click(0);
    EXPECT_EQ(utf8(facts().problem), "");
    EXPECT_EQ(detail().preview()->rows().size(), 1U);
}

TEST_F(InvoiceDetail, figuresThatCannotBeToldAreExplained) {
    invoice->taxRateBasisPoints = std::numeric_limits<std::int64_t>::max();
    save();
    model.selection()->click(0);
    EXPECT_EQ(utf8(facts().problem), "The figures of INV-1 are too large.");
    EXPECT_EQ(utf8(facts().total), "—");
    EXPECT_TRUE(detail().preview()->rows().empty());
    EXPECT_THAT(shown(InvoiceRowsModel::amount), ElementsAre("—"));
    delivery().requestExport(delivery().exportFile());
    EXPECT_EQ(problem(), "The figures of INV-1 are too large.");
    EXPECT_TRUE(files.opened.empty());
}

// --- the status ----------------------------------------------------------------------------------

TEST_F(InvoiceDetail, theNextStepGoesFromDraftToSentToPaid) {
    model.selection()->click(0);
    EXPECT_EQ(utf8(facts().nextStep), "Mark Sent");
    detail().takeNextStep();
    EXPECT_EQ(invoice->status(), InvoiceStatus::sent);
    EXPECT_EQ(utf8(facts().nextStep), "Mark Paid");
    EXPECT_EQ(utf8(facts().dueCaption), "In 4 days");
    detail().takeNextStep();
    EXPECT_EQ(utf8(facts().nextStep), "");
    EXPECT_EQ(utf8(facts().dueCaption), "Paid Mar 2");
    detail().takeNextStep();
    EXPECT_EQ(invoice->status(), InvoiceStatus::paid);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(InvoiceDetail, aStatusSetByMistakeIsUndone) {
    model.selection()->click(0);
    detail().takeNextStep();
    timer.history->undo();
    turn();
    EXPECT_EQ(facts().status, 0);
    EXPECT_TRUE(facts().isDraft);
}

// --- the dates -----------------------------------------------------------------------------------

TEST_F(InvoiceDetail, theIssueDateTakesTheDueDateAlong) {
    model.selection()->click(0);
    type(*detail().dates()->issued(), "2/23/2026");
    EXPECT_EQ(issued(), "2026-02-20");  // nobody knows yet whether that is all
    detail().dates()->commit();
    EXPECT_EQ(issued(), "2026-02-23");
    EXPECT_EQ(due(), "2026-03-09");
    EXPECT_EQ(utf8(detail().dates()->due()->day()->text()), "3/9/2026");
}

TEST_F(InvoiceDetail, aDateThatIsSteppedCountsAtOnce) {
    model.selection()->click(0);
    detail().dates()->due()->day()->step(-1, 1);
    turn();
    EXPECT_EQ(due(), "2026-03-07");
}

TEST_F(InvoiceDetail, whatIsNoDateChangesNothing) {
    model.selection()->click(0);
    type(*detail().dates()->due(), "someday");
    detail().dates()->commit();
    EXPECT_EQ(due(), "2026-03-06");
    EXPECT_NE(utf8(detail().dates()->due()->day()->problem()), "");
}

TEST_F(InvoiceDetail, datesAreLockedOnceItIsSent) {
    model.selection()->click(0);
    EXPECT_TRUE(detail().dates()->canChange());
    detail().takeNextStep();
    EXPECT_FALSE(detail().dates()->canChange());
    detail().takeNextStep();
    EXPECT_FALSE(detail().dates()->canChange());
    detail().setStatus(0);
    EXPECT_TRUE(detail().dates()->canChange());
}

TEST_F(InvoiceDetail, anotherInvoiceShowsItsOwnDates) {
    add("INV-2", "2026-01-05");
    model.selection()->click(0);
    type(*detail().dates()->issued(), "2/23/2026");
    model.selection()->click(1);
    EXPECT_EQ(utf8(detail().dates()->issued()->day()->text()), "1/5/2026");
    detail().dates()->commit();
    EXPECT_EQ(issued(), "2026-02-20");
}

// --- the number ----------------------------------------------------------------------------------

TEST_F(InvoiceDetail, aDraftIsRenamedAndItsStoredFileGoes) {
    model.selection()->click(0);
    delivery().showPDF();
    EXPECT_TRUE(std::filesystem::exists(storedInvoiceFile("INV-1")));
    detail().beginRenaming();
    EXPECT_EQ(utf8(detail().numberDraft()), "INV-1");
    detail().setNumberDraft(QStringLiteral(" R/7 "));
    detail().commitNumber();
    EXPECT_FALSE(detail().isRenaming());
    EXPECT_EQ(invoice->number.get(), "R/7");
    EXPECT_EQ(utf8(facts().number), "R/7");
    EXPECT_FALSE(std::filesystem::exists(storedInvoiceFile("INV-1")));
    delivery().showPDF();
    EXPECT_EQ(files.revealed.back(), storedInvoiceFile("R/7"));
    EXPECT_TRUE(std::filesystem::exists(storedInvoiceFile("R/7")));
}

TEST_F(InvoiceDetail, aNumberThatIsTakenIsRefusedAndTheOldOneStands) {
    add("INV-2", "2026-01-01");
    model.selection()->click(0);
    detail().beginRenaming();
    detail().setNumberDraft(QStringLiteral("INV-2"));
    detail().commitNumber();
    EXPECT_EQ(problem(), "Another invoice already uses that number.");
    EXPECT_EQ(utf8(detail().numberDraft()), "INV-1");
    EXPECT_TRUE(detail().isRenaming());
    detail().setNumberDraft(QStringLiteral("INV-3"));
    detail().commitNumber();
    EXPECT_EQ(problem(), "");
}

TEST_F(InvoiceDetail, renamingEndsWithoutAChange) {
    model.selection()->click(0);
    detail().beginRenaming();
    detail().setNumberDraft(QStringLiteral("never"));
    detail().endRenaming();
    EXPECT_EQ(utf8(detail().numberDraft()), "INV-1");
    detail().commitNumber();
    EXPECT_EQ(invoice->number.get(), "INV-1");
}

TEST_F(InvoiceDetail, whatWasSentKeepsItsNumber) {
    model.selection()->click(0);
    detail().beginRenaming();
    detail().takeNextStep();
    EXPECT_FALSE(detail().isRenaming());
    detail().beginRenaming();
    EXPECT_FALSE(detail().isRenaming());
}

// --- the notes -----------------------------------------------------------------------------------

TEST_F(InvoiceDetail, notesThatArePastedAreCutAtOnce) {
    model.selection()->click(0);
    QSignalSpy changes(&detail(), &InvoiceDetailModel::notesChanged);
    detail().setNotes(QString(700, QLatin1Char('x')));
    EXPECT_EQ(detail().notes().size(), 600);
    EXPECT_EQ(utf8(detail().notesCount()), "600/600");
    EXPECT_EQ(changes.count(), 1);
    detail().setNotes(QString(1 << 20, QLatin1Char('y')));
    EXPECT_EQ(invoice->notes->size(), 600U);
}

TEST_F(InvoiceDetail, whatIsTypedIntoTheNotesIsOneStepAndSavedInAPause) {
    model.selection()->click(0);
    for (const char* text : {"P", "PO", "PO 7"}) detail().setNotes(QString::fromUtf8(text));
    EXPECT_TRUE(context().hasChanges());
    timer.library.runLoop.fire();
    EXPECT_FALSE(context().hasChanges());
    detail().setNotes(QStringLiteral("PO 78"));
    detail().leaveNotes();
    EXPECT_FALSE(context().hasChanges());
    timer.history->undo();
    turn();
    EXPECT_EQ(utf8(detail().notes()), "");
}

TEST_F(InvoiceDetail, aKeyInTheNotesReadsNoTime) {
    model.selection()->click(0);
    turn();
    (void)statements();
    detail().setNotes(QStringLiteral("P"));
    turn();
    for (const auto& sql : statements()) EXPECT_EQ(sql.find("TimeEntry"), std::string::npos) << sql;
    EXPECT_NE(detail().preview()->rows().front().text.indexOf(QStringLiteral("P")), -1);
}

TEST_F(InvoiceDetail, notesAreSavedWhenAnotherInvoiceIsSelected) {
    add("INV-2", "2026-01-05");
    model.selection()->click(0);
    detail().setNotes(QStringLiteral("PO 7"));
    model.selection()->click(1);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(invoice->notes.get(), "PO 7");
    EXPECT_EQ(utf8(detail().notes()), "");
}

TEST_F(InvoiceDetail, entriesAreListedOrNot) {
    bill(invoice, 30);
    model.selection()->click(0);
    const auto pages = detail().preview()->rows().size();
    EXPECT_GT(pages, 1U);
    detail().setShowsEntries(false);
    EXPECT_FALSE(facts().showsEntries);
    EXPECT_EQ(detail().preview()->rows().size(), 1U);
    timer.history->undo();
    turn();
    EXPECT_EQ(detail().preview()->rows().size(), pages);
}

// --- the end -------------------------------------------------------------------------------------

TEST_F(InvoiceDetail, deletingAsksAndSetsTheEntriesFree) {
    bill(invoice, 2);
    model.selection()->click(0);
    delivery().showPDF();
    detail().askToDelete();
    EXPECT_EQ(utf8(confirmation.title()), "Delete INV-1?");
    EXPECT_EQ(utf8(confirmation.message()), "Its 3 time entries become unbilled again.");
    EXPECT_EQ(utf8(confirmation.acceptText()), "Delete Invoice");
    confirmation.accept();
    EXPECT_FALSE(detail().isOpen());
    EXPECT_FALSE(std::filesystem::exists(storedInvoiceFile("INV-1")));
    for (const auto& entry : context().fetch<TimeEntry>()) EXPECT_EQ(entry->invoice.get(), nullptr);
    timer.history->undo();
    turn();
    EXPECT_THAT(numbers(), ElementsAre("INV-1"));
    EXPECT_THAT(shown(InvoiceRowsModel::amount), ElementsAre("$300.00"));
}

TEST_F(InvoiceDetail, aDeletionThatIsDismissedDeletesNothing) {
    model.selection()->click(0);
    detail().askToDelete();
    confirmation.reject();
    EXPECT_TRUE(detail().isOpen());
    EXPECT_THAT(numbers(), ElementsAre("INV-1"));
}

}  // namespace
}  // namespace elmworth
