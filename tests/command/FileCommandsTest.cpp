// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/CommandLine.h"
#include "records/LibrarySchema.h"
#include "store/sqlite/LibraryMigration.h"
#include "support/DamagedTable.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using testing::HasSubstr;

/// Commands on the file of a library with a client, a project and an hour.
class LibraryFileCommand : public testing::Test {
 protected:
    LibraryFileCommand() {
        const auto project = library_.addProject("Website", library_.addClient("Acme"));
        library_.addEntry(project, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
        library_.context().save();
    }

    CommandResult run(const std::vector<std::string>& arguments) {
        const auto& folder = library_.folder.path();
        FileCommandEnvironment environment{library_.file(), folder / "Backups",
                                           folder / "Elmworth.ini", folder,
                                           [] { return at("2026-03-31T12:00Z"); }};
        const auto commandLine = parseCommandLine(arguments);
        if (commandLine.answer) return *commandLine.answer;
        return runFileCommand(commandLine, environment);
    }

    test::TestLibrary library_;
};

TEST_F(LibraryFileCommand, checkSaysThatALibraryIsSound) {
    const auto result = run({"check"});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, "The library is sound: 1 client, 1 project, 1 entry, 0 invoices.\n");
}

TEST_F(LibraryFileCommand, checkNamesWhatIsWrongAndHowToGoOn) {
    library_.close();
    test::damageTable(library_.file(), "Project");
    const auto result = run({"check"});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_THAT(result.output,
                HasSubstr("Entry of 2026-03-02T09:00:00Z: its project is not there.\n"));
    EXPECT_THAT(result.errors, HasSubstr(" faults. elmworth recover FOLDER writes what can be "
                                         "read of it into a new library.\n"));
}

TEST_F(LibraryFileCommand, checkPrintsOneJSONDocument) {
    const auto version = sqlite::versionText(librarySchema().version);
    EXPECT_EQ(run({"check", "--format", "json"}).output, R"({
  "version": ")" + version + R"(",
  "clients": 1,
  "projects": 1,
  "entries": 1,
  "invoices": 0,
  "findings": []
}
)");
    library_.close();
    test::damageTable(library_.file(), "Project");
    EXPECT_THAT(run({"check", "--format", "json"}).output,
                HasSubstr("\"problem\": \"its project is not there\""));
}

TEST_F(LibraryFileCommand, checkFailsWithoutALibrary) {
    library_.close();
    std::filesystem::remove(library_.file());
    const auto result = run({"check"});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors, library_.file().string() + ": No such file or directory\n");
    EXPECT_FALSE(std::filesystem::exists(library_.file()));
}

TEST_F(LibraryFileCommand, recoverTellsWhatItSavedAndHowToGoOn) {
    library_.close();
    test::damageTable(library_.file(), "Project");
    const auto result = run({"recover", "new"});
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    const auto folder = library_.folder.path();
    EXPECT_THAT(result.output, HasSubstr(" pages of the library.\n"));
    EXPECT_THAT(result.output, HasSubstr("library  indexes  snapshot  unknown\n"));
    EXPECT_THAT(result.output, HasSubstr("Entries         1        0         0        0\n"));
    EXPECT_THAT(result.output, HasSubstr("Recovered project 1 stands in for a project that could "
                                         "not be read.\n"));
    EXPECT_THAT(result.output, HasSubstr("To go on with it: quit Elmworth, move library.sqlite and "
                                         "library.sqlite-wal out of " +
                                         folder.string() + ", both of them, and copy " +
                                         (folder / "new" / "library.sqlite").string() + " there."));
}

TEST_F(LibraryFileCommand, recoverPrintsOneJSONDocument) {
    const auto result = run({"recover", "new", "--format", "json"});
    EXPECT_THAT(result.output, HasSubstr("\"damagedPages\": 0,\n  \"clients\": {\n    "
                                         "\"library\": 1,\n    \"indexes\": 0,"));
}

TEST_F(LibraryFileCommand, recoverOverwritesNothing) {
    EXPECT_EQ(run({"recover", "new"}).exitStatus, 0);
    const auto result = run({"recover", "new"});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "The folder " + (library_.folder.path() / "new").string() +
                                 " is not empty. Name a new one, so that nothing is "
                                 "overwritten.\n");
}

}  // namespace
}  // namespace elmworth
