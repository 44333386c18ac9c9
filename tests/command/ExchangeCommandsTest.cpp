// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// export, import, backup and restore.

#include <fcntl.h>
#include <unistd.h>

#include "command/CommandTest.h"
#include "platform/AtomicFile.h"
#include "support/FileSizeLimit.h"
#include "support/LibraryText.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;

class ExchangeCommands : public test::CommandTest {
 protected:
    [[nodiscard]] std::filesystem::path file(const std::string& name) const {
        return library_.folder.path() / name;
    }
    std::string written(const std::string& name) { return readFile(file(name)); }
    /// Runs a command whose standard input is the file `name`.
    std::string outputOf(const test::Arguments& arguments, const std::string& name) {
        const int input = ::open(file(name).c_str(), O_RDONLY | O_CLOEXEC);
        EXPECT_GE(input, 0);
        standardInput_ = input;
        auto text = output(arguments);
        standardInput_ = -1;
        ::close(input);
        return text;
    }
    std::string state() { return test::libraryText(library_.context()); }
    void clear() {
        for (const auto& invoice : library_.context().fetch<Invoice>()) {
            library_.context().deleteRecord(invoice);
        }
        library_.context().save();
        for (const auto& client : library_.context().fetch<Client>()) {
            library_.context().deleteRecord(client);
        }
        library_.context().save();
    }
};

// --- export ------------------------------------------------------------------------------------

TEST_F(ExchangeCommands, exportWritesFinishedTimeByStartInTheCurrentZone) {
    addEntry(design_, "2026-03-31T09:00+02:00", 90, "Logo, \"new\"");
    addEntry(website_, "2026-03-29T01:00+01:00", 60);
    timer_.start(design_);
    EXPECT_EQ(output({"export", "time.csv"}), "Exported 2 entries.\n");
    EXPECT_EQ(written("time.csv"),
              "Date,Start,End,Client,Project,Notes,Hours\r\n"
              "2026-03-29,2026-03-29T01:00:00+01:00,2026-03-29T03:00:00+02:00,Acme Co,Website,,"
              "1.00\r\n"
              "2026-03-31,2026-03-31T09:00:00+02:00,2026-03-31T10:30:00+02:00,Acme Co,Design,"
              "\"Logo, \"\"new\"\"\",1.50\r\n");
}

TEST_F(ExchangeCommands, exportOfARunningEntryAloneIsTheHeader) {
    timer_.start(design_);
    EXPECT_EQ(output({"export", "-"}), "Date,Start,End,Client,Project,Notes,Hours\r\n");
}

TEST_F(ExchangeCommands, exportOfTimeWithoutAProjectHasEmptyNames) {
    addEntry(nullptr, "2026-03-31T09:00+02:00", 60);
    EXPECT_THAT(output({"export", "-"}), HasSubstr("T10:00:00+02:00,,,,1.00\r\n"));
}

TEST_F(ExchangeCommands, exportTakesTheOptionsOfReport) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60, "shown");
    addEntry(otherWebsite_, "2026-03-31T09:00+02:00", 60, "hidden");
    addEntry(design_, "2026-01-31T09:00+01:00", 60, "long ago");
    const auto text = output({"export", "-", "--client", "acme co"});
    EXPECT_THAT(text, HasSubstr("shown"));
    EXPECT_THAT(text, testing::Not(HasSubstr("hidden")));
    EXPECT_THAT(text, testing::Not(HasSubstr("long ago")));
}

TEST_F(ExchangeCommands, exportTellsAsJSONWhatItWrote) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60);
    const auto result = json({"export", "time.csv"});
    EXPECT_EQ(result["file"].GetString(), file("time.csv").string());
    EXPECT_EQ(result["exported"].GetInt(), 1);
}

TEST_F(ExchangeCommands, exportToAFullDiskLeavesTheOldFile) {
    for (int i = 0; i < 40; ++i) {
        addEntry(design_, "2026-03-31T09:00+02:00", i + 1, std::string(200, 'n'));
    }
    writeAtomically(file("time.csv"), "the old one");
    const auto before = library_.folder.names().size();
    {
        const test::FileSizeLimit fullDisk(1000);
        const auto result = run({"export", "time.csv"});
        EXPECT_EQ(result.exitStatus, 1);
        EXPECT_THAT(result.errors, HasSubstr("time.csv: File too large\n"));
    }
    EXPECT_EQ(written("time.csv"), "the old one");
    EXPECT_EQ(library_.folder.names().size(), before);
}

// --- import ------------------------------------------------------------------------------------

