// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/LibraryMigration.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <set>

#include "records/LibrarySchema.h"
#include "store/sqlite/LibraryFile.h"
#include "support/FaultyVfs.h"
#include "support/RawDatabase.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using sqlite::Database;
using sqlite::versionText;
using test::FaultyVfs;
using test::RawDatabase;
using test::TestLibrary;
using Lines = std::vector<std::string>;

const int oldest = librarySchema().version;
const int middle = oldest + 100;
const int newest = oldest + 10000;

/// Makes the table of projects anew, as a change of a column's kind does.
void renewProjects(Database& database) {
    sqlite::Statement stored(database.handle(),
                             "SELECT sql FROM sqlite_schema WHERE name = 'Project'");
    stored.step();
    std::string table(stored.text(0));
    stored.reset();
    table.replace(0, table.find('('), "CREATE TABLE renewed");
    table.insert(table.rfind(')'), ", stamp TEXT NOT NULL");
    database.execute(table +
                     ";INSERT INTO renewed SELECT *, 'P-' || name FROM Project;"
                     "DROP TABLE Project;"
                     "ALTER TABLE renewed RENAME TO Project;"
                     "CREATE INDEX ProjectByClient ON Project(client)");
}

const MigrationStep twoSteps[] = {
    {oldest, middle, "ALTER TABLE Client ADD COLUMN stamp TEXT NOT NULL DEFAULT 'C'"},
    {middle, newest, "UPDATE Client SET stamp = stamp || '-' || name", &renewProjects},
};
const LibraryModel afterTwoSteps{librarySchema().types, newest, twoSteps};

/// A library of the oldest version, of which the last save stands in the log alone.
class Migration : public testing::Test {
 protected:
    Migration() {
        for (int i = 0; i < 20; ++i) {
            const auto name = std::to_string(i);
            const auto project = library.addProject(name, library.addClient(name));
            project->client->address = std::string(500, 'a');
            library.addEntry(project, Instant{}, std::nullopt);
        }
        library.context().save();
        library.close();
        bytes = readFile(file());
        log = readFile(file() += "-wal");
    }

    [[nodiscard]] fs::path file() const { return library.file(); }
    [[nodiscard]] fs::path copy(int version) const {
        return sqlite::copyBeforeStep(file(), version);
    }

    /// Opens the library with `model`; the message of a failure, or nothing.
    [[nodiscard]] std::string open(const LibraryModel& model) const {
        try {
            (void)sqlite::openLibraryFile(file(), model);
            return {};
        } catch (const StoreError& error) {
            return error.what();
        } catch (const fs::filesystem_error& error) {
            return error.what();
        }
    }

    /// Puts the library back as it was before all steps.
    void reset() const {
        for (const auto& name : library.folder.names()) fs::remove(library.folder.path() / name);
        std::ofstream(file(), std::ios::binary) << bytes;
        std::ofstream(file() += "-wal", std::ios::binary) << log;
    }

    static int versionOf(RawDatabase& raw) {
        return std::stoi(raw.rows("PRAGMA user_version").front());
    }

    /// The library `path` is whole and has the version `version` with all that belongs to it.
    static void expectWhole(const fs::path& path, int version) {
        RawDatabase raw(path);
        raw.run("PRAGMA synchronous = OFF");
        EXPECT_EQ(raw.faults(), Lines{});
        EXPECT_EQ(versionOf(raw), version);
        const Lines all{"20"};
        EXPECT_EQ(raw.rows("SELECT count(*) FROM Client JOIN Project ON Project.client = Client.id"
                           "  JOIN TimeEntry ON TimeEntry.project = Project.id"
                           "  WHERE Project.name = Client.name AND length(address) = 500"),
                  all);
        const bool hasClientStamp = raw.run("SELECT Client.stamp FROM Client") == SQLITE_OK;
        const bool hasProjectStamp = raw.run("SELECT Project.stamp FROM Project") == SQLITE_OK;
        EXPECT_EQ(hasClientStamp, version >= middle);
        EXPECT_EQ(hasProjectStamp, version >= newest);
        if (version == middle) {
            EXPECT_EQ(raw.rows("SELECT count(*) FROM Client WHERE stamp = 'C'"), all);
        }
        if (version == newest) {
            EXPECT_EQ(raw.rows("SELECT count(*) FROM Client WHERE stamp = 'C-' || name"), all);
            EXPECT_EQ(raw.rows("SELECT count(*) FROM Project WHERE stamp = 'P-' || name"), all);
        }
    }

    /// The version that the library has now, of which it must be a whole one.
    [[nodiscard]] int expectWhole() const {
        int version = 0;
        {
            // As this program opens it: the log included, and without bringing it on.
            RawDatabase raw(file());
            raw.run("PRAGMA synchronous = OFF");
            version = versionOf(raw);
        }
        EXPECT_TRUE(version == oldest || version == middle || version == newest) << version;
        expectWhole(file(), version);
        return version;
    }

    TestLibrary library;
    std::string bytes;
    std::string log;
};

TEST_F(Migration, takesEachStepAndLeavesNothingBeside) {
    ASSERT_EQ(open(afterTwoSteps), "");
    expectWhole(file(), newest);
    auto names = library.folder.names();
    std::erase_if(names, [](const auto& name) { return name.starts_with("library.sqlite-wal"); });
    EXPECT_EQ(names, Lines{"library.sqlite"});
}

TEST_F(Migration, hasNothingToDoForTheCurrentVersion) {
    ASSERT_EQ(open(afterTwoSteps), "");
    EXPECT_EQ(open(afterTwoSteps), "");
    expectWhole(file(), newest);
}

