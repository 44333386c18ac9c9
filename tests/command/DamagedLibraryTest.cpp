// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "command/CommandLine.h"
#include "support/DamagedTable.h"
#include "support/Instants.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using testing::HasSubstr;
using testing::Not;

/// Commands on a library whose projects can't be read: an hour is billed, another is
/// not, and a timer runs.
class DamagedLibrary : public testing::Test {
 protected:
    DamagedLibrary() {
        const auto client = library_.addClient("Acme");
        const auto project = library_.addProject("Website", client);
        library_.addEntry(project, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"))->invoice =
            library_.addInvoice("INV-1", client);
        library_.addEntry(project, at("2026-03-03T09:00Z"), at("2026-03-03T10:00Z"))->notes =
            "Landing page";
        library_.addEntry(project, at("2026-03-31T11:00Z"), std::nullopt);
        library_.addProject("Shop", library_.addClient("Globex"));
        library_.context().save();
        library_.close();
        test::damageTable(library_.file(), "Project");
        library_.open();
    }

    CommandResult run(const std::vector<std::string>& arguments) {
        Settings defaults(library_.folder.path() / "Elmworth.ini");
        ProfileStore profiles(defaults);
        const Calendar calendar(Locale("en_US"), "UTC");
        const Clock now = [] { return at("2026-03-31T12:00Z"); };
        TimerService timer(library_.context(), now, library_.runLoop, [&] { return calendar; });
        timer.restore();
        UndoHistory history(library_.context());
        CommandEnvironment environment{
            library_.context(),    history, timer, profiles, now, Locale("en_US"), calendar,
            library_.folder.path()};
        return runCommand(parseCommandLine(arguments), environment);
    }
    /// The command does its work, and says that something is missing.
    std::string incompleteOutput(const std::vector<std::string>& arguments) {
        const auto result = run(arguments);
        EXPECT_EQ(result.exitStatus, 0);
        EXPECT_EQ(result.errors,
                  "Part of the library can't be read. Snapshots of it are in "
                  "“/home/ada/data/Elmworth/Backups”. In a terminal, elmworth check names what is "
                  "damaged, and elmworth recover FOLDER writes what can be read into a new "
                  "library.\n");
        return result.output;
    }
    void expectRefusal(const std::vector<std::string>& arguments) {
        const auto result = run(arguments);
        EXPECT_EQ(result.exitStatus, 1) << result.output;
        EXPECT_THAT(result.errors, HasSubstr("The library is damaged: "));
        EXPECT_FALSE(library_.context().hasChanges());
    }

    const test::ScopedEnvironment data_{"XDG_DATA_HOME", "/home/ada/data"};
    test::TestLibrary library_;
};

TEST_F(DamagedLibrary, showsTheTimeThatCanBeRead) {
    EXPECT_THAT(incompleteOutput({"report", "--period", "This Month"}), HasSubstr("Landing page"));
    EXPECT_THAT(incompleteOutput({"report", "--period", "This Month", "--format", "json"}),
                HasSubstr("Landing page"));
}

TEST_F(DamagedLibrary, makesNoInvoiceLookCheaper) {
    EXPECT_THAT(incompleteOutput({"invoice", "show", "INV-1"}),
                HasSubstr("The figures of INV-1 can't be read."));
    EXPECT_THAT(incompleteOutput({"invoice", "show", "INV-1", "--format", "json"}),
                AllOf(HasSubstr("\"error\": \"The figures of INV-1 can't be read.\""),
                      Not(HasSubstr("totalCents"))));
}

TEST_F(DamagedLibrary, stopsTheTimerOnAProjectThatCannotBeRead) {
    const auto entry = library_.context().fetch<TimeEntry>().back();
    EXPECT_EQ(incompleteOutput({"stop"}), "Stopped No project after 1:00:00.\n");
    EXPECT_TRUE(entry->project.id());
    EXPECT_EQ(entry->end.get(), at("2026-03-31T12:00Z"));
}

TEST_F(DamagedLibrary, billsNothingOfWhichAPartIsMissing) {
    expectRefusal({"invoice", "create", "--client", "Acme", "--period", "This Month"});
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 1U);
}

TEST_F(DamagedLibrary, isNoBackupFromWhichAPartIsMissing) {
    expectRefusal({"backup", "backup.json"});
    EXPECT_FALSE(std::filesystem::exists(library_.folder.path() / "backup.json"));
}

TEST_F(DamagedLibrary, getsNoTimeASecondTime) {
    const auto file = library_.folder.path() / "time.csv";
    std::ofstream(file)
        << "Client,Project,Notes,Start,End,Hours\n"
           "Acme,Website,Landing page,2026-03-03T09:00:00Z,2026-03-03T10:00:00Z,1\n";
    expectRefusal({"import", file.string()});
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 3U);
}

TEST_F(DamagedLibrary, losesNoClientOfWhoseWorkNothingIsKnown) {
    expectRefusal({"client", "delete", "Globex"});
    EXPECT_EQ(library_.context().fetchCount<Client>(), 2U);
}

}  // namespace
}  // namespace elmworth