constexpr const char* report =
    "User,Email,Client,Project,Task,Description,Billable,Start date,Start time,End date,End time,"
    "Duration,Tags,Amount ()\n"
    "Jane,j@x,Acme Co,Design,,Logo,Yes,2026-03-02,09:00:00,2026-03-02,10:00:00,01:00:00,,\n"
    "Jane,j@x,Initech,Printer,,,Yes,2026-03-03,09:00:00,2026-03-03,10:00:00,01:00:00,,\n";

TEST_F(ExchangeCommands, importAddsTimeAndTellsWhatIsNew) {
    writeAtomically(file("report.csv"), report);
    const auto result = json({"import", "report.csv"});
    EXPECT_THAT(keys(result), ElementsAre("imported", "newClients", "skipped", "message"));
    EXPECT_EQ(result["imported"].GetInt(), 2);
    EXPECT_STREQ(result["newClients"][0].GetString(), "Initech");
    EXPECT_EQ(result["skipped"].GetInt(), 0);
    EXPECT_STREQ(result["message"].GetString(),
                 "Imported 2 entries. New clients: Initech — set their rates in Clients.");
    EXPECT_EQ(design_->entries().at(0)->start.get(), test::at("2026-03-02T09:00+01:00"));
    EXPECT_EQ(output({"import", "report.csv"}),
              "Imported 0 entries. Skipped 2 already imported.\n");
    EXPECT_EQ(history_.undoText(), "Undo Import");
}

TEST_F(ExchangeCommands, aDashImportsStandardInput) {
    writeAtomically(file("report.csv"), report);
    EXPECT_EQ(outputOf({"import", "-"}, "report.csv"),
              "Imported 2 entries. New clients: Initech — set their rates in Clients.\n");
}

TEST_F(ExchangeCommands, importedNamesDoNotSteerTheTerminal) {
    writeAtomically(file("report.csv"),
                    "start,end,hours,client\n2026-03-01T09:00:00Z,2026-03-01T10:00:00Z,1,"
                    "\"red \x1b[31m\nline\"\n");
    EXPECT_EQ(output({"import", "report.csv"}),
              "Imported 1 entry. New clients: red  [31m line — set their rates in Clients.\n");
    EXPECT_EQ(library_.context().fetch<Client>().back()->name.get(), "red \x1b[31m\nline");
}

TEST_F(ExchangeCommands, importToAFullDiskChangesNothing) {
    writeAtomically(file("report.csv"), report);
    const auto before = state();
    {
        const test::FileSizeLimit fullDisk(0);
        const auto result = run({"import", "report.csv"});
        EXPECT_EQ(result.exitStatus, 1);
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1);
    }
    EXPECT_FALSE(library_.context().hasChanges());
    EXPECT_EQ(state(), before);
}

// --- backup and restore ------------------------------------------------------------------------

TEST_F(ExchangeCommands, backupPrintsItsPathAndCountsAsJSON) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60);
    EXPECT_EQ(output({"backup", "library.json"}), file("library.json").string() + "\n");
    const auto result = json({"backup", "library.json"});
    EXPECT_EQ(result["clients"].GetInt(), 2);
    EXPECT_EQ(result["projects"].GetInt(), 3);
    EXPECT_EQ(result["entries"].GetInt(), 1);
    EXPECT_EQ(result["invoices"].GetInt(), 0);
    EXPECT_EQ(output({"backup", "-"}), written("library.json"));
}

TEST_F(ExchangeCommands, namedFilesAreReadByWhomTheUmaskOfTheCallerLets) {
    const auto mode = [&](const std::string& name) {
        return static_cast<unsigned>(std::filesystem::status(file(name)).permissions());
    };
    addEntry(design_, "2026-03-31T09:00+02:00", 60);
    const auto number = billMarch();
    for (const unsigned umask : {0022U, 0027U, 0077U}) {
        umask_ = umask;
        const std::string suffix = std::to_string(umask);
        output({"export", "time" + suffix});
        output({"backup", "library" + suffix});
        output({"invoice", "pdf", number, "invoice" + suffix});
        for (const char* name : {"time", "library", "invoice"}) {
            EXPECT_EQ(mode(name + suffix), 0666 & ~umask) << name << suffix;
        }
    }
    const auto stored = output({"invoice", "pdf", number});
    EXPECT_EQ(mode(stored.substr(0, stored.size() - 1)), 0600U);
}

