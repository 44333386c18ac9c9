// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;

class UnitOfWorkStream : public testing::Test {
 protected:
    UnitOfWorkStream() {
        project = library.addProject("Website", library.addClient("Acme"));
        other = library.addProject("App", project->client.get());
        for (const auto* notes : {"a", "b", "c"}) addEntry(project, notes);
        addEntry(other, "elsewhere");
        library.context().save();
    }

    void addEntry(const Ref<Project>& owner, const std::string& notes) {
        library.addEntry(owner, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"))->notes = notes;
    }
    Ref<TimeEntry> entry(const std::string& notes) {
        return library.context()
            .fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::notes>() == notes})
            .front();
    }
    /// The notes of the project's entries, sorted.
    std::vector<std::string> streamed() {
        std::vector<std::string> notes;
        library.context().forEach<TimeEntry>(
            {.predicate = key<&TimeEntry::project>() == project},
            [&](const TimeEntry& each) { notes.push_back(each.notes); });
        std::sort(notes.begin(), notes.end());
        return notes;
    }

    TestLibrary library;
    Ref<Project> project;
    Ref<Project> other;
};

using Texts = std::vector<std::string>;

TEST_F(UnitOfWorkStream, givesEachRecordThatMeetsThePredicate) {
    EXPECT_EQ(streamed(), (Texts{"a", "b", "c"}));
}

TEST_F(UnitOfWorkStream, seesUnsavedChanges) {
    const auto left = entry("a");
    const auto renamed = entry("b");
    const auto arrived = entry("elsewhere");
    left->project = other;
    renamed->notes = "B";
    arrived->project = project;
    library.context().deleteRecord(entry("c"));
    addEntry(project, "new");
    EXPECT_EQ(streamed(), (Texts{"B", "elsewhere", "new"}));
}

TEST_F(UnitOfWorkStream, unsavedRecordsStandAtTheirPlaceInTheOrder) {
    entry("b")->notes = "z";
    addEntry(project, "aa");
    Texts notes;
    library.context().forEach<TimeEntry>(
        {.predicate = key<&TimeEntry::project>() == project,
         .sortBy = {sortedBy<&TimeEntry::notes>()}},
        [&](const TimeEntry& each) { notes.push_back(each.notes); });
    EXPECT_EQ(notes, (Texts{"a", "aa", "c", "z"}));
}

TEST_F(UnitOfWorkStream, aRecordThatSomebodyHasIsItself) {
    const auto held = entry("b");
    std::vector<const TimeEntry*> seen;
    library.context().forEach<TimeEntry>({.predicate = key<&TimeEntry::notes>() == "b"},
                                         [&](const TimeEntry& each) { seen.push_back(&each); });
    EXPECT_EQ(seen, std::vector<const TimeEntry*>{held.get()});
}

TEST_F(UnitOfWorkStream, aLentRecordLeadsOnIntoTheLibrary) {
    Texts clients;
    library.context().forEach<TimeEntry>(
        {.predicate = key<&TimeEntry::notes>() == "a"},
        [&](const TimeEntry& each) { clients.push_back(each.project->client->name); });
    EXPECT_EQ(clients, Texts{"Acme"});
}

TEST_F(UnitOfWorkStream, aLimitEndsItWithUnsavedRecordsAndWithout) {
    const auto first = [&](std::size_t limit) {
        Texts notes;
        library.context().forEach<TimeEntry>(
            {.predicate = key<&TimeEntry::project>() == project,
             .sortBy = {sortedBy<&TimeEntry::notes>()},
             .fetchLimit = limit},
            [&](const TimeEntry& each) { notes.push_back(each.notes); });
        return notes;
    };
    EXPECT_EQ(first(2), (Texts{"a", "b"}));
    library.context().deleteRecord(entry("a"));
    entry("b")->notes = "z";
    addEntry(project, "aa");
    EXPECT_EQ(first(2), (Texts{"aa", "c"}));
    EXPECT_EQ(first(9), (Texts{"aa", "c", "z"}));
    EXPECT_EQ(first(0), Texts{});
}

TEST_F(UnitOfWorkStream, valuesAreThoseOfEachRecordWithUnsavedChanges) {
    const auto values = [&] {
        Texts found;
        library.context().forEachValues<&TimeEntry::notes, &TimeEntry::project, &TimeEntry::end>(
            std::optional(key<&TimeEntry::project>() == project),
            [&](const PersistentID& id, const std::string& notes, std::optional<PersistentID> owner,
                std::optional<Instant> end) {
                EXPECT_EQ(owner, project->id());
                EXPECT_FALSE(id.isNil());
                found.push_back(notes + (end ? "" : " runs"));
            });
        std::sort(found.begin(), found.end());
        return found;
    };
    EXPECT_EQ(values(), (Texts{"a", "b", "c"}));
    entry("a")->project = other;
    entry("b")->notes = "B";
    entry("B")->end = std::nullopt;
    entry("elsewhere")->project = project;
    library.context().deleteRecord(entry("c"));
    addEntry(project, "new");
    EXPECT_EQ(values(), (Texts{"B runs", "elsewhere", "new"}));
    library.context().save();
    EXPECT_EQ(values(), (Texts{"B runs", "elsewhere", "new"}));
}

}  // namespace
}  // namespace elmworth
