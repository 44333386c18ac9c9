// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Entries that run or are billed, and what happens elsewhere while the editor is open.

#include "screens/panel/EntryEditorTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::utf8;
using Spans = std::vector<std::string>;

/// With a finished entry of "Website", 07:00 to 08:00.
class EntryElsewhere : public test::EntryEditorTest {
 protected:
    Ref<TimeEntry> work = entry(website, "07:00", "08:00");
};

/// With a timer on "Website" that began at 14:00, an hour ago.
class RunningEntryEditor : public test::EntryEditorTest {
 protected:
    RunningEntryEditor() {
        timer.setTime("14:00");
        service().start(website);
        timer.setTime("15:00");
        running = service().running();
        editor.open(running);
    }
    Ref<TimeEntry> running;
};

// --- running -------------------------------------------------------------------------------------

TEST_F(RunningEntryEditor, hasNoEndToShow) {
    EXPECT_TRUE(editor.isRunning());
    EXPECT_EQ(utf8(editor.title()), "Edit Entry");
    EXPECT_EQ(plain(editor.subtitle()), "Running since 2:00 PM");
    EXPECT_TRUE(editor.canSave());
    editor.chooseDuration(0);
    EXPECT_TRUE(editor.isRunning());
}

TEST_F(RunningEntryEditor, anEarlierStartChangesTheElapsedTimeAtOnceAndTheEntryStaysOpen) {
    type(editor.start()->time(), "1:30 PM");
    editor.save();
    EXPECT_EQ(service().elapsedLongText(), "1:30:00");
    EXPECT_EQ(service().running(), running);
    EXPECT_TRUE(running->isRunning());
}

TEST_F(RunningEntryEditor, stoppedElsewhereItHasItsEndAndKeepsIt) {
    editor.notes()->setText(QStringLiteral("Landing page"));
    timer.setTime("15:10");
    service().stop();
    turn();
    EXPECT_FALSE(editor.isRunning());
    EXPECT_EQ(shown(editor.end()), "3/2/2026 3:10 PM");
    timer.setTime("16:00");
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"14:00:00-15:10:00"});
    EXPECT_EQ(running->notes.get(), "Landing page");
}

TEST_F(RunningEntryEditor, stoppedInTheTurnOfTheSaveItKeepsItsEndToo) {
    timer.setTime("15:10");
    service().stop();
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"14:00:00-15:10:00"});
}

TEST_F(RunningEntryEditor, aStartAfterTheEndThatItGotElsewhereIsNotSaved) {
    timer.setTime("15:10");
    type(editor.start()->time(), "3:08 PM");
    service().stop(timer.today("15:05"));
    turn();
    EXPECT_EQ(utf8(editor.problem()), "End must be after start.");
    EXPECT_FALSE(editor.canSave());
}

TEST_F(RunningEntryEditor, deletedElsewhereItIsSavedAsAFinishedOne) {
    service().start(project("Blog"));
    context().deleteRecord(running);
    turn();
    EXPECT_FALSE(editor.isRunning());
    EXPECT_EQ(shown(editor.end()), "3/2/2026 3:00 PM");
    editor.save();
    EXPECT_EQ(timer.spans(), (Spans{"14:00:00-15:00:00", "15:00:00-"}));
}

// --- billed --------------------------------------------------------------------------------------

TEST_F(EntryElsewhere, aBilledEntryCanOnlyBeRead) {
    bill(work);
    timer.setClock("2036-03-02T15:00Z");
    editor.open(work);
    EXPECT_TRUE(editor.isBilled());
    EXPECT_EQ(utf8(editor.title()), "Billed Entry");
    EXPECT_EQ(utf8(editor.icon()), "lock");
    EXPECT_TRUE(editor.isLocked());
    EXPECT_EQ(utf8(editor.lockText()),
              "On invoice 2026-001. Delete the invoice to edit this entry.");
    EXPECT_EQ(utf8(editor.notice()), "");
    EXPECT_FALSE(editor.canSave());
}

TEST_F(EntryElsewhere, aBilledEntrysProjectTimesAndNotesStay) {
    bill(work);
    project("Blog");
    editor.open(work);
    choose("Acme Co — Blog");
    type(editor.start()->time(), "6:00");
    type(editor.end()->time(), "9:00");
    editor.chooseDuration(0);
    editor.notes()->setText(QStringLiteral("Other"));
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(timer.spans(), Spans{"07:00:00-08:00:00"});
    EXPECT_EQ(work->project.get(), website);
    EXPECT_EQ(work->notes.get(), "");
    EXPECT_EQ(utf8(editor.notes()->text()), "");
}

TEST_F(EntryElsewhere, billedMeanwhileItCanOnlyBeReadAndSaysSo) {
    editor.open(work);
    editor.notes()->setText(QStringLiteral("Mended"));
    bill(work);
    turn();
    EXPECT_TRUE(editor.isBilled());
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(utf8(editor.notes()->text()), "Mended");
    EXPECT_EQ(utf8(editor.notice()),
              "It was billed meanwhile: what you changed here can't be saved.");
    editor.save();
    EXPECT_EQ(work->notes.get(), "");
}

