// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a click on the timer takes until it is durable, and what the timer takes each second.

#include <benchmark/benchmark.h>

#include "BareLibrary.h"
#include "BenchLibrary.h"
#include "Sizes.h"

namespace elmworth::bench {
namespace {

using namespace std::chrono_literals;

/// A library between two clicks: what is not measured happens in `pass`.
struct Desk {
    explicit Desk(const benchmark::State& state) : library(state.range(0)) {
        projects = library.timer.recentProjects(2);
    }
    void pass() {
        library.loop.turn();
        library.now += 1h;
    }

    OpenLibrary library;
    std::vector<Ref<Project>> projects;
};

void start(benchmark::State& state) {
    Desk desk(state);
    for (auto _ : state) {
        state.PauseTiming();
        desk.library.timer.stop();
        desk.pass();
        state.ResumeTiming();
        desk.library.timer.start(desk.projects[0]);
    }
}

void stop(benchmark::State& state) {
    Desk desk(state);
    for (auto _ : state) {
        state.PauseTiming();
        desk.library.timer.start(desk.projects[0]);
        desk.pass();
        state.ResumeTiming();
        desk.library.timer.stop();
    }
}

void switchProject(benchmark::State& state) {
    Desk desk(state);
    std::size_t next = 0;
    for (auto _ : state) {
        desk.library.timer.start(desk.projects[next]);
        state.PauseTiming();
        next = 1 - next;
        desk.pass();
        state.ResumeTiming();
    }
}

/// The same rows written with bare SQLite: one new entry, and the end of the one before.
struct BareDesk {
    explicit BareDesk(const benchmark::State& state) : copy(state.range(0)), library(copy.file()) {
        auto anyProject = library.prepare(R"(SELECT "project" FROM "TimeEntry" LIMIT 1)");
        anyProject.step();
        project = anyProject.identity(0);
        anyProject.reset();
    }

    void insert() {
        running = PersistentID::make();
        now += 1h;
        insertion.bind(0, running);
        bindInstant(insertion, 1, now);
        insertion.bind(2, project);
        insertion.step();
        insertion.reset();
    }
    void finish() {
        bindInstant(update, 0, now + 30min);
        update.bind(1, running);
        update.step();
        update.reset();
    }
    void run(sqlite::Statement& statement) {
        statement.step();
        statement.reset();
    }
    void tidyNowAndThen() {
        if (++commits % 30 == 0) library.tidy();
    }

    LibraryCopy copy;
    BareLibrary library;
    Instant now = libraryNow();
    PersistentID project;
    PersistentID running;
    int commits = 0;
    sqlite::Statement begin = library.prepare("BEGIN IMMEDIATE");
    sqlite::Statement commit = library.prepare("COMMIT");
    sqlite::Statement insertion =
        library.prepare(R"(INSERT INTO "TimeEntry" VALUES(?,?,NULL,'',?,NULL,NULL))");
    sqlite::Statement update =
        library.prepare(R"(UPDATE "TimeEntry" SET "end" = ? WHERE "id" = ?)");
};

template <bool inserts, bool finishes>
void commitBare(benchmark::State& state) {
    BareDesk desk(state);
    desk.insert();
    for (auto _ : state) {
        desk.run(desk.begin);
        if (finishes) desk.finish();
        if (inserts) desk.insert();
        desk.run(desk.commit);
        state.PauseTiming();
        desk.tidyNowAndThen();
        state.ResumeTiming();
    }
}

void registerWithSizes(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)
        ->Apply(onEverySize)
        ->Unit(benchmark::kMicrosecond)
        ->UseRealTime();
}

[[maybe_unused]] const bool registered = [] {
    registerWithSizes("start", &start);
    registerWithSizes("limit/start", &commitBare<true, false>);
    registerWithSizes("stop", &stop);
    registerWithSizes("limit/stop", &commitBare<false, true>);
    registerWithSizes("switch", &switchProject);
    registerWithSizes("limit/switch", &commitBare<true, true>);
    return true;
}();

void tick(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    for (auto _ : state) {
        library.now += 1s;
        library.loop.fire();
    }
    if (library.timer.elapsedText().empty()) state.SkipWithError("no timer runs");
}
BENCHMARK(tick)->Apply(onEverySize)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace elmworth::bench
