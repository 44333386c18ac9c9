// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "exchange/BackupDocuments.h"
#include "rescue/LibraryCheck.h"
#include "rescue/Recovery.h"
#include "support/DamagedPages.h"
#include "support/Instants.h"
#include "support/LibraryText.h"
#include "support/TestLibrary.h"

namespace elmworth::test {

/// A library with two hours that are billed, one that is not, and a timer.
class RecoveredLibrary : public testing::Test {
 protected:
    RecoveredLibrary() {
        acme_->hourlyRateCents = 12000;
        for (const char* start : {"2026-03-02T09:00:00Z", "2026-03-02T11:00:00Z"}) {
            const auto billed =
                library_.addEntry(website_, at(start), at(start) + std::chrono::hours(1));
            billed->notes = std::string("Work of ") + start;
            billed->invoice = invoice_;
            billed->billedRateCents = 11000;
        }
        invoice_->issueDate = invoice_->dueDate = at("2026-03-05T00:00Z");
        invoice_->periodStart = at("2026-03-01T00:00Z");
        invoice_->periodEnd = at("2026-04-01T00:00Z");
        invoice_->taxRateBasisPoints = 825;
        invoice_->currencyCode = "USD";
        library_.addEntry(website_, at("2026-03-03T09:00Z"), at("2026-03-03T10:00Z"))->notes =
            "Landing page";
        library_.addEntry(website_, at("2026-03-31T11:00Z"), std::nullopt);
        library_.context().save();
    }

    void takeSnapshot(std::string when = "2026-03-31T11:30:00Z") {
        const Instant now = at(when);
        std::replace(when.begin(), when.end(), ':', '-');
        when.pop_back();
        std::filesystem::create_directories(snapshots_);
        BackupExporter::writeFile(library_.context(), profile_, now,
                                  snapshots_ / ("Elmworth-" + when + ".json"));
    }
    /// The closed library for damage.
    DamagedPages pages() {
        library_.close();
        return DamagedPages(library_.file());
    }
    void damage(const std::string& table) {
        const auto damaged = pages();
        for (const auto page : damaged.of(table)) damaged.overwrite(page);
    }
    /// Recovers the closed library; the result passes the check, and the source stays as it is.
    RecoveryReport recover() {
        library_.close();
        const bool isThere = std::filesystem::exists(library_.file());
        const auto before = isThere ? readFile(library_.file()) : "";
        const auto names = library_.folder.names();
        auto report = recoverLibrary({library_.file(), snapshots_, profile_}, target(), now_);
        EXPECT_EQ(isThere ? readFile(library_.file()) : "", before);
        EXPECT_EQ(library_.folder.names().size(), names.size() + 1);
        for (const auto& finding : checkLibrary(sqlite::LibraryImage(report.library)).findings)
            ADD_FAILURE() << finding.line();
        EXPECT_EQ(readBackup(report.backup).profile, profile_);
        return report;
    }
    [[nodiscard]] std::filesystem::path target() const {
        return library_.folder.path() / "recovered";
    }

    /// What `read` says of the recovered library.
    template <class Read>
    auto recovered(const Read& read) {
        Library result({target() / "library.sqlite"}, library_.runLoop);
        return read(result.mainContext());
    }
    std::string recoveredText() {
        return recovered([](UnitOfWork& context) { return libraryText(context); });
    }
    /// Start, length in minutes, project, invoice and notes of each finished entry.
    std::vector<std::string> recoveredEntries() {
        return recovered([](UnitOfWork& context) {
            std::vector<std::string> lines;
            for (const auto& entry : context.fetch<TimeEntry>()) {
                if (entry->isRunning()) continue;
                lines.push_back(formatISO8601(entry->start) + ' ' +
                                std::to_string(static_cast<int>(entry->duration() / 60)) + ' ' +
                                entry->project->name.get() + ' ' +
                                (entry->invoice ? entry->invoice->number.get() : "unbilled") + ' ' +
                                entry->notes.get());
            }
            return lines;
        });
    }

    const Instant now_ = at("2026-03-31T12:00Z");
    BusinessProfile profile_{.name = "Jane Doe Design"};
    TestLibrary library_;
    const std::filesystem::path snapshots_ = library_.folder.path() / "Backups";
    Ref<Client> acme_ = library_.addClient("Acme");
    Ref<Client> globex_ = library_.addClient("Globex");
    Ref<Project> website_ = library_.addProject("Website", acme_);
    Ref<Project> shop_ = library_.addProject("Shop", globex_);
    Ref<Invoice> invoice_ = library_.addInvoice("INV-1", acme_);
};

inline constexpr const char* allEntries[] = {
    "2026-03-02T09:00:00Z 60 Website INV-1 Work of 2026-03-02T09:00:00Z",
    "2026-03-02T11:00:00Z 60 Website INV-1 Work of 2026-03-02T11:00:00Z",
    "2026-03-03T09:00:00Z 60 Website unbilled Landing page"};

}  // namespace elmworth::test
