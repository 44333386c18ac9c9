// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include "support/LibraryTest.h"
#include "tracking/EntryService.h"

namespace elmworth::test {

using Rows = std::vector<std::string>;

/// A person's library on Monday, 2026-03-02, at 09:00, with two entries on "Website".
class HistoryTest : public LibraryTest {
 protected:
    HistoryTest() { context().save(); }
    explicit HistoryTest(InMemory place) : LibraryTest(place) { context().save(); }

    Ref<TimeEntry> add(const std::string& from, const std::string& to, const std::string& notes) {
        const auto entry =
            timer.library.addEntry(website_, TestTimer::today(from), TestTimer::today(to));
        entry->notes = notes;
        return entry;
    }
    void bill(const Ref<TimeEntry>& entry) { LibraryTest::bill(entry, "INV-1"); }
    EntryTally remove(const std::vector<Ref<TimeEntry>>& entries) {
        return editing_.deleteEntries(ids(entries));
    }
    EntryTally move(const std::vector<Ref<TimeEntry>>& entries, const Ref<Project>& project) {
        return editing_.moveEntries(ids(entries), project);
    }
    /// Saves the editor with these values.
    Ref<TimeEntry> edit(const Ref<TimeEntry>& entry, const std::string& from, const std::string& to,
                        const std::string& notes) {
        const bool runs = entry && entry->isRunning();
        return editing_.save({website_, TestTimer::today(from), TestTimer::today(to), notes, runs},
                             entry);
    }
    /// The entry of an identity, which may be another object after an undo.
    [[nodiscard]] Ref<TimeEntry> again(const Ref<TimeEntry>& entry) {
        return context().record<TimeEntry>(entry->id());
    }
    /// All entries as "06:00-06:30 Website a", by start; "09:00- …" for a running one.
    [[nodiscard]] Rows rows() {
        Rows rows;
        for (const auto& entry :
             context().fetch(Query<TimeEntry>{.sortBy = {sortedBy<&TimeEntry::start>()}})) {
            rows.push_back(
                time(entry->start) + '-' + (entry->end.get() ? time(*entry->end.get()) : "") + ' ' +
                (entry->project ? entry->project->name.get() : "none") + ' ' + entry->notes.get());
        }
        return rows;
    }
    /// The same of what is on disk. Ends the timer and the history.
    [[nodiscard]] Rows storedRows() {
        timer.restart();
        return rows();
    }

 private:
    static std::string time(Instant instant) { return iso(instant).substr(11, 5); }

 protected:
    Ref<Client> acme_ = timer.library.addClient("Acme");
    Ref<Project> website_ = timer.library.addProject("Website", acme_);
    Ref<Project> app_ = timer.library.addProject("App", acme_);
    Ref<TimeEntry> first_ = add("06:00", "06:30", "a");
    Ref<TimeEntry> second_ = add("07:00", "07:30", "b");
    EntryService editing_{context(), history(), service(), [this] { return timer.now; },
                          [this] { return timer.calendar; }};
};

}  // namespace elmworth::test