TEST_F(ExchangeCommands, restoreBringsTheLibraryAndTheProfileBack) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60);
    billMarch();
    run({"profile", "set", "name", "Jane"});
    output({"backup", "library.json"});
    clear();
    run({"profile", "set", "name", "Somebody else"});

    const auto result = json({"restore", "library.json"});
    EXPECT_THAT(keys(result), ElementsAre("clients", "invoices", "unlinkedEntries", "message"));
    EXPECT_EQ(result["clients"].GetInt(), 2);
    EXPECT_EQ(result["invoices"].GetInt(), 1);
    EXPECT_EQ(result["unlinkedEntries"].GetInt(), 0);
    EXPECT_STREQ(result["message"].GetString(), "Restored 2 clients and 1 invoices.");
    EXPECT_EQ(profiles_.profile().name, "Jane");
    EXPECT_EQ(output({"backup", "-"}), written("library.json"));
    EXPECT_FALSE(history_.canUndo()) << "a profile is no part of a step";
}

TEST_F(ExchangeCommands, aDashRestoresStandardInput) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60);
    output({"backup", "library.json"});
    clear();
    EXPECT_EQ(outputOf({"restore", "-"}, "library.json"), "Restored 2 clients and 0 invoices.\n");
    EXPECT_EQ(output({"backup", "-"}), written("library.json"));
}

TEST_F(ExchangeCommands, restoreIntoALibraryThatIsNotEmptyChangesNothing) {
    output({"backup", "library.json"});
    run({"profile", "set", "name", "Somebody else"});
    const auto before = state();
    expectRefusal({"restore", "library.json"}, 1,
                  "Restoring needs an empty library. Delete your clients first, or restore on a "
                  "fresh install.");
    EXPECT_EQ(state(), before);
    EXPECT_EQ(profiles_.profile().name, "Somebody else");
}

TEST_F(ExchangeCommands, restoreOfABrokenDocumentChangesNothing) {
    output({"backup", "library.json"});
    auto json = written("library.json");
    clear();
    const auto before = state();
    json.replace(json.find("\"isArchived\": false"), 19, "\"isArchived\": 0    ");
    writeAtomically(file("broken.json"), json);
    expectRefusal({"restore", "broken.json"}, 1,
                  "clients[0].projects[0].isArchived: neither true nor false (line 13).");
    EXPECT_EQ(state(), before);
}

TEST_F(ExchangeCommands, restoreToAFullDiskChangesNothingAndKeepsTheProfile) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60);
    run({"profile", "set", "name", "Jane"});
    output({"backup", "library.json"});
    clear();
    run({"profile", "set", "name", "Somebody else"});
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_EQ(run({"restore", "library.json"}).exitStatus, 1);
    }
    EXPECT_FALSE(library_.context().hasChanges());
    EXPECT_EQ(library_.context().fetchCount<Client>(), 0U);
    EXPECT_EQ(profiles_.profile().name, "Somebody else");
    output({"restore", "library.json"});
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

TEST_F(ExchangeCommands, filesThatCannotBeReadAreNamed) {
    for (const char* command : {"import", "restore"}) {
        const auto missing = run({command, "none"});
        EXPECT_EQ(missing.errors, file("none").string() + ": No such file or directory\n");
        EXPECT_EQ(run({command, "."}).exitStatus, 1);
        EXPECT_EQ(run({command, "/dev/zero"}).exitStatus, 1);
        expectUsageError({command}, "FILE");
        EXPECT_EQ(run({command, "-"}).errors, "standard input: Bad file descriptor\n");
    }
    EXPECT_EQ(run({"backup", "no/such/folder"}).exitStatus, 1);
    EXPECT_EQ(run({"export", "no/such/folder"}).exitStatus, 1);
}

TEST_F(ExchangeCommands, backupTellsOfDamagedTextsBesideItsResult) {
    addEntry(design_, "2026-03-31T09:00+02:00", 90, "caf\xE9");
    for (const char* target : {"backup.json", "-"}) {
        const auto result = run({"backup", target});
        EXPECT_EQ(result.exitStatus, 0);
        EXPECT_EQ(result.errors,
                  "1 text of the library held damaged bytes, which stand as � in the document.\n");
    }
    EXPECT_THAT(written("backup.json"), HasSubstr("caf�"));
    clear();
    EXPECT_EQ(output({"restore", "backup.json"}), "Restored 2 clients and 0 invoices.\n");
}

TEST_F(ExchangeCommands, statusTellsOfASnapshotThatCouldNotBeReadBack) {
    const test::ScopedEnvironment data("XDG_DATA_HOME", "/data");
    profiles_.defaults().setString("failedSnapshotCheck", "2026-03-10T12:00:00Z It is\nno JSON.");
    const std::string sentence =
        "The snapshot of Mar 10, 2026 failed its check and was removed: It is no JSON. Earlier "
        "ones are in /data/Elmworth/Backups.";
    EXPECT_EQ(output({"status"}),
              "Nothing is running.\nToday 0:00 · This week 0:00\n" + sentence + "\n");
    EXPECT_EQ(json({"status"})["snapshotProblem"].GetString(), sentence);
}

}  // namespace
}  // namespace elmworth
