// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UndoHistory.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/LibraryText.h"
#include "support/TestLibrary.h"

// What steps are, over all record types and without the rules of any. For entries and the timer see
// the tests of EntryHistory.

namespace elmworth {
namespace {

using test::at;

class UndoHistoryTest : public testing::Test {
 protected:
    UndoHistoryTest() {
        entry_->notes = "Landing page";
        context().save();
    }
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    [[nodiscard]] std::string text() { return test::libraryText(context()); }
    Ref<TimeEntry> addEntry(const Ref<Project>& project) {
        return library_.addEntry(project, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
    }
    void bill() {
        entry_->invoice = library_.addInvoice("INV-1", acme_);
        entry_->billedRateCents = 9000;
    }
    /// Does `change` as a step; then undo gives what was before, redo what was after.
    void expectUndoAndRedo(const std::function<void()>& change) {
        const auto before = text();
        history_.perform("Step", change);
        const auto after = text();
        EXPECT_NE(after, before);
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(history_.undo().notice(), "");
            EXPECT_EQ(text(), before) << round;
            EXPECT_FALSE(context().hasChanges());
            EXPECT_EQ(history_.redo().notice(), "");
            EXPECT_EQ(text(), after) << round;
        }
        library_.reopen();
        EXPECT_EQ(text(), after);
    }

    test::TestLibrary library_;
    Ref<Client> acme_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", acme_);
    Ref<TimeEntry> entry_ = addEntry(website_);
    UndoHistory history_{context()};
};

// --- what a step is ----------------------------------------------------------------------------

TEST_F(UndoHistoryTest, aClientIsChangedBackInAllItsFields) {
    expectUndoAndRedo([&] {
        acme_->name = "Acme Co";
        acme_->email = "a@example.com";
        acme_->hourlyRateCents = 9500;
        acme_->dueDays = 30;
        acme_->taxBasisPoints = 1900;
    });
}

TEST_F(UndoHistoryTest, aProjectIsArchivedAndMoved) {
    expectUndoAndRedo([&] {
        website_->isArchived = true;
        website_->client = library_.addClient("Globex");
    });
}

TEST_F(UndoHistoryTest, aClientIsDeletedWithItsProjectsAndTheirEntries) {
    expectUndoAndRedo([&] { context().deleteRecord(acme_); });
}

TEST_F(UndoHistoryTest, anInvoiceComesWithTheEntriesThatItBills) {
    expectUndoAndRedo([&] { bill(); });
}

TEST_F(UndoHistoryTest, anInvoiceGoesAndLetsGoOfItsEntries) {
    bill();
    context().save();
    expectUndoAndRedo([&] { context().deleteRecord(entry_->invoice.get()); });
}

TEST_F(UndoHistoryTest, anInvoiceGetsItsBytesBack) {
    bill();
    entry_->invoice->businessSnapshot = Blob{"first"};
    context().save();
    expectUndoAndRedo([&] {
        entry_->invoice->businessSnapshot = std::nullopt;
        entry_->invoice->statusRaw = "sent";
    });
}

TEST_F(UndoHistoryTest, clientsProjectsAndEntriesThatCameTogetherGoTogether) {
    expectUndoAndRedo([&] {
        const auto globex = library_.addClient("Globex");
        addEntry(library_.addProject("App", globex));
        addEntry(website_);
    });
}

TEST_F(UndoHistoryTest, whatComesAndGoesWithinAStepIsNoStep) {
    history_.perform("Step", [&] {
        context().deleteRecord(addEntry(website_));
        entry_->notes = "typed";
        entry_->notes = "Landing page";
    });
    EXPECT_FALSE(history_.canUndo());
}

TEST_F(UndoHistoryTest, aStepIsNotedAcrossSavesInIt) {
    expectUndoAndRedo([&] {
        const auto id = entry_->id();
        entry_->notes = "1";
        context().save();
        context().deleteRecord(entry_);
        context().save();
        context().reinsert<TimeEntry>(id)->notes = "2";
        context().save();
    });
}

TEST_F(UndoHistoryTest, whatWaitedBeforeAStepIsNoPartOfIt) {
    entry_->notes = "typed";
    history_.performQuietly("Step", [&] { entry_->billedRateCents = 1; });
    history_.undo();
    EXPECT_EQ(entry_->notes.get(), "typed");
    EXPECT_EQ(entry_->billedRateCents.get(), std::nullopt);
}

TEST_F(UndoHistoryTest, aStepWithinAStepIsPartOfIt) {
    expectUndoAndRedo([&] {
        entry_->notes = "outer";
        history_.perform("Inner", [&] { website_->name = "inner"; });
    });
    EXPECT_EQ(history_.undoText(), "Undo Step");
}

// --- failures ----------------------------------------------------------------------------------

TEST_F(UndoHistoryTest, aChangeThatThrowsLeavesEverythingAsItWas) {
    const auto before = text();
    const auto change = [&] {
        context().deleteRecord(acme_);
        throw std::runtime_error("no");
    };
    EXPECT_THROW(history_.perform("Step", change), std::runtime_error);
    EXPECT_EQ(text(), before);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_FALSE(history_.canUndo());
}

TEST_F(UndoHistoryTest, aStepThatCannotBeSavedLeavesEverythingAsItWas) {
    const auto before = text();
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_THROW(history_.perform("Step", [&] { entry_->notes = "typed"; }), StoreError);
    }
    EXPECT_EQ(text(), before);
    EXPECT_FALSE(history_.canUndo());
}

TEST_F(UndoHistoryTest, whatWaitsFromAFailedSaveIsNotRolledBack) {
    website_->name = "waits";
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_THROW(history_.perform("Step", [&] { entry_->notes = "typed"; }), StoreError);
    }
    EXPECT_EQ(website_->name.get(), "waits");
    EXPECT_EQ(entry_->notes.get(), "Landing page");
}

