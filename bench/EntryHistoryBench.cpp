// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What it takes to delete and to move the entries of a year, picked all at once, and to take that
// back, until it is durable.

#include <benchmark/benchmark.h>

#include "BenchLibrary.h"
#include "records/Invoice.h"
#include "tracking/EntryService.h"
#include "tracking/EntryUndoGuard.h"

namespace elmworth::bench {
namespace {

constexpr std::size_t pickedCount = 10'000;

/// The newest entries, none of them billed, as identities: no object of them is there.
struct Desk {
    explicit Desk(const benchmark::State& state) : library(state.range(0)) {
        for (const auto& entry :
             library.context().fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::end>() != absent,
             .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)},
             .fetchLimit = pickedCount})) {
            entry->invoice = nullptr;
            picked.push_back(entry->id());
        }
        library.context().save();
        history.setGuard(guard);
        project = library.timer.recentProjects(1).at(0);
    }
    void remove() { editing.deleteEntries(picked); }
    void move() { editing.moveEntries(picked, project); }
    void undo() { history.undo(); }
    void removeAndUndo() {
        remove();
        undo();
    }
    void redo() { history.redo(); }

    OpenLibrary library;
    std::vector<PersistentID> picked;
    Ref<Project> project;
    EntryUndoGuard guard{library.timer};
    UndoHistory history{library.context(), [this] { return library.now; }};
    EntryService editing{library.context(), history, library.timer, [this] { return library.now; },
                         &libraryCalendar};
};

template <void (Desk::*measured)(), void (Desk::*before)(), void (Desk::*after)()>
void perform(benchmark::State& state) {
    Desk desk(state);
    for (auto _ : state) {
        state.PauseTiming();
        if constexpr (before != nullptr) (desk.*before)();
        desk.library.loop.turn();
        state.ResumeTiming();
        (desk.*measured)();
        state.PauseTiming();
        if constexpr (after != nullptr) (desk.*after)();
        desk.library.loop.turn();
        state.ResumeTiming();
    }
}

[[maybe_unused]] const bool registered = [] {
    const auto add = [](const char* name, void (*function)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, function)
            ->Arg(200'000)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    add("deleteEntries", &perform<&Desk::remove, nullptr, &Desk::undo>);
    add("moveEntries", &perform<&Desk::move, nullptr, &Desk::undo>);
    add("undo/deleteEntries", &perform<&Desk::undo, &Desk::remove, nullptr>);
    add("undo/moveEntries", &perform<&Desk::undo, &Desk::move, nullptr>);
    add("redo/deleteEntries", &perform<&Desk::redo, &Desk::removeAndUndo, &Desk::undo>);
    return true;
}();

}  // namespace
}  // namespace elmworth::bench
