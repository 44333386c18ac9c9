// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "exchange/BackupExporter.h"
#include "exchange/CSVImporter.h"
#include "exchange/Restore.h"
#include "support/BackupObjects.h"
#include "support/Instants.h"
#include "support/StoppingProgress.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::StoppingProgress;
using test::TemporaryFolder;
using test::TestLibrary;

/// More than go into memory at once.
constexpr int manyEntries = 9000;

/// Does `work` with a progress that stops at the first report, at a later one, and so on until the
/// work gets to its end, and calls `verify` after each stop.
template <class Work, class Verify>
void stopAtEachReport(const Work& work, const Verify& verify) {
    constexpr int stride = 17;
    int stops = 0;
    for (int n = 1;; n += stride) {
        StoppingProgress progress(n);
        try {
            work(progress);
        } catch (const Cancelled&) {
            ++stops;
            verify();
            continue;
        }
        EXPECT_FALSE(progress.hasStopped());
        EXPECT_GT(stops, 1);
        return;
    }
}

void expectEmpty(TestLibrary& library) {
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
    EXPECT_EQ(library.context().fetchCount<Project>(), 0U);
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 0U);
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 0U);
}

TEST(StoppedRestore, changesNothingWhereverItStops) {
    Backup backup;
    backup.exportedAt = at("2026-03-01T12:00Z");
    auto project = test::projectObject("Website");
    for (int i = 0; i < manyEntries; ++i) {
        const Instant start = at("2025-03-01T12:00Z") + i * 1h;
        project.items.push_back(test::entryObject(start, start + 30min));
        project.items.back()["invoiceNumber"] = "INV-1";
        project.items.back()["billedRateCents"] = 100;
    }
    backup.clients.push_back(test::clientObject("Acme", {std::move(project)}));
    backup.invoices.push_back(
        test::object(backupShapes().invoice, {{"number", "INV-1"}, {"clientIndex", 0}}));

    TestLibrary library;
    stopAtEachReport([&](Progress& progress) { restore(backup, library.context(), progress); },
                     [&] { expectEmpty(library); });
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), std::size_t{manyEntries});
}

TEST(StoppedImport, changesNothingWhereverItStops) {
    std::vector<CSVImporter::Row> rows;
    for (int i = 0; i < manyEntries; ++i) {
        const Instant start = at("2025-03-01T12:00Z") + i * 1h;
        rows.push_back({"Acme", "Website", "", start, start + 30min});
    }
    TestLibrary library;
    stopAtEachReport(
        [&](Progress& progress) {
            try {
                CSVImporter::apply(rows, library.context(), progress);
            } catch (...) {
                library.context().rollback();
                throw;
            }
        },
        [&] { expectEmpty(library); });
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), std::size_t{manyEntries});
}

TEST(StoppedBackup, leavesTheFileAsItWasAndNothingBesideIt) {
    TestLibrary library;
    const auto project = library.addProject("Website", library.addClient("Acme"));
    for (int i = 0; i < manyEntries; ++i) {
        const auto entry =
            library.addEntry(project, at("2025-03-01T12:00Z") + i * 1h, std::nullopt);
        entry->end = entry->start.get() + 30min;
        entry->notes = std::string(500, 'n');
    }
    library.context().save();
    const TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    writeAtomically(file, "yesterday's");
    StoppingProgress progress(1);
    EXPECT_THROW(
        BackupExporter::writeFile(library.context(), {}, at("2026-03-01T12:00Z"), file, progress),
        Cancelled);
    EXPECT_EQ(readFile(file), "yesterday's");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

}  // namespace
}  // namespace elmworth