TEST_F(UndoHistoryTest, whatAPreparationDidIsNotUndone) {
    history_.performAfter(
        "Prepare", [&] { entry_->notes = "prepared"; }, "Step",
        [&] { context().deleteRecord(entry_); });
    EXPECT_EQ(history_.undoText(), "Undo Step");
    history_.undo();
    EXPECT_FALSE(history_.canUndo());
    const auto entries = context().fetch<TimeEntry>();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0]->notes.get(), "prepared");
}

TEST_F(UndoHistoryTest, aPreparationWithoutItsChangeIsAStepOfItsOwn) {
    const auto before = text();
    const auto prepare = [&] {
        entry_->notes = "prepared";
        context().save();
    };
    const auto change = [&] {
        context().deleteRecord(entry_);
        throw std::runtime_error("no");
    };
    EXPECT_THROW(history_.performAfter("Prepare", prepare, "Step", change), std::runtime_error);
    EXPECT_EQ(entry_->notes.get(), "prepared");
    EXPECT_EQ(history_.undoText(), "Undo Prepare");
    history_.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoHistoryTest, aPreparationWithinAStepIsPartOfThat) {
    expectUndoAndRedo([&] {
        history_.performAfter(
            "Prepare", [&] { entry_->notes = "prepared"; }, "Inner",
            [&] { context().deleteRecord(entry_); });
    });
}

// --- what is left alone ------------------------------------------------------------------------

TEST_F(UndoHistoryTest, aProjectThatIsUsedByNowStaysWithItsClient) {
    Ref<Project> app;
    history_.perform("Step",
                     [&] { app = library_.addProject("App", library_.addClient("Globex")); });
    addEntry(app);
    context().save();
    const auto before = text();
    EXPECT_EQ(history_.undo().notice(), "1 project and 1 client are in use and stay.");
    EXPECT_EQ(text(), before);
    EXPECT_FALSE(history_.canRedo());
}

TEST_F(UndoHistoryTest, anInvoiceDoesNotComeBackWhenItsNumberIsTaken) {
    bill();
    context().save();
    history_.perform("Step", [&] { context().deleteRecord(entry_->invoice.get()); });
    library_.addInvoice("INV-1", acme_);
    context().save();
    const auto before = text();
    EXPECT_NE(history_.undo().notice(), "");
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(context().fetchCount<Invoice>(), 1U);
}

TEST_F(UndoHistoryTest, recordsOfSeveralTypesAreToldOfInOneSentence) {
    const auto second = addEntry(website_);
    history_.perform("Step", [&] {
        acme_->name = "1";
        entry_->notes = "1";
        second->notes = "1";
    });
    acme_->name = "2";
    entry_->notes = "2";
    second->notes = "2";
    EXPECT_EQ(history_.undo().notice(),
              "1 client and 2 entries were changed since and stay as they are.");
}

TEST_F(UndoHistoryTest, aFieldOfAClientThatSomebodyElseChangedStays) {
    history_.perform("Step", [&] { acme_->name = "mine"; });
    acme_->email = "theirs@example.com";
    EXPECT_EQ(history_.undo().notice(), "");
    EXPECT_EQ(acme_->name.get(), "Acme");
    EXPECT_EQ(acme_->email.get(), "theirs@example.com");
}

// --- typing ------------------------------------------------------------------------------------

class Typing : public UndoHistoryTest {
 protected:
    void type(const std::string& notes, const std::string& field = "notes") {
        history_.type("Edit Notes", field, [&] { entry_->notes = notes; });
    }
};

