// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opening a library until the running timer is known.

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>

#include "BareLibrary.h"
#include "BenchLibrary.h"
#include "Sizes.h"

namespace elmworth::bench {
namespace {

void openAndRestore(benchmark::State& state) {
    const LibraryCopy library(state.range(0));
    NoRunLoop loop;
    for (auto _ : state) {
        std::optional<Library> container(std::in_place, LibraryOptions{library.file()}, loop);
        TimerService timer(container->mainContext(), &libraryNow, loop, &libraryCalendar);
        timer.restore();
        if (!timer.running()) state.SkipWithError("no timer runs");
        state.PauseTiming();
        container.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(openAndRestore)->Name("open")->Apply(onEverySize)->Unit(benchmark::kMicrosecond);

void openBare(benchmark::State& state) {
    const LibraryCopy library(state.range(0));
    for (auto _ : state) {
        auto bare = std::make_unique<BareLibrary>(library.file());
        auto open = std::make_unique<sqlite::Statement>(bare->prepare(
            std::string(selectEntries) + R"( WHERE "end" IS NULL ORDER BY "start" DESC)"));
        if (readEntries(*open) != 1) state.SkipWithError("no timer runs");
        state.PauseTiming();
        open.reset();
        bare.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(openBare)->Name("limit/open")->Apply(onEverySize)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace elmworth::bench