TEST_F(Migration, goesOnFromTheVersionInTheMiddle) {
    const MigrationStep first[] = {twoSteps[0]};
    ASSERT_EQ(open({librarySchema().types, middle, first}), "");
    expectWhole(file(), middle);
    ASSERT_EQ(open(afterTwoSteps), "");
    expectWhole(file(), newest);
}

TEST_F(Migration, isRefusedToAnOlderProgramAfterwards) {
    ASSERT_EQ(open(afterTwoSteps), "");
    EXPECT_EQ(open(librarySchema()), "The library " + file().string() + " has version " +
                                         versionText(newest) +
                                         ", which needs a newer Elmworth than this one.");
}

TEST_F(Migration, ofAVersionThatNoStepLeadsFromIsRefusedAndChangesNothing) {
    const MigrationStep second[] = {twoSteps[1]};
    EXPECT_EQ(open({librarySchema().types, newest, second}),
              "The library " + file().string() + " has version " + versionText(oldest) +
                  ", which this Elmworth does not know; move it away to start "
                  "with an empty one, into which a backup can be restored.");
    EXPECT_EQ(readFile(file()), bytes);
    expectWhole(file(), oldest);
}

/// Steps are functions without a state of their own.
fs::path copyToLookAt;

TEST_F(Migration, keepsACopyBesideThatIsWholeUntilTheStepIsDurable) {
    static bool wasThere;
    wasThere = false;
    copyToLookAt = copy(oldest);
    const MigrationStep steps[] = {{oldest, newest, {}, [](Database&) {
                                        expectWhole(copyToLookAt, oldest);
                                        wasThere = true;
                                    }}};
    EXPECT_EQ(open({librarySchema().types, newest, steps}), "");
    EXPECT_TRUE(wasThere);
    EXPECT_FALSE(fs::exists(copy(oldest)));
}

TEST_F(Migration, thatFailsLeavesTheOldLibraryAndTheCopyAndIsToldInASentence) {
    const MigrationStep failing[] = {
        twoSteps[0], {middle, newest, "DELETE FROM Client; UPDATE Missing SET a = 1"}};
    EXPECT_EQ(open({librarySchema().types, newest, failing}),
              "The library " + file().string() + " can't be brought from version " +
                  versionText(middle) + " to " + versionText(newest) +
                  ": no "
                  "such table: Missing.");
    expectWhole(file(), middle);
    expectWhole(copy(middle), middle);
    EXPECT_FALSE(fs::exists(copy(oldest)));

    EXPECT_EQ(open(afterTwoSteps), "");
    expectWhole(file(), newest);
    EXPECT_FALSE(fs::exists(copy(middle)));
}

TEST_F(Migration, thatLosesAColumnOfTheRecordsIsNoStep) {
    const MigrationStep steps[] = {{oldest, newest, "ALTER TABLE Client DROP COLUMN email"}};
    EXPECT_EQ(open({librarySchema().types, newest, steps}),
              "The library " + file().string() + " can't be brought from version " +
                  versionText(oldest) + " to " + versionText(newest) +
                  ": no such "
                  "column: email.");
    expectWhole(file(), oldest);
}

TEST_F(Migration, aCopyThatCannotBeWrittenStopsTheStep) {
    fs::create_directory(copy(oldest));
    EXPECT_EQ(open(afterTwoSteps), "The library " + file().string() +
                                       " can't be brought from version " + versionText(oldest) +
                                       " to " + versionText(middle) + ": " + copy(oldest).string() +
                                       ": Is a directory.");
    expectWhole(file(), oldest);
}

TEST_F(Migration, aCopyThatACrashHasLeftGoesAway) {
    ASSERT_EQ(open(afterTwoSteps), "");
    std::ofstream(copy(middle)) << "left";
    ASSERT_EQ(open(afterTwoSteps), "");
    EXPECT_FALSE(fs::exists(copy(middle)));
}

TEST_F(Migration, onADiskThatFailsAtAnyMomentLeavesAWholeLibraryOfOneVersion) {
    using enum FaultyVfs::Duration;
    for (const auto& [code, duration] : {std::pair(SQLITE_FULL, lasting), {SQLITE_IOERR, once}}) {
        bool failed = true;
        for (int n = 1; failed; ++n) {
            SCOPED_TRACE("operation " + std::to_string(n));
            reset();
            FaultyVfs disk;
            disk.failAt(n, code, duration);
            const bool opened = open(afterTwoSteps).empty();
            failed = disk.hasFailed();
            EXPECT_TRUE(failed || opened);
            disk.heal();
            (void)expectWhole();
            EXPECT_EQ(open(afterTwoSteps), "");
            expectWhole(file(), newest);
            ASSERT_FALSE(HasFailure());
        }
    }
}

TEST_F(Migration, killedAtAnyMomentLeavesAWholeLibraryOfOneVersionAndGoesOnFromThere) {
    std::set<int> versions;
    bool killed = true;
    for (int n = 1; killed; ++n) {
        SCOPED_TRACE("operation " + std::to_string(n));
        reset();
        FaultyVfs disk;
        const pid_t process = ::fork();
        if (process == 0) {
            disk.killAt(n);
            ::_exit(open(afterTwoSteps).empty() ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(process, &status, 0), process);
        killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        ASSERT_TRUE(killed || status == 0);
        // A copy goes only when what comes after it is there.
        const int version = expectWhole();
        versions.insert(version);
        for (const int step : {oldest, middle}) {
            if (fs::exists(copy(step))) expectWhole(copy(step), step);
        }
        EXPECT_EQ(open(afterTwoSteps), "");
        expectWhole(file(), newest);
        EXPECT_FALSE(fs::exists(copy(oldest)) || fs::exists(copy(middle)));
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_EQ(versions, (std::set{oldest, middle, newest}));
}

}  // namespace
}  // namespace elmworth
