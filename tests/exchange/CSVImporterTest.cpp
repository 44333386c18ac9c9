// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/CSVImporter.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;

constexpr const char* togglHeader =
    "User,Email,Client,Project,Task,Description,Billable,Start date,Start time,End date,End time,"
    "Duration,Tags,Amount ()\r\n";

TEST(CSVImporter, ownFormatIsRead) {
    const auto rows = CSVImporter::parse(
        "Hours, START ,End,Notes,Client\n"
        "9,2026-03-01T09:00:00+01:00,2026-03-01T10:00:00+01:00, Layout ,Acme\n",
        "UTC");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (CSVImporter::Row{"Acme", "", "Layout", at("2026-03-01T08:00Z"),
                                         at("2026-03-01T09:00Z")}));
}

TEST(CSVImporter, togglReportIsReadInTheGivenZone) {
    const auto rows = CSVImporter::parse(
        std::string("\xEF\xBB\xBF") + togglHeader +
            "Jane,j@x.example,Acme,Web,,\"Say \"\"hi\"\"\n😀\",No,2026-03-29,01:30:00,2026-03-29,"
            "03:30:00,01:00:00,\"a, b\",\r\n",
        "Europe/Berlin");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].notes, "Say \"hi\"\n😀");
    EXPECT_EQ(rows[0].start, at("2026-03-29T00:30Z"));
    EXPECT_EQ(rows[0].end, at("2026-03-29T01:30Z"));
}

TEST(CSVImporter, aTimeThatNoBackupCouldHoldIsNotRead) {
    const auto rowsIn = [](const char* zone) {
        return CSVImporter::parse(
            std::string(togglHeader) +
                ",,Acme,Web,,,No,2026-03-01,09:00:00,9999-12-31,23:00:00,,,\r\n"
                ",,Acme,Web,,,No,0001-01-01,00:30:00,2026-03-01,10:00:00,,,\r\n"
                ",,Acme,Web,,,No,0000-12-31,09:00:00,2026-03-01,10:00:00,,,\r\n"
                ",,Acme,Web,,,No,2026-03-01,09:00:00,2026-03-01,10:00:00,,,\r\n",
            zone);
    };
    EXPECT_EQ(rowsIn("UTC").size(), 3U);
    EXPECT_EQ(rowsIn("Asia/Tokyo").size(), 3U);
    EXPECT_EQ(rowsIn("America/New_York").size(), 2U);
}

ImportError::Code errorOf(const std::string& text) {
    try {
        (void)CSVImporter::parse(text, "UTC");
    } catch (const ImportError& error) {
        return error.code();
    }
    throw std::logic_error("was read");
}

TEST(CSVImporter, whatIsNoReportIsRefused) {
    EXPECT_EQ(errorOf(""), ImportError::Code::empty);
    EXPECT_EQ(errorOf("\n\n"), ImportError::Code::empty);
    EXPECT_EQ(errorOf("a,b\n1,2"), ImportError::Code::unrecognizedFormat);
    EXPECT_EQ(errorOf("start,end\n"), ImportError::Code::unrecognizedFormat);
    EXPECT_EQ(errorOf(togglHeader), ImportError::Code::empty);
    EXPECT_EQ(errorOf("start,end,hours\n2026-03-01T09:00:00Z,2026-03-01T09:00:00Z,0\n"),
              ImportError::Code::empty);
    EXPECT_EQ(errorOf("start,end,hours\n2026-03-01T09:00:00Z,2026-03-01T08:00:00Z,0\n"),
              ImportError::Code::empty);
}

CSVImporter::Row row(const std::string& client, const std::string& project, const char* start,
                     const char* end) {
    return {client, project, "", at(start), at(end)};
}

TEST(CSVImporter, aSecondImportAddsNothing) {
    TestLibrary library;
    const std::vector rows{row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z"),
                           row("", "", "2026-03-02T09:00Z", "2026-03-02T10:00Z")};
    EXPECT_EQ(CSVImporter::message(CSVImporter::apply(rows, library.context())),
              "Imported 2 entries. New clients: Acme, Imported — set their rates in Clients.");
    library.reopen();
    EXPECT_EQ(CSVImporter::message(CSVImporter::apply(rows, library.context())),
              "Imported 0 entries. Skipped 2 already imported.");
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 2U);
}

