// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Random libraries with random damage.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>
#include <set>

#include "exchange/BackupExporter.h"
#include "exchange/RandomLibrary.h"
#include "rescue/LibraryCheck.h"
#include "rescue/Recovery.h"
#include "support/DamagedPages.h"
#include "support/LibraryText.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::at;
using test::DamagedPages;
using testing::EndsWith;

/// Gives the records what the program would have stored.
void keepRules(UnitOfWork& context) {
    const auto tidy = [](std::int64_t number, std::int64_t limit) { return number % limit; };
    for (const auto& client : context.fetch<Client>()) {
        if (client->name->empty()) client->name = "Somebody";
        if (client->dueDays.get()) client->dueDays = tidy(*client->dueDays.get(), 120);
        if (client->taxBasisPoints.get())
            client->taxBasisPoints = tidy(*client->taxBasisPoints.get(), 10000);
    }
    for (const auto& project : context.fetch<Project>()) {
        if (project->name->empty()) project->name = "Something";
        project->colorHex = "#00C2A8";
    }
    for (const auto& invoice : context.fetch<Invoice>()) {
        if (!invoiceStatusFromRawValue(invoice->statusRaw.get())) invoice->statusRaw = "paid";
    }
    bool hasTimer = false;
    for (const auto& entry : context.fetch<TimeEntry>()) {
        if (!entry->isRunning()) continue;
        if (hasTimer) entry->end = entry->start.get() + std::chrono::hours(1);
        if (!hasTimer) entry->invoice = nullptr;
        hasTimer = true;
    }
    context.save();
}

class RandomDamage : public testing::TestWithParam<unsigned> {
 protected:
    RandomDamage() {
        const test::RandomLibrary contents(library_, GetParam(),
                                           test::RandomLibrary::Contents::anything);
        keepRules(library_.context());
        text_ = test::libraryText(library_.context());
        if (below(2) == 0) {
            fs::create_directories(snapshots_);
            BackupExporter::writeFile(library_.context(), {}, now_,
                                      snapshots_ / "Elmworth-2026-12-31T12-00-00.json");
        }
        library_.close();
    }

    std::size_t below(std::size_t limit) { return random_() % limit; }
    std::size_t anyPage(const DamagedPages& pages) { return 1 + below(pages.count()); }

    void damage(const DamagedPages& pages) {
        if (pages.count() == 0) return;
        const std::size_t place = (anyPage(pages) - 1) * pages.pageSize();
        switch (below(5)) {
            case 0:
                return pages.overwrite(anyPage(pages));
            case 1:
                return pages.write(place, std::string(pages.pageSize(), '\0'));
            case 2:
                return pages.write(place + below(pages.pageSize()),
                                   std::string(1 + below(8), static_cast<char>(random_())));
            case 3:  // the head of the page
                return pages.write(place + below(24), std::string(1, static_cast<char>(random_())));
            default:
                return fs::resize_file(library_.file(), below(fs::file_size(library_.file()) + 1));
        }
    }

    RecoveryReport recover() {
        const auto bytes = readFile(library_.file());
        struct stat before {};
        struct stat after {};
        ::stat(library_.file().c_str(), &before);
        const auto names = library_.folder.names().size();
        auto report =
            recoverLibrary({library_.file(), snapshots_, BusinessProfile{}}, target_, now_);
        static_cast<void>(checkLibrary(sqlite::LibraryImage(library_.file())));
        ::stat(library_.file().c_str(), &after);
        EXPECT_EQ(readFile(library_.file()), bytes);
        EXPECT_EQ(before.st_mtim.tv_nsec, after.st_mtim.tv_nsec);
        EXPECT_EQ(library_.folder.names().size(), names + 1) << "but for the new folder";
        return report;
    }
    std::string recoveredText() {
        Library result({target_ / "library.sqlite"}, library_.runLoop);
        return test::libraryText(result.mainContext());
    }

    std::mt19937 random_{GetParam()};
    const Instant now_ = at("2026-12-31T12:00Z");
    test::TestLibrary library_{test::TestLibrary::emptyFile()};
    const fs::path snapshots_ = library_.folder.path() / "Backups";
    const fs::path target_ = library_.folder.path() / "recovered";
    std::string text_;
};

TEST_P(RandomDamage, isFoundOnlyWhereThereIsSome) {
    for (const auto& finding : checkLibrary(sqlite::LibraryImage(library_.file())).findings)
        ADD_FAILURE() << finding.line();
    static_cast<void>(recover());
    EXPECT_EQ(recoveredText(), text_);
}

TEST_P(RandomDamage, ofIndexesCostsNothing) {
    const DamagedPages pages(library_.file());
    std::set<std::size_t> rows;
    for (const char* table : {"sqlite_schema", "Client", "Project", "TimeEntry", "Invoice"}) {
        for (const auto page : pages.of(table)) rows.insert(page);
    }
    for (std::size_t page = 1; page <= pages.count(); ++page) {
        if (!rows.contains(page) && below(2) == 0) pages.overwrite(page);
    }
    static_cast<void>(recover());
    EXPECT_EQ(recoveredText(), text_);
}

TEST_P(RandomDamage, leavesASoundLibraryOfTheRest) {
    const DamagedPages pages(library_.file());
    for (std::size_t i = 0; i <= below(3); ++i) damage(pages);
    try {
        static_cast<void>(recover());
    } catch (const RecoveryError&) {
        return;  // nothing was left
    } catch (const StoreError& error) {
        EXPECT_THAT(error.what(), EndsWith("which needs a newer Elmworth than this one."));
        return;
    }
    // Damage that looks like a number is one, and figures can be beyond all numbers.
    for (const auto& finding :
         checkLibrary(sqlite::LibraryImage(target_ / "library.sqlite")).findings)
        EXPECT_EQ(finding.problem, "its figures can't be told") << finding.line();
    EXPECT_NE(recoveredText(), "");
}

INSTANTIATE_TEST_SUITE_P(Seed, RandomDamage, testing::Range(0U, 24U));

}  // namespace
}  // namespace elmworth
