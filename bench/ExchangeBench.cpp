// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The whole library out and in: backup, restore, CSV export and import.

#include <benchmark/benchmark.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "BareLibrary.h"
#include "BenchLibrary.h"
#include "Sizes.h"
#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"
#include "exchange/CSVDocument.h"
#include "exchange/CSVImporter.h"
#include "exchange/Restore.h"
#include "exchange/SnapshotJob.h"
#include "platform/AtomicFile.h"
#include "platform/TextEncoding.h"
#include "tracking/TimesheetReader.h"

namespace elmworth::bench {
namespace {

namespace fs = std::filesystem;

/// An empty library to load into, thrown away afterwards.
class EmptyLibrary {
 public:
    EmptyLibrary() : container_(LibraryOptions{file()}, loop_) {}
    [[nodiscard]] UnitOfWork& context() { return container_.mainContext(); }
    [[nodiscard]] fs::path file() const { return folder_.path() / "library.sqlite"; }

 private:
    test::TemporaryFolder folder_;
    NoRunLoop loop_;
    Library container_;
};

// --- backup ------------------------------------------------------------------------------------

void backUp(UnitOfWork& context, const fs::path& file) {
    BackupExporter::writeFile(context, {}, libraryNow(), file);
}

void backup(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    for (auto _ : state) backUp(library.context(), file);
    state.counters["bytes"] = static_cast<double>(fs::file_size(file));
}

/// A pass over the rows, RapidJSON writing the same values, one write and one sync.
void backupBare(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    backUp(library.context(), file);
    const std::string document = readFile(file);
    const LibraryCopy copy(state.range(0));
    const BareLibrary bare(copy.file());
    auto entries = bare.prepare(std::string(selectEntries) + R"( ORDER BY "project", "start")");
    rapidjson::StringBuffer buffer;
    for (auto _ : state) {
        readEntries(entries);
        buffer.Clear();
        rapidjson::PrettyWriter writer(buffer);
        rapidjson::StringStream stream(document.c_str());
        rapidjson::Reader().Parse(stream, writer);
        writeAtomically(file, {buffer.GetString(), buffer.GetSize()});
    }
    state.counters["bytes"] = static_cast<double>(fs::file_size(file));
}

/// What of the figure above is the parsing that feeds the writer.
void parseBare(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    backUp(library.context(), file);
    const std::string document = readFile(file);
    for (auto _ : state) {
        rapidjson::StringStream stream(document.c_str());
        rapidjson::BaseReaderHandler<> handler;
        rapidjson::Reader().Parse(stream, handler);
    }
}

/// A snapshot in steps, of which none may take longer than a frame.
void snapshot(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    double longest = 0;
    for (auto _ : state) {
        SnapshotJob job(library.context(), {}, libraryNow(), folder.path() / "snapshot.json");
        bool goesOn = true;
        while (goesOn) {
            const auto begin = std::chrono::steady_clock::now();
            goesOn = job.advance();
            const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
            longest = std::max(longest, took.count());
        }
    }
    state.counters["longestStepSeconds"] = longest;
}

// --- restore -----------------------------------------------------------------------------------

void restoreBackup(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    backUp(library.context(), file);
    for (auto _ : state) {
        state.PauseTiming();
        std::optional<EmptyLibrary> empty(std::in_place);
        state.ResumeTiming();
        FileSource source(file);
        const auto document = decodeBackup(source);
        restore(document, empty->context());
        state.PauseTiming();
        empty.reset();
        state.ResumeTiming();
    }
}

/// The rows of a table, as bare inserts take them.
class TableRows {
 public:
    TableRows(const BareLibrary& library, std::string table) : table_(std::move(table)) {
        auto all = library.prepare("SELECT * FROM \"" + table_ + '"');
        columns_ = sqlite3_column_count(all.handle());
        while (all.step()) {
            for (int column = 0; column < columns_; ++column) {
                values_.emplace_back(sqlite3_value_dup(sqlite3_column_value(all.handle(), column)));
            }
        }
    }
    void insertInto(const BareLibrary& library) const {
        std::string places = "?";
        for (int i = 1; i < columns_; ++i) places += ",?";
        auto insertion = library.prepare("INSERT INTO \"" + table_ + "\" VALUES (" + places + ")");
        int column = 0;
        for (const auto& value : values_) {
            sqlite3_bind_value(insertion.handle(), ++column, value.get());
            if (column < columns_) continue;
            insertion.step();
            insertion.reset();
            column = 0;
        }
    }