TEST_F(Typing, whatIsTypedIntoAFieldIsOneStep) {
    for (const char* notes : {"T", "Ty", "Typ"}) type(notes);
    EXPECT_EQ(history_.undoText(), "Undo Edit Notes");
    history_.undo();
    EXPECT_EQ(entry_->notes.get(), "Landing page");
    EXPECT_FALSE(history_.canUndo());
    history_.redo();
    EXPECT_EQ(entry_->notes.get(), "Typ");
}

TEST_F(Typing, aSaveInBetweenDoesNotEndTheStep) {
    type("T");
    context().save();
    type("Ty");
    context().save();
    history_.undo();
    EXPECT_EQ(entry_->notes.get(), "Landing page");
}

TEST_F(Typing, aFieldThatWasLeftBeginsAnotherStep) {
    type("T");
    history_.leaveField();
    type("Ty");
    history_.undo();
    EXPECT_EQ(entry_->notes.get(), "T");
}

TEST_F(Typing, anotherFieldAndAnotherStepBeginAnotherStep) {
    type("T");
    type("Ty", "elsewhere");
    history_.perform("Step", [&] { acme_->name = "1"; });
    type("Typ", "elsewhere");
    for (const char* notes : {"Ty", "Ty", "T", "Landing page"}) {
        history_.undo();
        EXPECT_EQ(entry_->notes.get(), notes);
    }
}

TEST_F(Typing, whatIsTypedAfterAnUndoIsAnotherStep) {
    type("T");
    history_.perform("Step", [&] { acme_->name = "1"; });
    history_.undo();
    type("Ty");
    history_.undo();
    EXPECT_EQ(entry_->notes.get(), "T");
}

TEST_F(Typing, whatIsDeletedAgainIsNoStep) {
    type("T");
    type("Landing page");
    EXPECT_FALSE(history_.canUndo());
}

TEST_F(Typing, nothingIsSavedOnTheWay) {
    type("T");
    EXPECT_TRUE(context().hasChanges());
}

TEST_F(Typing, aRecordThatIsTypedIntoAndGoesComesBackWithBothValues) {
    RecordStep typed{&TimeEntry::schema(), entry_->id(), FieldValues{}, FieldValues{}};
    const auto notes = KeyPath<&TimeEntry::notes>::index();
    typed.before->set(notes, std::string("old"));
    typed.after->set(notes, std::string("new"));
    std::vector<Value> row(TimeEntry::schema().fields.size());
    row[notes] = std::string("new");
    std::vector<RecordStep> step{typed};
    append(step, {{&TimeEntry::schema(), entry_->id(), FieldValues(row), {}}});
    ASSERT_EQ(step.size(), 1U);
    EXPECT_EQ(*step[0].before->find(notes), Value{std::string("old")});
    EXPECT_FALSE(step[0].after);
    append(step, {{&TimeEntry::schema(), entry_->id(), {}, FieldValues(row)}});
    ASSERT_EQ(step.size(), 1U);
    EXPECT_EQ(step[0].before->mask(), std::uint64_t{1} << notes);
}

// --- steps that can't be kept ------------------------------------------------------------------

TEST_F(UndoHistoryTest, aNewStepEndsWhatCouldBeRedone) {
    history_.perform("Step", [&] { acme_->name = "Acme Co"; });
    static_cast<void>(history_.undo());
    EXPECT_TRUE(history_.canRedo());
    history_.perform("Another", [&] { website_->name = "Site"; });
    EXPECT_FALSE(history_.canRedo());
}

TEST_F(UndoHistoryTest, aStepWithFlushedInsertsCannotBeUndoneNorWhatCameBefore) {
    history_.perform("Step", [&] { entry_->notes = "typed"; });
    history_.perform("Import", [&] {
        addEntry(website_);
        context().flushInserts();
    });
    EXPECT_FALSE(history_.canUndo());
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 2U);
}

TEST_F(UndoHistoryTest, whatIsDoneForGoodCannotBeUndoneNorWhatCameBefore) {
    history_.perform("Step", [&] { entry_->notes = "typed"; });
    history_.performForGood([&] { addEntry(website_); });
    EXPECT_FALSE(history_.canUndo());
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 2U);
}

TEST_F(UndoHistoryTest, whatFailsForGoodLeavesEverythingAsItWas) {
    history_.perform("Step", [&] { entry_->notes = "typed"; });
    const auto before = text();
    const auto change = [&] {
        addEntry(website_);
        throw std::runtime_error("no");
    };
    EXPECT_THROW(history_.performForGood(change), std::runtime_error);
    EXPECT_EQ(text(), before);
    EXPECT_TRUE(history_.canUndo());
}

}  // namespace
}  // namespace elmworth
