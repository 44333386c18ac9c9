// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/LibraryFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <random>

#include "platform/AtomicFile.h"
#include "records/Library.h"
#include "records/LibrarySchema.h"
#include "store/sqlite/LibraryMigration.h"
#include "support/Instants.h"
#include "support/RawDatabase.h"
#include "support/Rows.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::at;
using test::RawDatabase;
using test::TestLibrary;

mode_t modeOf(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
    return status.st_mode & 0777U;
}

/// A folder in which a library may be, and what opening it says.
class LibraryFile : public testing::Test {
 protected:
    [[nodiscard]] fs::path file() const { return folder.path() / "library.sqlite"; }

    /// The message of the refusal; empty when the library opens.
    [[nodiscard]] std::string open() {
        try {
            const Library container({file()}, runLoop);
            return {};
        } catch (const LibraryError& error) {
            return error.what();
        }
    }
    /// Makes a library that holds the client "Acme".
    void makeLibrary() {
        Library container({file()}, runLoop);
        container.mainContext().insert(std::make_shared<Client>("Acme"));
        container.mainContext().save();
    }
    void write(const std::string& bytes) const { std::ofstream(file(), std::ios::binary) << bytes; }

    test::TemporaryFolder folder;
    test::ManualRunLoop runLoop;
};

TEST_F(LibraryFile, aNewerVersionThatStandsInTheLogAloneIsRefused) {
    makeLibrary();
    {
        RawDatabase raw(file());
        int keepLog = 1;
        sqlite3_file_control(raw.handle(), "main", SQLITE_FCNTL_PERSIST_WAL, &keepLog);
        sqlite3_db_config(raw.handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        ASSERT_EQ(raw.run("PRAGMA user_version = 20000"), SQLITE_OK);
    }
    EXPECT_EQ(open(), "Could not create ModelContainer: The library " + file().string() +
                          " has version 2.0.0, which needs a newer Elmworth than this one.");
}

TEST_F(LibraryFile, anUnknownVersionThatStandsInTheLogAloneIsRefusedAndStays) {
    makeLibrary();
    {
        RawDatabase raw(file());
        int keepLog = 1;
        sqlite3_file_control(raw.handle(), "main", SQLITE_FCNTL_PERSIST_WAL, &keepLog);
        sqlite3_db_config(raw.handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        ASSERT_EQ(raw.run("PRAGMA user_version = 5"), SQLITE_OK);
    }
    EXPECT_NE(open().find(" has version 0.0.5, which this Elmworth does not know"),
              std::string::npos);
    EXPECT_EQ(RawDatabase(file()).rows("PRAGMA user_version"), std::vector<std::string>{"5"});
}

TEST_F(LibraryFile, aLinkToADriveThatIsAwayIsNotReplacedByAnEmptyLibrary) {
    fs::create_symlink(folder.path() / "away" / "library.sqlite", file());
    EXPECT_EQ(open(), "Could not create ModelContainer: " + file().string() +
                          ": No such file or directory");
    EXPECT_TRUE(fs::is_symlink(file()));
}

TEST_F(LibraryFile, isForTheUserAlone) {
    const auto home = folder.path() / "data" / "Elmworth";
    const Library container({home / "library.sqlite"}, runLoop);
    EXPECT_EQ(modeOf(home), 0700U);
    for (const auto& entry : fs::directory_iterator(home)) {
        EXPECT_EQ(modeOf(entry.path()), 0600U) << entry.path();
    }
    EXPECT_TRUE(fs::exists(home / "library.sqlite-wal"));
}

TEST_F(LibraryFile, leavesNothingBesideItselfAndItsLog) {
    makeLibrary();
    auto names = folder.names();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"library.sqlite", "library.sqlite-wal"}));
}

TEST_F(LibraryFile, isSoundAndCarriesItsVersion) {
    makeLibrary();
    RawDatabase raw(file());
    EXPECT_TRUE(raw.faults().empty());
    EXPECT_EQ(raw.rows("PRAGMA user_version"),
              std::vector{std::to_string(librarySchema().version)});
    EXPECT_EQ(raw.rows("PRAGMA journal_mode"), std::vector<std::string>{"wal"});
}

TEST_F(LibraryFile, ofAnybodyRunsNothingThatIsDefinedInIt) {
    makeLibrary();
    ASSERT_EQ(RawDatabase(file()).run(R"(CREATE TRIGGER Dear AFTER UPDATE ON "Client"
        BEGIN UPDATE "Client" SET "hourlyRateCents" = 1; END)"),
              SQLITE_OK);
    {
        Library container({file()}, runLoop);
        const auto client = container.mainContext().fetch<Client>().front();
        client->hourlyRateCents = 12000;
        container.mainContext().save();
    }
    EXPECT_EQ(RawDatabase(file()).rows(R"(SELECT "hourlyRateCents" FROM "Client")"),
              std::vector<std::string>{"12000"});
}