TEST_F(EntryElsewhere, billedInTheTurnOfTheSaveItStaysAsItIs) {
    editor.open(work);
    editor.notes()->setText(QStringLiteral("Mended"));
    work->invoice = timer.library.addInvoice("2026-001", acme());
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(work->notes.get(), "");
}

TEST_F(EntryElsewhere, billedMeanwhileWithoutChangesHereNothingIsLost) {
    editor.open(work);
    bill(work);
    turn();
    EXPECT_TRUE(editor.isBilled());
    EXPECT_EQ(utf8(editor.notice()), "");
}

TEST_F(EntryElsewhere, anInvoiceDeletedMeanwhileLetsItBeChanged) {
    const auto invoice = bill(work);
    editor.open(work);
    context().deleteRecord(invoice);
    context().save();
    turn();
    EXPECT_FALSE(editor.isBilled());
    EXPECT_EQ(utf8(editor.title()), "Edit Entry");
    EXPECT_TRUE(editor.canSave());
}

// --- deleted or changed --------------------------------------------------------------------------

TEST_F(EntryElsewhere, deletedMeanwhileItIsSavedAsANewOneAndSaysSo) {
    editor.open(work);
    editor.notes()->setText(QStringLiteral("Typed for an hour"));
    context().deleteRecord(work);
    context().save();
    turn();
    EXPECT_EQ(utf8(editor.title()), "New Entry");
    EXPECT_EQ(utf8(editor.notes()->text()), "Typed for an hour");
    EXPECT_EQ(utf8(editor.notice()),
              "This entry was deleted elsewhere. Save adds it as a new one.");
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"07:00:00-08:00:00"});
    EXPECT_EQ(context().fetch(Query<TimeEntry>{}).at(0)->notes.get(), "Typed for an hour");
}

TEST_F(EntryElsewhere, deletedInTheTurnOfTheSaveItIsANewOne) {
    editor.open(work);
    context().deleteRecord(work);
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"07:00:00-08:00:00"});
}

TEST_F(EntryElsewhere, anEntryThatIsGoneOpensAsANewOne) {
    context().deleteRecord(work);
    editor.open(work);
    EXPECT_EQ(utf8(editor.title()), "New Entry");
    EXPECT_EQ(utf8(editor.notice()), "");
}

TEST_F(EntryElsewhere, withItsProjectDeletedAnotherHasToBeChosen) {
    editor.open(work);
    editor.notes()->setText(QStringLiteral("Typed for an hour"));
    const auto blog = project("Blog");
    context().deleteRecord(website);
    context().save();
    turn();
    EXPECT_EQ(utf8(editor.projects()->title()), "Choose…");
    EXPECT_EQ(utf8(editor.iconColor()), "#7C6CFF");
    EXPECT_FALSE(editor.canSave());
    choose("Acme Co — Blog");
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"07:00:00-08:00:00"});
}

TEST_F(EntryElsewhere, theChosenProjectDeletedLeavesNoneChosen) {
    const auto blog = project("Blog");
    editor.open(work);
    choose("Acme Co — Blog");
    context().deleteRecord(blog);
    turn();
    EXPECT_EQ(utf8(editor.projects()->title()), "Choose…");
    EXPECT_FALSE(editor.canSave());
    EXPECT_EQ(utf8(editor.title()), "Edit Entry");
}

TEST_F(EntryElsewhere, whatNobodyTouchedHereIsNotTakenBack) {
    const auto blog = project("Blog");
    editor.open(work);
    type(editor.end()->time(), "8:30");
    work->notes = "From the panel";
    work->project = blog;
    work->start = timer.today("06:45");
    context().save();
    turn();
    EXPECT_EQ(utf8(editor.notes()->text()), "From the panel");
    EXPECT_EQ(utf8(editor.projects()->title()), "Acme Co — Blog");
    EXPECT_EQ(shown(editor.start()), "3/2/2026 6:45 AM");
    EXPECT_EQ(shown(editor.end()), "3/2/2026 8:30 AM");
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"06:45:00-08:30:00"});
    EXPECT_EQ(work->notes.get(), "From the panel");
}

TEST_F(EntryElsewhere, whatWasTypedHereStays) {
    editor.open(work);
    editor.notes()->setText(QStringLiteral("Mine"));
    editor.end()->time()->edit(QStringLiteral("8:4"));
    work->notes = "Theirs";
    work->end = timer.today("09:00");
    context().save();
    turn();
    EXPECT_EQ(utf8(editor.notes()->text()), "Mine");
    EXPECT_EQ(utf8(editor.end()->time()->text()), "8:4");
}

TEST_F(EntryElsewhere, onlyAnOpenEditorFollowsTheLibrary) {
    editor.open(work);
    editor.dismiss();
    test::SignalCount count;
    count.watch(editor);
    work->notes = "Theirs";
    project("Blog");
    context().save();
    turn();
    EXPECT_TRUE(count.take().empty());
}

}  // namespace
}  // namespace elmworth
