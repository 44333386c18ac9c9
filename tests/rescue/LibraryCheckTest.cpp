// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/LibraryCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string_view>

#include "records/LibrarySchema.h"
#include "support/DamagedPages.h"
#include "support/Instants.h"
#include "support/Rows.h"
#include "support/StoppingProgress.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::DamagedPages;
using test::RawDatabase;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A library with an hour that is billed, one that is not, and a timer.
class CheckedLibrary : public testing::Test {
 protected:
    CheckedLibrary() {
        const auto client = library_.addClient("Acme");
        const auto project = library_.addProject("Website", client);
        const auto billed =
            library_.addEntry(project, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
        billed->invoice = library_.addInvoice("INV-1", client);
        billed->billedRateCents = 12000;
        library_.addEntry(project, at("2026-03-03T09:00Z"), at("2026-03-03T10:00Z"));
        library_.addEntry(project, at("2026-03-31T11:00Z"), std::nullopt);
        library_.context().save();
    }

    /// Every finding as a line.
    [[nodiscard]] std::vector<std::string> findings() const {
        std::vector<std::string> lines;
        for (const auto& finding : checkLibrary(sqlite::LibraryImage(library_.file())).findings)
            lines.push_back(finding.line());
        return lines;
    }
    void run(const std::string& sql) const {
        RawDatabase raw(library_.file());
        raw.run("PRAGMA ignore_check_constraints = ON");
        ASSERT_EQ(raw.run(sql), SQLITE_OK) << sql;
    }
    [[nodiscard]] std::vector<std::string> names() const {
        auto found = library_.folder.names();
        std::sort(found.begin(), found.end());
        return found;
    }

    test::TestLibrary library_;
};

TEST_F(CheckedLibrary, isSoundAsTheProgramWritesIt) {
    const auto report = checkLibrary(sqlite::LibraryImage(library_.file()));
    EXPECT_THAT(report.findings, IsEmpty());
    EXPECT_THAT(report.records, ElementsAre(1, 1, 3, 1));
    EXPECT_EQ(report.version, static_cast<std::uint32_t>(librarySchema().version));
}

TEST_F(CheckedLibrary, isReadWithWhatOnlyItsLogHoldsWhileItIsOpen) {
    library_.addClient("Globex");
    library_.context().save();
    EXPECT_THAT(checkLibrary(sqlite::LibraryImage(library_.file())).records,
                ElementsAre(2, 1, 3, 1));
}

TEST_F(CheckedLibrary, isSoundWithAnEntryWithoutLength) {
    library_.close();
    run("UPDATE TimeEntry SET end = start WHERE end IS NOT NULL");
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(CheckedLibrary, staysAsItIs) {
    library_.close();
    const auto before = readFile(library_.file());
    const auto log = readFile(library_.file().string() + "-wal");
    const auto filesBefore = names();
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(names(), filesBefore);
    EXPECT_EQ(readFile(library_.file()), before);
    EXPECT_EQ(readFile(library_.file().string() + "-wal"), log);
}

struct DamageRow {
    const char* name;
    const char* sql;
    const char* line;
};

class RecordThatBreaksARule : public CheckedLibrary,
                              public testing::WithParamInterface<DamageRow> {};

TEST_P(RecordThatBreaksARule, isNamed) {
    library_.close();
    run(GetParam().sql);
    EXPECT_THAT(findings(), Contains(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(
    , RecordThatBreaksARule,
    testing::Values(
        DamageRow{"EndBeforeStart",
                  "UPDATE TimeEntry SET \"end\" = start - 1 WHERE invoice IS NOT NULL",
                  "Entry of 2026-03-02T09:00:00Z: ends before it starts."},
        DamageRow{"TwoTimers", "UPDATE TimeEntry SET \"end\" = NULL WHERE invoice IS NULL",
                  "Entry of 2026-03-03T09:00:00Z: runs beside another timer."},
        DamageRow{"BilledTimer",
                  "UPDATE TimeEntry SET invoice = (SELECT id FROM Invoice) WHERE \"end\" IS NULL",
                  "Entry of 2026-03-31T11:00:00Z: runs, but is on an invoice."},
        DamageRow{"LostProject", "DELETE FROM Project",
                  "Entry of 2026-03-02T09:00:00Z: its project is not there."},
        DamageRow{"LostClientOfAProject", "DELETE FROM Client",
                  "Project “Website”: its client is not there."},
        DamageRow{"LostClientOfAnInvoice", "DELETE FROM Client",
                  "Invoice INV-1: its client is not there."},
        DamageRow{"LostInvoice", "DELETE FROM Invoice",
                  "Entry of 2026-03-02T09:00:00Z: its invoice is not there."},
        DamageRow{
            "InvoiceThatIsAClient",
            "UPDATE TimeEntry SET invoice = (SELECT id FROM Client) WHERE invoice IS NOT NULL",
            "Entry of 2026-03-02T09:00:00Z: its invoice is not there."},
        DamageRow{"NegativeRate", "UPDATE Client SET hourlyRateCents = -500",
                  "Client “Acme”: rate is -500, below 0."},
        DamageRow{"NegativeFrozenRate",
                  "UPDATE TimeEntry SET billedRateCents = -1 WHERE invoice IS NOT NULL",
                  "Entry of 2026-03-02T09:00:00Z: billedRateCents is -1, below 0."},
        DamageRow{"NegativeBudget", "UPDATE Project SET budgetHours = -1",
                  "Project “Website”: budget is -1, below 0."},
        DamageRow{"TaxAboveTheWhole", "UPDATE Invoice SET taxRateBasisPoints = 10001",
                  "Invoice INV-1: taxRateBasisPoints is 10001, above 10000."},
        DamageRow{"RoundingBeyondADay", "UPDATE Invoice SET roundingMinutes = 1441",
                  "Invoice INV-1: roundingMinutes is 1441, above 1440."},
        DamageRow{"FlagOfThree", "UPDATE Project SET isArchived = 3",
                  "Project “Website”: isArchived is 3, not yes or no."},
        DamageRow{"DateBeyondAllYears", "UPDATE Invoice SET dueDate = 9000000000000000000",
                  "Invoice INV-1: dueDate lies outside the years 0 to 9999."},
        DamageRow{"NoName", "UPDATE Client SET name = ' '", "Client “ ”: name “ ” is empty."},
        DamageRow{"NoNumber", "UPDATE Invoice SET number = ''", "Invoice : number is empty."},
        DamageRow{"DamagedText", "UPDATE Client SET address = CAST(x'41ff' AS TEXT)",
                  "Client “Acme”: address holds damaged bytes."},
        DamageRow{"NoColor", "UPDATE Project SET colorHex = '#12345'",
                  "Project “Website”: color “#12345” is no colour."},
        DamageRow{"NoCurrency", "UPDATE Client SET currencyCode = 'us$'",
                  "Client “Acme”: currency “us$” is no currency."},
        DamageRow{"NoCurrencyOfAnInvoice", "UPDATE Invoice SET currencyCode = 'Dollar'",
                  "Invoice INV-1: currencyCode “Dollar” is no currency."},
        DamageRow{"NoStatus", "UPDATE Invoice SET statusRaw = 'void'",
                  "Invoice INV-1: status “void” is none of draft, sent and paid."},
        DamageRow{"NoProfile", "UPDATE Invoice SET businessSnapshot = x'7b'",
                  "Invoice INV-1: business can't be read."},
        DamageRow{"FiguresBeyondAllNumbers",
                  "UPDATE Invoice SET roundingMinutes = 9223372036854775807",
                  "Invoice INV-1: its figures can't be told."},
        DamageRow{"NoIndex", "DROP INDEX InvoiceByClient",
                  "The file: lacks the index "
                  "\"InvoiceByClient\"ON\"Invoice\"(\"client\")WHERE\"client\"ISNOTNULL."},
        DamageRow{"ForeignTable", "CREATE TABLE Other(a)", "The file: has a foreign table Other."},
        DamageRow{"ForeignTableOfAnyName", R"(CREATE TABLE "a"" UNION b"(c))",
                  "The file: has a foreign table a\" UNION b."}),
    test::rowName);

TEST_F(CheckedLibrary, isDamagedWhereAPageCannotBeRead) {
    library_.close();
    const DamagedPages pages(library_.file());
    pages.overwrite(pages.of("Project").front());
    EXPECT_THAT(findings(), Contains("The file: 1 page can't be read."));
    EXPECT_THAT(findings(), Contains("Entry of 2026-03-02T09:00:00Z: its project is not there."));
    EXPECT_THAT(findings(), Contains("Invoice INV-1: its figures can't be told."));
    EXPECT_THAT(findings(), Each(Not(HasSubstr("\n"))));
}

TEST_F(CheckedLibrary, isDamagedWhereAnIndexLacksARow) {
    library_.close();
    const DamagedPages pages(library_.file());
    // The count of rows, which is that of the page's list.
    pages.write((pages.of("TimeEntryByStart").front() - 1) * pages.pageSize() + 4, "\x02");
    EXPECT_THAT(findings(), Contains(HasSubstr("TimeEntryByStart")));
}

TEST_F(CheckedLibrary, isDamagedWhereItIsCutOff) {
    library_.close();
    const DamagedPages pages(library_.file());
    std::filesystem::resize_file(library_.file(), (pages.count() - 2) * pages.pageSize());
    EXPECT_THAT(findings(), Contains(HasSubstr("pages can't be read")));
}

TEST_F(CheckedLibrary, tellsOfChangesThatAreBehindADamagedPlaceOfTheLog) {
    for (const char* name : {"One", "Two", "Three"}) {
        library_.addClient(name);
        library_.context().save();
    }
    library_.close();
    const auto log = library_.file().string() + "-wal";
    std::fstream bytes(log, std::ios::binary | std::ios::in | std::ios::out);
    bytes.seekp(32 + 24 + 100);
    bytes << "damage";
    bytes.close();
    EXPECT_THAT(findings(), Contains(HasSubstr("its log is damaged, and hides the last")));
}

/// The library's entries again and again, so that the check of its file takes a while.
class LargeCheckedLibrary : public CheckedLibrary {
 protected:
    LargeCheckedLibrary() {
        library_.close();
        run(R"(WITH RECURSIVE number(value) AS (SELECT 1 UNION ALL SELECT value + 1 FROM number
                                                WHERE value < 5000)
               INSERT INTO "TimeEntry"("id", "start", "end", "notes", "project")
               SELECT randomblob(16), value * 3600000000, value * 3600000000 + 60000000, 'Work',
                      (SELECT "id" FROM "Project") FROM number)");
    }

    [[nodiscard]] LibraryReport check(Progress& progress) const {
        return checkLibrary(sqlite::LibraryImage(library_.file()), progress);
    }
};

TEST_F(LargeCheckedLibrary, tellsHowFarTheCheckOfItsFileIs) {
    class Told final : public Progress {
     public:
        std::vector<std::size_t> percents;

     protected:
        void report(const char* step, std::size_t done, std::size_t total) override {
            if (std::string_view(step) == "Checking the file")
                percents.push_back(100 * done / total);
        }
    };
    Told told;
    EXPECT_THAT(check(told).findings, IsEmpty());
    ASSERT_GE(told.percents.size(), 3U);
    EXPECT_TRUE(std::is_sorted(told.percents.begin(), told.percents.end()));
    EXPECT_LT(told.percents.front(), 30U);
    // How much SQLite has to do is only estimated.
    EXPECT_GT(told.percents.back(), 70U);
    EXPECT_LE(told.percents.back(), 100U);
}

TEST_F(LargeCheckedLibrary, isLeftWhenSomebodyStopsTheCheckOfItsFile) {
    test::StoppingProgress progress(2);
    EXPECT_THROW(static_cast<void>(check(progress)), Cancelled);
}

TEST(LibraryCheck, isForLibrariesAlone) {
    const test::TemporaryFolder folder;
    std::ofstream(folder.path() / "notes") << "Some notes.";
    const auto report = checkLibrary(sqlite::LibraryImage(folder.path() / "notes"));
    ASSERT_FALSE(report.findings.empty());
    EXPECT_EQ(report.findings.front().line(),
              "The file: is no Elmworth library, or its head is damaged.");
    EXPECT_THROW(sqlite::LibraryImage(folder.path()), std::filesystem::filesystem_error);
    EXPECT_THROW(sqlite::LibraryImage(folder.path() / "none"), std::filesystem::filesystem_error);
}

TEST(LibraryCheck, leavesALibraryOfAnOlderVersionAsItIs) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "library.sqlite";
    std::filesystem::copy_file(
        std::filesystem::path(ELMWORTH_TEST_DATA) / "library" / "library-1.0.0.sqlite", file);
    const auto before = readFile(file);
    const auto report = checkLibrary(sqlite::LibraryImage(file));
    EXPECT_EQ(report.version, 1'00'00U);
    EXPECT_THAT(report.records, ElementsAre(2, 2, 2, 2));
    EXPECT_EQ(readFile(file), before);
    EXPECT_THAT(folder.names(), ElementsAre("library.sqlite"));
}

TEST_F(CheckedLibrary, ofANewerVersionIsLeftToThatVersion) {
    library_.close();
    run("PRAGMA user_version = 999999");
    try {
        static_cast<void>(findings());
        FAIL();
    } catch (const StoreError& error) {
        EXPECT_STREQ(error.what(),
                     "The library has version 99.99.99, which needs a newer Elmworth than this "
                     "one.");
    }
}

}  // namespace
}  // namespace elmworth