TEST_F(LibraryFile, isReadTogetherWithALeftOverLog) {
    makeLibrary();
    const auto copy = folder.path() / "copy" / "library.sqlite";
    fs::create_directory(copy.parent_path());
    {
        Library container({file()}, runLoop);
        container.mainContext().insert(std::make_shared<Client>("Globex"));
        container.mainContext().save();
        // As a crash would leave it: the log is not moved into the library.
        fs::copy_file(file(), copy);
        fs::copy_file(file() += "-wal", fs::path(copy) += "-wal");
    }
    Library container({copy}, runLoop);
    EXPECT_EQ(container.mainContext().fetchCount<Client>(), 2U);
}

TEST_F(LibraryFile, ignoresTheTornEndOfALog) {
    makeLibrary();
    const auto log = file() += "-wal";
    const auto wholeSize = fs::file_size(log);
    {
        Library container({file()}, runLoop);
        container.mainContext().insert(std::make_shared<Client>("Globex"));
        container.mainContext().save();
    }
    ASSERT_GT(fs::file_size(log), wholeSize);
    fs::resize_file(log, fs::file_size(log) - 100);
    Library container({file()}, runLoop);
    ASSERT_EQ(container.mainContext().fetchCount<Client>(), 1U);
    EXPECT_EQ(container.mainContext().fetch<Client>().at(0)->name.get(), "Acme");
}

TEST_F(LibraryFile, doesNotTakeTheLogOfOneThatWasMovedAway) {
    makeLibrary();
    fs::rename(file(), folder.path() / "moved.sqlite");
    const auto log = readFile(file() += "-wal");
    Library container({file()}, runLoop);
    EXPECT_EQ(container.mainContext().fetchCount<Client>(), 0U);
    EXPECT_EQ(readFile(file() += "-wal.orphaned"), log);
}

TEST_F(LibraryFile, isMadeAgainAfterACreationThatWasCutShort) {
    // What a process leaves that is killed before the new library got its name.
    std::ofstream(folder.path() / ".elmworth-a1b2c3") << "SQLite format 3";
    std::ofstream(folder.path() / ".elmworth-a1b2c3-journal") << "half";
    makeLibrary();
    EXPECT_EQ(open(), "");
    EXPECT_TRUE(RawDatabase(file()).faults().empty());
}

TEST_F(LibraryFile, isLockedForOthersWhileItIsOpen) {
    makeLibrary();
    const Library container({file()}, runLoop);
    EXPECT_EQ(RawDatabase(file()).run("SELECT count(*) FROM Client"), SQLITE_BUSY);
}

TEST_F(LibraryFile, cannotBeMadeInAFolderThatIsAFile) {
    std::ofstream(folder.path() / "file") << "text";
    try {
        const Library container({folder.path() / "file" / "library.sqlite"}, runLoop);
        FAIL();
    } catch (const LibraryError& error) {
        EXPECT_EQ(std::string(error.what()).find("Could not create ModelContainer: "), 0U);
    }
}

// --- files that are refused ----------------------------------------------------------------------

std::string libraryOfVersion(int version) {
    test::TemporaryFolder folder;
    test::ManualRunLoop runLoop;
    const auto file = folder.path() / "library.sqlite";
    { const Library container({file}, runLoop); }
    auto bytes = readFile(file);
    for (std::size_t i = 0; i < 4; ++i)  // user_version, the last byte at 63
        bytes[63 - i] = static_cast<char>(static_cast<unsigned>(version) >> (8 * i));
    return bytes;
}

std::string otherDatabase() {
    test::TemporaryFolder folder;
    RawDatabase(folder.path() / "other")
        .run("CREATE TABLE Client(name); INSERT INTO Client VALUES(1)");
    return readFile(folder.path() / "other");
}

constexpr const char* foreign =
    " is not an Elmworth library; move it away to start with an empty one.";