TEST(CSVImporter, namesJoinWithoutRegardToCase) {
    TestLibrary library;
    const auto project = library.addProject("Web", library.addClient("Acme"));
    library.context().save();
    const auto result = CSVImporter::apply(
        {row("ACME", "WEB", "2026-03-01T09:00Z", "2026-03-01T10:00Z")}, library.context());
    EXPECT_TRUE(result.newClients.empty());
    EXPECT_EQ(library.context().fetch<TimeEntry>().at(0)->project.get(), project);
}

TEST(CSVImporter, timesOfTheOwnFormatAreNotTrimmed) {
    EXPECT_EQ(errorOf("start,end,hours\n 2026-03-01T09:00:00Z,2026-03-01T10:00:00Z,1\n"),
              ImportError::Code::empty);
}

TEST(CSVImporter, rowsThatAreTooShortOrUnreadableAreDroppedWithoutAWord) {
    const auto rows = CSVImporter::parse(
        "start,end,hours,notes\n"
        "2026-03-01T09:00:00Z\n"
        "yesterday,today,9,x\n"
        "2026-03-01T09:00:00Z,2026-03-01T10:00:00Z\n",
        "UTC");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].notes, "");
}

TEST(CSVImporter, ofTwoColumnsOfOneNameTheFirstCounts) {
    const auto rows = CSVImporter::parse(
        "notes,start,end,hours,notes\nfirst,2026-03-01T09:00:00Z,2026-03-01T10:00:00Z,1,second\n",
        "UTC");
    EXPECT_EQ(rows.at(0).notes, "first");
}

TEST(CSVImporter, aFileOfBothKindsIsTakenForAnExport) {
    const auto rows = CSVImporter::parse(
        "start,end,hours,start date,start time,end date,end time\n"
        "2026-03-01T09:00:00Z,2026-03-01T10:00:00Z,1,2026-05-05,09:00:00,2026-05-05,10:00:00\n",
        "UTC");
    EXPECT_EQ(rows.at(0).start, at("2026-03-01T09:00Z"));
}

TEST(CSVImporter, theOwnFormatDoesNotDependOnTheTimeZone) {
    const std::string text = "start,end,hours\n2026-03-01T09:00:00Z,2026-03-01T10:00:00+00:30,1\n";
    EXPECT_EQ(CSVImporter::parse(text, "Asia/Tokyo"), CSVImporter::parse(text, "UTC"));
}

