// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;

class ReinsertTest : public testing::Test {
 protected:
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    Ref<TimeEntry> reinsert() { return context().reinsert<TimeEntry>(id_); }
    void deleteAndSave() {
        context().deleteRecord(entry_);
        context().save();
    }
    [[nodiscard]] std::vector<std::string> storedNotes() {
        library_.reopen();
        std::vector<std::string> notes;
        for (const auto& entry : context().fetch<TimeEntry>()) notes.push_back(entry->notes);
        return notes;
    }
    [[nodiscard]] static Ref<TimeEntry> makeEntry(test::TestLibrary& library) {
        const auto entry = library.addEntry(library.addProject("Website", nullptr),
                                            at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
        entry->notes = "Landing page";
        return entry;
    }

    test::StatementTrace trace_;
    test::TestLibrary library_;
    Ref<TimeEntry> entry_ = makeEntry(library_);
    PersistentID id_ = entry_->id();
};

TEST_F(ReinsertTest, aDeletionThatWaitsForTheSaveIsTakenBackWithItsValues) {
    context().save();
    context().deleteRecord(entry_);
    EXPECT_EQ(reinsert(), entry_);
    EXPECT_FALSE(entry_->isDeleted());
    EXPECT_EQ(context().record<TimeEntry>(id_), entry_);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 1U);
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{"Landing page"});
}

TEST_F(ReinsertTest, aDeletionThatWasTakenBackWritesNoRow) {
    context().save();
    context().deleteRecord(entry_);
    reinsert();
    (void)test::StatementTrace::take();
    context().save();
    for (const auto& sql : test::StatementTrace::take()) {
        EXPECT_EQ(sql.find("TimeEntry"), std::string::npos) << sql;
    }
}

TEST_F(ReinsertTest, changesMadeAfterTakingBackAreSaved) {
    context().save();
    context().deleteRecord(entry_);
    reinsert()->notes = "Footer";
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{"Footer"});
}

TEST_F(ReinsertTest, aChangeBeforeTheDeletionIsTakenBackToo) {
    context().save();
    entry_->notes = "Footer";
    context().deleteRecord(entry_);
    EXPECT_EQ(reinsert()->notes.get(), "Footer");
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{"Footer"});
}

TEST_F(ReinsertTest, aRollbackAfterTakingBackGivesTheSavedValues) {
    context().save();
    context().deleteRecord(entry_);
    reinsert()->notes = "Footer";
    context().rollback();
    EXPECT_EQ(entry_->notes.get(), "Landing page");
    EXPECT_FALSE(entry_->isDeleted());
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(ReinsertTest, afterTheSaveANewObjectHasTheIdentity) {
    context().save();
    deleteAndSave();
    const auto again = reinsert();
    EXPECT_NE(again, entry_);
    EXPECT_TRUE(entry_->isDeleted());
    EXPECT_EQ(again->id(), id_);
    EXPECT_EQ(again->notes.get(), "");
    again->notes = "Again";
    EXPECT_EQ(context().record<TimeEntry>(id_), again);
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{"Again"});
}

TEST_F(ReinsertTest, theObjectThatWentMayDieWithoutTakingTheNewOneWithIt) {
    context().save();
    deleteAndSave();
    const auto again = reinsert();
    entry_.reset();
    EXPECT_EQ(context().record<TimeEntry>(id_), again);
    context().save();
    EXPECT_EQ(context().record<TimeEntry>(id_), again);
}

TEST_F(ReinsertTest, aRecordThatWasNeverSavedComesBackAsANewOne) {
    context().deleteRecord(entry_);
    EXPECT_EQ(reinsert()->id(), id_);
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{""});
}

TEST_F(ReinsertTest, deletingAndTakingBackMayGoOnForever) {
    context().save();
    for (int round = 0; round < 4; ++round) {
        const bool saved = round % 2 == 1;
        context().deleteRecord(context().record<TimeEntry>(id_));
        if (saved) context().save();
        reinsert()->notes = std::to_string(round);
        if (saved) context().save();
        EXPECT_EQ(context().fetchCount<TimeEntry>(), 1U) << round;
    }
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{"3"});
}

TEST_F(ReinsertTest, aDeletionThatCouldNotBeSavedIsTakenBackAllTheSame) {
    context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        context().deleteRecord(entry_);
        context().saveQuietly();
        EXPECT_EQ(reinsert(), entry_);
    }
    context().save();
    EXPECT_EQ(storedNotes(), std::vector<std::string>{"Landing page"});
}

TEST_F(ReinsertTest, observersAreTold) {
    context().save();
    context().deleteRecord(entry_);
    context().deliverChanges();
    int told = 0;
    const auto observation = context().observe(TimeEntry::schema(), [&] { ++told; });
    reinsert();
    context().deliverChanges();
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace elmworth