struct Refusal {
    const char* name;
    std::string (*content)();
    std::string reason;
};
class RefusedFile : public LibraryFile, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedFile, isLeftAsItWasAndNamedInOneSentence) {
    const auto bytes = GetParam().content();
    write(bytes);
    const auto message = open();
    EXPECT_EQ(message, "Could not create ModelContainer: The " +
                           std::string(GetParam().reason == foreign ? "file " : "library ") +
                           file().string() + GetParam().reason);
    EXPECT_EQ(readFile(file()), bytes);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"library.sqlite"});
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RefusedFile,
    testing::Values(
        Refusal{"emptyFile", [] { return std::string(); }, foreign},
        Refusal{"textFile", [] { return std::string("Dear diary,\n").append(5000, '.'); }, foreign},
        Refusal{"shortHeader", [] { return std::string("SQLite format 3\0", 16); }, foreign},
        Refusal{"otherDatabase", &otherDatabase, foreign},
        Refusal{"nextVersion", [] { return libraryOfVersion(librarySchema().version + 1); },
                " has version " + sqlite::versionText(librarySchema().version + 1) +
                    ", which needs a newer Elmworth than this one."},
        Refusal{"negativeVersion", [] { return libraryOfVersion(-10000); },
                " has version 429495.72.96, which needs a newer Elmworth than this one."},
        Refusal{"noVersion", [] { return libraryOfVersion(0); },
                " has version 0.0.0, which this Elmworth does not know; move it away to start with "
                "an empty one, into which a backup can be restored."},
        Refusal{"versionBeforeTheFirst", [] { return libraryOfVersion(9999); },
                " has version 0.99.99, which this Elmworth does not know; move it away to start "
                "with an empty one, into which a backup can be restored."}),
    test::rowName);

TEST_F(LibraryFile, thatIsAFolderIsRefused) {
    fs::create_directory(file());
    EXPECT_NE(open(), "");
    EXPECT_TRUE(fs::is_directory(file()));
}

// --- damaged libraries ---------------------------------------------------------------------------

/// Reads all that a library holds and tries to write; it may fail, but only with a store error.
void useAll(const fs::path& file, RunLoop& runLoop) {
    try {
        Library container({file}, runLoop);
        auto& context = container.mainContext();
        for (const auto& entry : context.fetchQuietly<TimeEntry>())
            (void)entry->effectiveRateCents();
        for (const auto& client : context.fetchQuietly<Client>()) (void)client->projects();
        (void)context.fetchQuietly<Invoice>();
        context.insert(std::make_shared<Client>("New"));
        context.save();
    } catch (const StoreError&) {
    } catch (const LibraryError&) {
    }
}

class DamagedLibrary : public LibraryFile {
 protected:
    DamagedLibrary() {
        {
            TestLibrary library;
            for (int i = 0; i < 30; ++i) {
                const auto project = library.addProject("Website", library.addClient("Acme"));
                for (int hour = 0; hour < 20; ++hour) {
                    library.addEntry(project, at("2026-03-01T00:00Z") + std::chrono::hours(hour),
                                     at("2026-03-02T00:00Z"));
                }
            }
            library.context().save();
            library.close();
            RawDatabase(library.file()).run("PRAGMA wal_checkpoint(TRUNCATE)");
            whole = readFile(library.file());
        }
    }
    std::string whole;
};

TEST_F(DamagedLibrary, thatIsTruncatedNeverCrashes) {
    for (std::size_t size = 0; size < whole.size(); size += 1777) {
        fs::remove(file() += "-wal");
        write(whole.substr(0, size));
        useAll(file(), runLoop);
    }
}

TEST_F(DamagedLibrary, withRandomBytesNeverCrashes) {
    std::mt19937 random(20260302);
    std::uniform_int_distribution<std::size_t> place(100, whole.size() - 1);
    for (int round = 0; round < 100; ++round) {
        auto bytes = whole;
        for (int i = 0; i < 200; ++i) bytes[place(random)] = static_cast<char>(random());
        fs::remove(file() += "-wal");
        write(bytes);
        useAll(file(), runLoop);
    }
}

TEST_F(DamagedLibrary, isAnErrorAndNotAnEmptyAnswer) {
    write(whole.substr(0, 8192));
    try {
        Library container({file()}, runLoop);
        (void)container.mainContext().fetch<TimeEntry>();
        FAIL() << "most of the library is missing";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.code(), StoreError::Code::corrupt);
    } catch (const LibraryError&) {
    }
}

// --- where the user's library is -----------------------------------------------------------------

TEST(LibraryOptions, isTheLibraryInTheUsersFolder) {
    const test::ScopedEnvironment data("XDG_DATA_HOME", "/home/ada/data");
    const test::ScopedEnvironment hosted("XCTestConfigurationFilePath", std::nullopt);
    EXPECT_EQ(LibraryOptions::standard(false).url, "/home/ada/data/Elmworth/library.sqlite");
}

TEST(LibraryOptions, isInMemoryForADemo) {
    EXPECT_FALSE(LibraryOptions::standard(true).url);
}

TEST(LibraryOptions, isInMemoryForAHostedRunWhateverTheVariableHolds) {
    const test::ScopedEnvironment hosted("XCTestConfigurationFilePath", "");
    EXPECT_FALSE(LibraryOptions::standard(false).url);
}

}  // namespace
}  // namespace elmworth
