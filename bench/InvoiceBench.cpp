// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Making an invoice of many entries, from the question what is unbilled to the durable draft.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "BareLibrary.h"
#include "BenchLibrary.h"
#include "invoicing/InvoiceBuilder.h"
#include "records/Client.h"
#include "records/Project.h"

namespace elmworth::bench {
namespace {

using namespace std::chrono_literals;

constexpr int entryCount = 500;
const Instant periodStart = libraryNow() + 24h;
const Instant periodEnd = periodStart + entryCount * 10min;

/// Adds a client whose unbilled time is `entryCount` entries in the days after the library's end.
Ref<Client> addUnbilledWork(UnitOfWork& context) {
    const auto client = std::make_shared<Client>("Unbilled");
    context.insert(client);
    const auto project = std::make_shared<Project>("Unbilled work", client);
    context.insert(project);
    for (int i = 0; i < entryCount; ++i) {
        const auto entry = std::make_shared<TimeEntry>(periodStart + i * 10min, project);
        entry->end = entry->start.get() + 9min;
        entry->notes = "Homepage hero and navigation";
        context.insert(entry);
    }
    context.save();
    return client;
}

void createInvoice(benchmark::State& state) {
    OpenLibrary library(state.range(0));
    const auto client = addUnbilledWork(library.context());
    library.loop.turn();
    const InvoiceBuilder builder{library.context(), [&] { return library.now; }, libraryCalendar()};
    BusinessProfile profile;
    for (auto _ : state) {
        const auto invoice = builder.createInvoice(client, periodStart, periodEnd, 1900, profile);
        state.PauseTiming();
        builder.deleteInvoice(invoice);
        library.loop.turn();
        state.ResumeTiming();
    }
}

std::vector<PersistentID> unbilledEntries(const BareLibrary& library) {
    auto query = library.prepare(
        std::string(selectEntries) +
        R"( WHERE "end" IS NOT NULL AND "invoice" IS NULL AND "start" >= ? AND "start" < ?)");
    bindInstant(query, 0, periodStart);
    bindInstant(query, 1, periodEnd);
    std::vector<PersistentID> found;
    while (query.step()) found.push_back(query.identity(0));
    return found;
}

void bill(const BareLibrary& library, const std::vector<PersistentID>& entries, int number) {
    auto insertion = library.prepare(
        R"(INSERT INTO "Invoice" SELECT ?, ?, "client", "statusRaw", "issueDate", "dueDate",
           "periodStart", "periodEnd", "taxRateBasisPoints", "roundingMinutes", "currencyCode",
           "notes", "paidAt", "showsEntryDetails", "businessSnapshot" FROM "Invoice" LIMIT 1)");
    const auto invoice = PersistentID::make();
    insertion.bind(0, invoice);
    insertion.bind(1, Value{"BARE-" + std::to_string(number)});
    insertion.step();
    auto update = library.prepare(
        R"(UPDATE "TimeEntry" SET "invoice" = ?, "billedRateCents" = 10000 WHERE "id" = ?)");
    for (const auto& entry : entries) {
        update.bind(0, invoice);
        update.bind(1, entry);
        update.step();
        update.reset();
    }
}

void createBare(benchmark::State& state) {
    const LibraryCopy copy(state.range(0));
    {
        NoRunLoop loop;
        Library container(LibraryOptions{copy.file()}, loop);
        addUnbilledWork(container.mainContext());
    }
    BareLibrary library(copy.file());
    int number = 0;
    for (auto _ : state) {
        const auto entries = unbilledEntries(library);
        if (entries.size() != entryCount) state.SkipWithError("entries are missing");
        library.execute("BEGIN IMMEDIATE");
        bill(library, entries, ++number);
        library.execute("COMMIT");
        state.PauseTiming();
        library.execute(
            R"(UPDATE "TimeEntry" SET "invoice" = NULL WHERE "invoice" IN
               (SELECT "id" FROM "Invoice" WHERE "number" LIKE 'BARE-%'))");
        library.tidy();
        state.ResumeTiming();
    }
}

BENCHMARK(createInvoice)
    ->Name("createInvoice")
    ->Arg(200'000)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK(createBare)
    ->Name("limit/createInvoice")
    ->Arg(200'000)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

}  // namespace
}  // namespace elmworth::bench
