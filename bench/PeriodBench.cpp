// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the screens ask for when they open: a week with its total, a year by project.

#include <benchmark/benchmark.h>

#include <string>
#include <unordered_map>

#include "BareLibrary.h"
#include "BenchLibrary.h"
#include "Sizes.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth::bench {
namespace {

DateInterval period(CalendarUnit unit) {
    return *libraryCalendar().interval(unit, libraryNow());
}

Query<TimeEntry> entriesOf(const DateInterval& interval) {
    return {.predicate = key<&TimeEntry::start>() >= interval.start &&
                         key<&TimeEntry::start>() < interval.end,
            .sortBy = {sortedBy<&TimeEntry::start>()}};
}

void week(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const auto descriptor = entriesOf(period(CalendarUnit::weekOfYear));
    std::size_t rows = 0;
    for (auto _ : state) {
        const auto entries = library.context().fetch(descriptor);
        double seconds = 0;
        for (const auto& entry : entries) seconds += entry->duration(library.now);
        benchmark::DoNotOptimize(seconds);
        rows = entries.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void yearByProject(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const auto descriptor = entriesOf(period(CalendarUnit::year));
    std::size_t rows = 0;
    for (auto _ : state) {
        const auto entries = library.context().fetch(descriptor);
        std::unordered_map<PersistentID, double> seconds;
        for (const auto& entry : entries) {
            seconds[entry->project.id().value_or(PersistentID{})] += entry->duration(library.now);
        }
        benchmark::DoNotOptimize(seconds);
        rows = entries.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void readBare(benchmark::State& state, CalendarUnit unit) {
    const LibraryCopy copy(state.range(0));
    const BareLibrary library(copy.file());
    const auto interval = period(unit);
    auto statement =
        library.prepare(std::string(selectEntries) +
                        R"( WHERE "start" >= ? AND "start" < ? ORDER BY "start", "id")");
    std::size_t rows = 0;
    for (auto _ : state) {
        bindInstant(statement, 0, interval.start);
        bindInstant(statement, 1, interval.end);
        rows = readEntries(statement);
    }
    state.counters["rows"] = static_cast<double>(rows);
}

BENCHMARK(week)->Apply(onEverySize)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readBare, week, CalendarUnit::weekOfYear)
    ->Name("limit/week")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(yearByProject)->Name("year")->Apply(onEverySize)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readBare, year, CalendarUnit::year)
    ->Name("limit/year")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);

/// The two sums beside the running timer.
void todayAndWeekSeconds(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(library.timer.todaySeconds());
        benchmark::DoNotOptimize(library.timer.thisWeekSeconds());
    }
}
BENCHMARK(todayAndWeekSeconds)->Name("totals")->Apply(onEverySize)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace elmworth::bench
