// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What must hold for any library, tried with random ones.

#include <gtest/gtest.h>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "exchange/CSVDocument.h"
#include "exchange/CSVImporter.h"
#include "exchange/RandomLibrary.h"
#include "exchange/Restore.h"
#include "support/LibraryText.h"

namespace elmworth {
namespace {

using test::at;
using test::RandomLibrary;
using test::TestLibrary;

const Instant exportedAt = at("2026-07-01T12:00Z");

BusinessProfile someProfile() {
    BusinessProfile profile;
    profile.name = "Jane “Größe” Doe";
    profile.paperSize = PaperSize::a4;
    return profile;
}

std::string backupOf(TestLibrary& library, Instant now = exportedAt) {
    return test::encode(test::makeBackup(library.context(), someProfile(), now));
}

/// A library of its own into which `json` is restored.
struct RestoredLibrary {
    explicit RestoredLibrary(const std::string& json) : library(TestLibrary::emptyFile()) {
        restore(test::decode(json), library.context());
        library.reopen();
    }
    TestLibrary library;
};

/// All finished entries as an export writes them, its lines in order.
std::string exportOf(TestLibrary& library, const std::string& zoneID) {
    std::string text;
    CSVDocument document(zoneID, [&](std::string_view piece) { text += piece; });
    for (const auto& entry :
         library.context().fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::end>() != absent,
         .sortBy = {sortedBy<&TimeEntry::start>(), sortedBy<&TimeEntry::end>()}})) {
        document.add(entry->start, *entry->end.get(), entry->project->client->name.get(),
                     entry->project->name.get(), entry->notes.get());
    }
    document.finish();
    return text;
}

class ExchangeProperties : public testing::TestWithParam<unsigned> {
 protected:
    void fill(RandomLibrary::Contents contents) { RandomLibrary(library_, GetParam(), contents); }

    TestLibrary library_{TestLibrary::emptyFile()};
};

TEST_P(ExchangeProperties, backupRestoreBackupGivesTheSameDocument) {
    fill(RandomLibrary::Contents::comesBack);
    const std::string document = backupOf(library_);
    RestoredLibrary restored(document);
    EXPECT_EQ(backupOf(restored.library), document);
    auto later = test::decode(backupOf(restored.library, exportedAt + std::chrono::hours(1)));
    EXPECT_EQ(later.exportedAt, exportedAt + std::chrono::hours(1));
    later.exportedAt = exportedAt;
    EXPECT_EQ(later, test::decode(document));
}

TEST_P(ExchangeProperties, whateverARestoreClosesOrDropsASecondRestoreChangesNothing) {
    fill(RandomLibrary::Contents::anything);
    RestoredLibrary first(backupOf(library_));
    const std::string document = backupOf(first.library);
    RestoredLibrary second(document);
    EXPECT_EQ(backupOf(second.library), document);
    for (const auto& entry : first.library.context().fetch<TimeEntry>()) {
        EXPECT_FALSE(entry->isRunning());
        EXPECT_GT(*entry->end.get(), entry->start.get());
    }
}

TEST_P(ExchangeProperties, anyPrefixOfADocumentIsRefused) {
    fill(RandomLibrary::Contents::comesBack);
    const std::string document = backupOf(library_);
    const std::size_t last = document.rfind('}');
    const std::size_t step = document.size() / 500 + 1;
    for (std::size_t length = 0; length <= last; length += step) {
        ASSERT_THROW((void)test::decode(document.substr(0, length)), BackupDecodeError) << length;
    }
    ASSERT_THROW((void)test::decode(document.substr(0, last)), BackupDecodeError);
    EXPECT_NO_THROW((void)test::decode(document.substr(0, last + 1)));
}

TEST_P(ExchangeProperties, exportImportExportGivesTheSameRows) {
    fill(RandomLibrary::Contents::fitsInAReport);
    const std::string rows = exportOf(library_, "America/New_York");
    if (library_.context().fetchCount<TimeEntry>() == 0) {
        EXPECT_THROW((void)CSVImporter::parse(rows, "UTC"), ImportError);
        return;
    }
    TestLibrary imported(TestLibrary::emptyFile());
    CSVImporter::apply(CSVImporter::parse(rows, "Asia/Tokyo"), imported.context());
    imported.reopen();
    EXPECT_EQ(exportOf(imported, "America/New_York"), rows);
}

TEST_P(ExchangeProperties, aSecondImportAddsNothing) {
    fill(RandomLibrary::Contents::fitsInAReport);
    if (library_.context().fetchCount<TimeEntry>() == 0) return;
    const auto rows = CSVImporter::parse(exportOf(library_, "Europe/Berlin"), "UTC");
    const auto before = test::libraryText(library_.context());
    const auto intoItself = CSVImporter::apply(rows, library_.context());
    EXPECT_EQ(intoItself.imported, 0);
    EXPECT_EQ(intoItself.skipped, static_cast<std::int64_t>(rows.size()));
    EXPECT_TRUE(intoItself.newClients.empty());
    EXPECT_EQ(test::libraryText(library_.context()), before);

    TestLibrary other(TestLibrary::emptyFile());
    EXPECT_EQ(CSVImporter::apply(rows, other.context()).imported,
              static_cast<std::int64_t>(rows.size()));
    const auto once = test::libraryText(other.context());
    EXPECT_EQ(CSVImporter::apply(rows, other.context()).imported, 0);
    EXPECT_EQ(test::libraryText(other.context()), once);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ExchangeProperties, testing::Range(1U, 26U));

}  // namespace
}  // namespace elmworth
