// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>

#include "support/FaultyVfs.h"
#include "support/Instants.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::FaultyVfs;
using test::StatementTrace;
using test::TestLibrary;
using namespace std::chrono_literals;

class TotalSeconds : public testing::Test {
 protected:
    TotalSeconds() {
        website = library.addProject("Website", nullptr);
        app = library.addProject("App", nullptr);
    }

    Ref<TimeEntry> add(const Ref<Project>& project, std::chrono::minutes length) {
        return library.addEntry(project, nine, nine + length);
    }
    double total(const Ref<Project>& project) {
        return library.context()
            .totalSeconds<&TimeEntry::project, &TimeEntry::start, &TimeEntry::end>(project->id());
    }
    /// The same, entry by entry.
    static double counted(const Ref<Project>& project) {
        double seconds = 0;
        for (const auto& entry : project->entries()) {
            if (entry->end.get()) seconds += secondsBetween(entry->start, *entry->end.get());
        }
        return seconds;
    }

    const StatementTrace trace;
    TestLibrary library{test::InMemory{}};
    Ref<Project> website;
    Ref<Project> app;
    const Instant nine = at("2026-03-01T09:00Z");
};

TEST_F(TotalSeconds, countWhatHasBothInstantsAndPointsToTheOwner) {
    add(website, 60min);
    add(website, 15min);
    add(app, 7min);
    library.addEntry(website, nine, std::nullopt);
    EXPECT_EQ(total(website), 4500);
    library.context().save();
    EXPECT_EQ(total(website), 4500);
    EXPECT_EQ(total(app), 420);
}

TEST_F(TotalSeconds, subtractSpansThatRunBackwards) {
    add(website, 60min);
    add(website, -15min);
    EXPECT_EQ(total(website), 2700);
    library.context().save();
    EXPECT_EQ(total(website), 2700);
}

TEST_F(TotalSeconds, askTheLibraryOnceForEachOwner) {
    const auto entry = add(website, 60min);
    library.context().save();
    (void)StatementTrace::take();
    EXPECT_EQ(total(website), 3600);
    EXPECT_EQ(StatementTrace::take().size(), 1U);
    entry->end = nine + 2h;
    add(website, 30min);
    EXPECT_EQ(total(website), 9000);
    library.context().save();
    (void)StatementTrace::take();
    EXPECT_EQ(total(website), 9000);
    EXPECT_TRUE(StatementTrace::take().empty());
    EXPECT_EQ(total(app), 0);
    EXPECT_EQ(StatementTrace::take().size(), 1U);
}

TEST_F(TotalSeconds, areThoseOfTheLibraryAgainAfterSpilledEntriesAreRolledBack) {
    add(website, 60min);
    library.context().save();
    EXPECT_EQ(total(website), 3600);
    add(website, 30min);
    library.context().flushInserts();
    add(website, 10min);
    EXPECT_EQ(total(website), 6000);
    library.context().rollback();
    EXPECT_EQ(total(website), 3600);
}

TEST(TotalSecondsOnDisk, stayWhereASaveFails) {
    FaultyVfs disk;
    TestLibrary library;
    const auto website = library.addProject("Website", nullptr);
    library.context().save();
    const auto total = [&] {
        return library.context()
            .totalSeconds<&TimeEntry::project, &TimeEntry::start, &TimeEntry::end>(website->id());
    };
    EXPECT_EQ(total(), 0);
    library.addEntry(website, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    disk.failAt(1, SQLITE_FULL, FaultyVfs::Duration::once);
    EXPECT_THROW(library.context().save(), StoreError);
    EXPECT_EQ(total(), 3600);
    library.context().save();
    EXPECT_EQ(total(), 3600);
}

/// Whatever is done to entries, saved, taken back or not, the sums are those of the entries.
TEST_F(TotalSeconds, followEveryChange) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    std::vector<Ref<TimeEntry>> entries;
    const auto change = [&] {
        const auto& project = below(2) == 0 ? website : app;
        if (entries.empty() || below(3) == 0) {
            entries.push_back(add(project, std::chrono::minutes(below(90))));
            return;
        }
        const std::size_t place = below(entries.size());
        const auto entry = entries[place];
        switch (below(5)) {
            case 0:
                entry->project = project;
                break;
            case 1:
                entry->end = nine + std::chrono::minutes(below(90));
                break;
            case 2:
                entry->end = std::nullopt;
                break;
            case 3:
                entry->project = nullptr;
                break;
            default:
                library.context().deleteRecord(entry);
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(place));
                break;
        }
    };
    library.context().save();
    for (int step = 0; step < 2000; ++step) {
        change();
        if (below(8) == 0) library.context().save();
        if (below(20) == 0) {
            library.context().rollback();
            entries = library.context().fetch<TimeEntry>();
        }
        ASSERT_EQ(total(website), counted(website)) << step;
        ASSERT_EQ(total(app), counted(app)) << step;
    }
}

}  // namespace
}  // namespace elmworth
