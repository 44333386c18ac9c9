// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DamagedTable.h"
#include "support/Instants.h"
#include "support/SystemLogCapture.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::damageTable;
using test::TestLibrary;

/// A library with a client, a project and an entry, of which one table is damaged.
class UnreadableRecord : public testing::Test {
 protected:
    UnreadableRecord() {
        const auto project = library.addProject("Website", library.addClient("Acme"));
        library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
        library.context().save();
    }

    void damage(const char* table) {
        library.close();
        damageTable(library.file(), table);
        library.open();
    }
    template <class T>
    Ref<T> only() {
        return library.context().fetch<T>().at(0);
    }

    TestLibrary library;
};

TEST_F(UnreadableRecord, looksAbsentToWhoFollowsARelationshipToIt) {
    damage("Project");
    const auto entry = only<TimeEntry>();
    EXPECT_EQ(entry->project.get(), nullptr);
    EXPECT_EQ(entry->effectiveRateCents(), 0);
    EXPECT_THROW((void)entry->project->name.get(), StoreError);
    EXPECT_TRUE(only<Client>()->projects().empty());
    library.context().forEach<TimeEntry>(
        {}, [](const TimeEntry& lent) { EXPECT_EQ(lent.project.get(), nullptr); });
}

TEST_F(UnreadableRecord, isNoneToWhoLooksItUpQuietlyAndAnErrorOtherwise) {
    damage("Project");
    const auto id = *only<TimeEntry>()->project.id();
    EXPECT_EQ(library.context().recordQuietly<Project>(id), nullptr);
    EXPECT_THROW((void)library.context().record<Project>(id), StoreError);
    EXPECT_THROW((void)library.context().fetch<Project>(), StoreError);
}

TEST_F(UnreadableRecord, keepsTheRelationshipsToIt) {
    damage("Project");
    const auto entry = only<TimeEntry>();
    const auto copy = library.addEntry(nullptr, at("2026-03-02T09:00Z"), std::nullopt);
    copy->project = entry->project;
    entry->notes = "Changed";
    EXPECT_EQ(copy->project.id(), entry->project.id());
    EXPECT_TRUE(entry->project.id());
}

TEST_F(UnreadableRecord, letsNothingBeDeletedThatItMayBelongTo) {
    damage("Project");
    const auto client = only<Client>();
    EXPECT_THROW(library.context().deleteRecord(client), StoreError);
    EXPECT_FALSE(client->isDeleted());
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(UnreadableRecord, isLoggedOnceAndToldOnceInALaterTurn) {
    damage("Project");
    int told = 0;
    const auto observation = library.context().readFaults().observe([&] { ++told; });
    const test::SystemLogCapture log;
    const auto entry = only<TimeEntry>();
    for (int i = 0; i < 3; ++i) (void)entry->project.get();
    (void)library.context().fetchQuietly<Project>();
    EXPECT_EQ(log.take(),
              "Elmworth: part of the library can't be read: database disk image is malformed\n");
    EXPECT_EQ(told, 0);
    for (int i = 0; i < 3; ++i) {
        library.runLoop.turn();
        (void)entry->project.get();
    }
    EXPECT_EQ(told, 1);
    EXPECT_EQ(log.take(), "");
    EXPECT_GE(library.context().readFaults().count(), 7U);
}

TEST_F(UnreadableRecord, isNoticedByWorkThatMustLeaveNothingOut) {
    damage("Client");
    const CompleteReading reading(library.context());
    const auto project = only<Project>();
    EXPECT_NO_THROW(reading.check());
    EXPECT_EQ(project->client.get(), nullptr);
    EXPECT_THROW(reading.check(), StoreError);
    EXPECT_NO_THROW(CompleteReading(library.context()).check());
}

TEST_F(UnreadableRecord, isNotWhatARelationshipToNothingIs) {
    library.addEntry(nullptr, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
    library.context().save();
    library.reopen();
    const CompleteReading reading(library.context());
    for (const auto& entry : library.context().fetch<TimeEntry>()) (void)entry->project.get();
    EXPECT_NO_THROW(reading.check());
    EXPECT_EQ(library.context().readFaults().count(), 0U);
}

}  // namespace
}  // namespace elmworth
