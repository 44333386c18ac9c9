// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the timesheet does before it paints: reading a period, finding what is typed, listing days.

#include <benchmark/benchmark.h>

#include "BenchLibrary.h"
#include "Sizes.h"
#include "tracking/TimesheetDays.h"

namespace elmworth::bench {
namespace {

using Pieces = std::vector<std::shared_ptr<const TimesheetPiece>>;

DateInterval span(CalendarUnit unit) {
    return *libraryCalendar().interval(unit, libraryNow());
}

DateInterval allYears() {
    return {*libraryCalendar().adding(-21, CalendarUnit::year, libraryNow()), libraryNow()};
}

Pieces readAll(OpenLibrary& library, const DateInterval& range) {
    TimesheetFilter filter;
    filter.range = range;
    const TimesheetReader reader(library.context(), filter, library.now);
    Pieces pieces;
    for (std::size_t i = 0; i + 1 < reader.pieceCount(); ++i) pieces.push_back(reader.read(i));
    pieces.push_back(std::make_shared<TimesheetPiece>());
    return pieces;
}

void list(benchmark::State& state, const DateInterval& range) {
    OpenLibrary library(state.range(0));
    const auto projects = library.context().fetch<Project>();
    const auto clients = library.context().fetch<Client>();
    std::size_t rows = 0;
    for (auto _ : state) {
        const auto listing = listTimesheet(readAll(library, range), range, library.now,
                                           libraryCalendar(), TimesheetSearch(""));
        rows = listing.entries.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void search(benchmark::State& state, const DateInterval& range, const char* typed) {
    OpenLibrary library(state.range(0));
    const auto pieces = readAll(library, range);
    std::size_t rows = 0;
    for (auto _ : state) {
        const auto listing =
            listTimesheet(pieces, range, library.now, libraryCalendar(), TimesheetSearch(typed));
        rows = listing.entries.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

BENCHMARK_CAPTURE(list, week, span(CalendarUnit::weekOfYear))
    ->Name("timesheet/week")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(list, year, span(CalendarUnit::year))
    ->Name("timesheet/year")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(list, allYears, allYears())
    ->Name("timesheet/allYears")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(search, ascii, span(CalendarUnit::year), "review")
    ->Name("timesheet/search/year")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(search, other, span(CalendarUnit::year), "prüf")
    ->Name("timesheet/searchByCollation/year")
    ->Apply(onEverySize)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace elmworth::bench