TEST(CSVImporter, archivedProjectsAreJoined) {
    TestLibrary library;
    const auto project = library.addProject("Web", library.addClient("Acme"));
    project->isArchived = true;
    library.context().save();
    CSVImporter::apply({row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z")},
                       library.context());
    EXPECT_EQ(library.context().fetchCount<Project>(), 1U);
    EXPECT_TRUE(project->isArchived.get());
}

TEST(CSVImporter, timeOfOnesOwnOverTheSameSecondsMakesARowADuplicateWhateverItsNotes) {
    TestLibrary library;
    const auto project = library.addProject("Web", library.addClient("Acme"));
    library.addEntry(project, at("2026-03-01T09:00Z") + std::chrono::milliseconds(400),
                     at("2026-03-01T10:00Z"));
    library.context().save();
    auto same = row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z");
    same.notes = "other words";
    EXPECT_EQ(CSVImporter::apply({same}, library.context()).skipped, 1);
}

TEST(CSVImporter, aRunningEntryMakesNoRowADuplicate) {
    TestLibrary library;
    library.addEntry(library.addProject("Web", library.addClient("Acme")), at("2026-03-01T09:00Z"),
                     std::nullopt);
    EXPECT_EQ(CSVImporter::apply({row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z")},
                                 library.context())
                  .imported,
              1);
}

TEST(CSVImporter, oneSpanOnTwoProjectsIsTwice) {
    TestLibrary library;
    const auto result =
        CSVImporter::apply({row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z"),
                            row("Acme", "App", "2026-03-01T09:00Z", "2026-03-01T10:00Z")},
                           library.context());
    EXPECT_EQ(result.imported, 2);
}

TEST(CSVImporter, newClientsAndProjectsHaveTheDefaultsAndTheFallbackNames) {
    TestLibrary library;
    CSVImporter::apply({row("", "", "2026-03-01T09:00Z", "2026-03-01T10:00Z")}, library.context());
    const auto client = library.context().fetch<Client>().at(0);
    EXPECT_EQ(client->name.get(), "Imported");
    EXPECT_EQ(client->currencyCode.get(), "USD");
    EXPECT_EQ(client->hourlyRateCents.get(), 10000);
    EXPECT_EQ(library.context().fetch<Project>().at(0)->name.get(), "General");
}

TEST(CSVImporter, ofNamesakesTheFirstClientIsJoined) {
    TestLibrary library;
    const auto first = library.addClient("Acme");
    library.addClient("ACME");
    library.context().save();
    CSVImporter::apply({row("acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z")},
                       library.context());
    EXPECT_EQ(library.context().fetch<Project>().at(0)->client.get(), first);
}

TEST(CSVImporter, oneNameUnderTwoClientsGivesTwoProjects) {
    TestLibrary library;
    CSVImporter::apply({row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z"),
                        row("Globex", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z")},
                       library.context());
    EXPECT_EQ(library.context().fetchCount<Project>(), 2U);
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 2U);
}

TEST(CSVImporter, theTenthNewProjectTakesTheFirstColourAgain) {
    TestLibrary library;
    std::vector<CSVImporter::Row> rows;
    for (int i = 0; i < 10; ++i) {
        rows.push_back(
            row("Acme", "P" + std::to_string(i), "2026-03-01T09:00Z", "2026-03-01T10:00Z"));
    }
    CSVImporter::apply(rows, library.context());
    const auto projects = library.context().fetch<Project>();
    EXPECT_EQ(projects.at(0)->colorHex.get(), "#7C6CFF");
    EXPECT_EQ(projects.at(8)->colorHex.get(), "#8E8E93");
    EXPECT_EQ(projects.at(9)->colorHex.get(), "#7C6CFF");
}

TEST(CSVImporter, anIdenticalRowInOneFileIsSkipped) {
    TestLibrary library;
    const auto same = row("Acme", "Web", "2026-03-01T09:00Z", "2026-03-01T10:00Z");
    const auto result = CSVImporter::apply({same, same}, library.context());
    EXPECT_EQ(result.imported, 1);
    EXPECT_EQ(result.skipped, 1);
    EXPECT_EQ(CSVImporter::message(result),
              "Imported 1 entry. New clients: Acme — set their rates in Clients. Skipped 1 already "
              "imported.");
}

TEST(CSVImporter, namesMatchHoweverTheirCharactersAreComposed) {
    TestLibrary library;
    const Instant start = at("2026-03-01T09:00Z");
    const auto row = [&](const char* client, const char* project) {
        return CSVImporter::Row{client, project, "", start, start + std::chrono::hours(1)};
    };
    library.addProject("R\u00e9sum\u00e9", library.addClient("Caf\u00e9"));
    library.context().save();
    const auto first =
        CSVImporter::apply({row("CAFE\u0301", "re\u0301sume\u0301")}, library.context());
    EXPECT_EQ(first.imported, 1);
    EXPECT_TRUE(first.newClients.empty());
    const auto second = CSVImporter::apply(
        {row("Caf\u00e9", "R\u00e9sum\u00e9"), row("cafe\u0301", "re\u0301sume\u0301")},
        library.context());
    EXPECT_EQ(second.imported, 0);
    EXPECT_EQ(second.skipped, 2);
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
    EXPECT_EQ(library.context().fetchCount<Project>(), 1U);
}

}  // namespace
}  // namespace elmworth