 private:
    struct Free {
        void operator()(sqlite3_value* value) const noexcept { sqlite3_value_free(value); }
    };
    std::string table_;
    int columns_ = 0;
    std::vector<std::unique_ptr<sqlite3_value, Free>> values_;
};

/// The same rows into the same tables with their indexes, and the parsing without a use of it.
void loadBare(benchmark::State& state, const std::function<void()>& parse) {
    std::vector<TableRows> tables;
    {
        const LibraryCopy copy(state.range(0));
        const BareLibrary source(copy.file());
        for (const auto* table : {"Client", "Project", "Invoice", "TimeEntry"}) {
            tables.emplace_back(source, table);
        }
    }
    for (auto _ : state) {
        state.PauseTiming();
        const test::TemporaryFolder folder;
        const auto file = folder.path() / "library.sqlite";
        {
            NoRunLoop loop;
            const Library container(LibraryOptions{file}, loop);
        }
        std::optional<BareLibrary> target(file);
        state.ResumeTiming();
        parse();
        target->execute("BEGIN IMMEDIATE");
        for (const auto& table : tables) table.insertInto(*target);
        target->execute("COMMIT");
        state.PauseTiming();
        target.reset();
        state.ResumeTiming();
    }
}

void restoreBare(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    backUp(library.context(), file);
    loadBare(state, [&] {
        const std::string document = readFile(file);
        rapidjson::StringStream stream(document.c_str());
        rapidjson::BaseReaderHandler<> handler;
        rapidjson::Reader().Parse(stream, handler);
    });
}

// --- CSV ---------------------------------------------------------------------------------------

void exportTo(UnitOfWork& context, const fs::path& file) {
    TimesheetFilter everything;
    everything.range = {Instant(), libraryNow()};
    AtomicFile target(file);
    CSVDocument document("Europe/Berlin", [&](std::string_view text) { target.write(text); });
    TimesheetReader(context, everything, libraryNow()).forEach([&](const TimeEntry& entry) {
        if (entry.isRunning()) return;
        const auto& project = entry.project.get();
        document.add(entry.start, *entry.end.get(), project->client->name.get(),
                     project->name.get(), entry.notes.get());
    });
    document.finish();
    target.commit();
}

void exportCSV(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "time.csv";
    for (auto _ : state) exportTo(library.context(), file);
    state.counters["bytes"] = static_cast<double>(fs::file_size(file));
}

/// A pass over the rows, and one write of the same bytes.
void exportBare(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "time.csv";
    exportTo(library.context(), file);
    const std::string text = readFile(file);
    const LibraryCopy copy(state.range(0));
    const BareLibrary bare(copy.file());
    auto entries = bare.prepare(std::string(selectEntries) + R"( ORDER BY "start")");
    for (auto _ : state) {
        readEntries(entries);
        writeAtomically(file, text);
    }
}

CSVImporter::Result import(const fs::path& file, UnitOfWork& context) {
    const auto text = decodeText(readFile(file));
    return CSVImporter::apply(CSVImporter::parse(*text, "Europe/Berlin"), context);
}

void importCSV(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "time.csv";
    exportTo(library.context(), file);
    for (auto _ : state) {
        state.PauseTiming();
        std::optional<EmptyLibrary> empty(std::in_place);
        state.ResumeTiming();
        benchmark::DoNotOptimize(import(file, empty->context()));
        state.PauseTiming();
        empty.reset();
        state.ResumeTiming();
    }
}

void importAgain(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "time.csv";
    exportTo(library.context(), file);
    for (auto _ : state) {
        if (import(file, library.context()).imported != 0) state.SkipWithError("not all are known");
    }
}

void importBare(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "time.csv";
    exportTo(library.context(), file);
    loadBare(state, [&] {
        const std::string text = readFile(file);
        std::size_t fields = 0;
        for (auto place = text.find_first_of(",\n"); place != std::string::npos;
             place = text.find_first_of(",\n", place + 1)) {
            ++fields;
        }
        benchmark::DoNotOptimize(fields);
    });
}

void onBig(benchmark::internal::Benchmark* benchmark) {
    onEverySize(benchmark);
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(backup)->Apply(onBig);
BENCHMARK(backupBare)->Name("limit/backup")->Apply(onBig);
BENCHMARK(snapshot)->Apply(onBig);
BENCHMARK(parseBare)->Name("part/parse")->Apply(onBig);
BENCHMARK(restoreBackup)->Name("restore")->Apply(onBig);
BENCHMARK(restoreBare)->Name("limit/restore")->Apply(onBig);
BENCHMARK(exportCSV)->Name("export")->Apply(onBig);
BENCHMARK(exportBare)->Name("limit/export")->Apply(onBig);
BENCHMARK(importCSV)->Name("import")->Apply(onBig);
BENCHMARK(importBare)->Name("limit/import")->Apply(onBig);
BENCHMARK(importAgain)->Name("importAgain")->Apply(onBig);

}  // namespace
}  // namespace elmworth::bench
