// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <fstream>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "exchange/BackupExporter.h"
#include "platform/AtomicFile.h"
#include "records/Client.h"
#include "screens/settings/SettingsTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class DataExchangeTest : public test::SettingsTest {
 protected:
    [[nodiscard]] std::filesystem::path path(const std::string& name) {
        return timer.library.folder.path() / name;
    }
    [[nodiscard]] QUrl url(const std::string& name) {
        return QUrl::fromLocalFile(QString::fromStdString(path(name).string()));
    }
    QUrl write(const std::string& name, const std::string& text) {
        std::ofstream(path(name)) << text;
        return url(name);
    }
    /// A table of `rows` hours, one after another.
    QUrl writeTable(const std::string& name, int rows) {
        std::string text = "Start,End,Hours,Client,Project\n";
        for (int i = 0; i < rows; ++i) {
            const auto start = test::at("2020-01-01T00:00Z") + i * 1h;
            text += formatISO8601(start) + ',' + formatISO8601(start + 30min) + ",,Acme,Website\n";
        }
        return write(name, text);
    }
    /// A backup of a library with an entry, and the library empty again.
    QUrl writeBackupAndWipe() {
        const auto acme = timer.library.addClient("Acme");
        const auto website = timer.library.addProject("Website", acme);
        timer.library.addEntry(website, test::TestTimer::today("07:00"),
                               test::TestTimer::today("08:00"));
        timer.library.context().save();
        setProfile([](auto& profile) { profile.name = "Mine"; });
        exchange.exportBackup(url("backup.json"));
        timer.library.context().deleteRecord(website);
        timer.library.context().deleteRecord(acme);
        for (const auto& entry : timer.library.context().fetch<TimeEntry>()) {
            timer.library.context().deleteRecord(entry);
        }
        timer.library.context().save();
        setProfile([](auto& profile) { profile.name.clear(); });
        return url("backup.json");
    }
    [[nodiscard]] std::size_t entries() { return timer.library.context().fetchCount<TimeEntry>(); }
    [[nodiscard]] std::string told() const {
        return confirmation.isOpen()
                   ? (confirmation.title() + u'|' + confirmation.message()).toStdString()
                   : "";
    }

    Confirmation confirmation;
    int turns = 0;
    int stopAt = -1;
    DataExchange exchange{settingsServices(), confirmation, {[this] { turn(); }, 0ms}};

 private:
    void turn() {
        EXPECT_TRUE(longWork.isRunning());
        EXPECT_TRUE(exchange.isWorking());
        EXPECT_NE(exchange.step(), QString());
        if (++turns == stopAt) exchange.cancel();
    }
};

TEST_F(DataExchangeTest, proposesANameWithTheDayInUTC) {
    timer.setClock("2026-03-01T23:30-01:00");
    EXPECT_TRUE(exchange.backupFile().fileName() ==
                QStringLiteral("Elmworth Backup 2026-03-02.json"));
}

TEST_F(DataExchangeTest, whatIsExportedCanBeRestored) {
    const auto file = writeBackupAndWipe();
    EXPECT_EQ(told(), "");
    EXPECT_EQ(test::readBackup(path("backup.json")).clients.size(), 1U);
    exchange.restoreBackup(file);
    EXPECT_EQ(told(), "Import|Restored 1 clients and 0 invoices.");
    EXPECT_EQ(entries(), 1U);
    EXPECT_EQ(profile().name, "Mine");
    EXPECT_FALSE(timer.history->canUndo());
    EXPECT_FALSE(longWork.isRunning());
}

TEST_F(DataExchangeTest, asksBeforeABackupTakesThePlaceOfAFile) {
    const auto file = write("backup.json", "other");
    exchange.exportBackup(file);
    EXPECT_EQ(confirmation.title(), QStringLiteral("Replace “backup.json”?"));
    confirmation.reject();
    EXPECT_EQ(readFile(path("backup.json")), "other");
    exchange.exportBackup(file);
    confirmation.accept();
    EXPECT_NO_THROW((void)test::readBackup(path("backup.json")));
}

TEST_F(DataExchangeTest, anExportThatFailsSaysSo) {
    exchange.exportBackup(url("nowhere/backup.json"));
    EXPECT_EQ(told(), "Export Backup|“backup.json” can't be used: No such file or directory.");
    exchange.exportBackup(QUrl(QStringLiteral("https://example.org/backup.json")));
    EXPECT_EQ(told(),
              "Export Backup|Only a file on this computer can be used. Choose another one.");
}

TEST_F(DataExchangeTest, aRestoreIntoALibraryThatIsNotEmptyIsRefused) {
    const auto file = writeBackupAndWipe();
    timer.library.addClient("Globex");
    timer.library.context().save();
    exchange.restoreBackup(file);
    EXPECT_EQ(told(),
              "Import|Restoring needs an empty library. Delete your clients first, or "
              "restore on a fresh install.");
    EXPECT_EQ(entries(), 0U);
    EXPECT_EQ(profile().name, "");
}

TEST_F(DataExchangeTest, aFileThatIsNoBackupIsRefusedWithItsPlace) {
    exchange.restoreBackup(write("bad.json", "{\"version\": 1}"));
    EXPECT_THAT(told(), testing::StartsWith("Import|"));
    EXPECT_THAT(told(), testing::HasSubstr("\"clients\" is missing"));
    exchange.restoreBackup(url("nowhere.json"));
    EXPECT_EQ(told(), "Import|“nowhere.json” can't be used: No such file or directory.");
}

TEST_F(DataExchangeTest, importsOnceAndSkipsWhatIsThere) {
    const auto file = writeTable("time.csv", 3);
    exchange.importCSV(file);
    EXPECT_EQ(told(), "Import|Imported 3 entries. New clients: Acme — set their rates in Clients.");
    exchange.importCSV(file);
    EXPECT_EQ(told(), "Import|Imported 0 entries. Skipped 3 already imported.");
    timer.history->undo();
    EXPECT_EQ(entries(), 0U);
}

TEST_F(DataExchangeTest, aTableThatCannotBeReadIsRefused) {
    exchange.importCSV(write("empty.csv", ""));
    EXPECT_EQ(told(), "Import|No time entries were found in this file.");
    exchange.importCSV(write("other.csv", "A,B\n1,2\n"));
    EXPECT_EQ(told(),
              "Import|This CSV isn't in a format Elmworth knows. Use an Elmworth export or a "
              "Toggl Track detailed report.");
    EXPECT_FALSE(timer.history->canUndo());
}

TEST_F(DataExchangeTest, saysBeforeAnImportThatItCannotBeUndone) {
    const auto file = writeTable("time.csv", 4096);
    exchange.importCSV(file);
    EXPECT_EQ(told(), "Import|This file holds 4,096 entries. This import can't be undone.");
    confirmation.reject();
    EXPECT_EQ(entries(), 0U);
    exchange.importCSV(file);
    confirmation.accept();
    EXPECT_EQ(told(),
              "Import|Imported 4096 entries. New clients: Acme — set their rates in Clients.");
    EXPECT_EQ(entries(), 4096U);
    EXPECT_FALSE(timer.history->canUndo());
}

TEST_F(DataExchangeTest, theLargestImportThatAsksNothingCanBeUndone) {
    exchange.importCSV(writeTable("time.csv", 4095));
    EXPECT_EQ(entries(), 4095U);
    timer.history->undo();
    EXPECT_EQ(entries(), 0U);
}

TEST_F(DataExchangeTest, whatIsStoppedChangesNothingWhereverItIs) {
    const auto table = writeTable("time.csv", 1000);
    exchange.importCSV(table);
    const int all = turns;
    EXPECT_GT(all, 20);
    timer.history->undo();
    for (stopAt = 1; stopAt <= all; stopAt += 5) {
        turns = 0;
        exchange.importCSV(table);
        EXPECT_EQ(told(), "Import|Stopped. Nothing was changed.") << stopAt;
        EXPECT_EQ(entries(), 0U) << stopAt;
        EXPECT_FALSE(timer.library.context().hasChanges()) << stopAt;
    }
}

TEST_F(DataExchangeTest, aStoppedExportLeavesTheFileAsItWas) {
    exchange.importCSV(writeTable("time.csv", 4095));
    confirmation.accept();
    write("backup.json", "other");
    turns = 0;
    stopAt = 1;
    exchange.exportBackup(url("backup.json"));
    confirmation.accept();
    if (turns > 0) EXPECT_EQ(readFile(path("backup.json")), "other");
}

TEST_F(DataExchangeTest, aSecondWorkDoesNotBeginDuringTheFirst) {
    const auto table = writeTable("time.csv", 3);
    longWork.run([&] { exchange.importCSV(table); });
    EXPECT_EQ(entries(), 0U);
}

TEST_F(DataExchangeTest, tellsTheWindowsBeforeAndAfter) {
    std::vector<bool> states;
    const auto observation = longWork.observe([&] { states.push_back(longWork.isRunning()); });
    exchange.restoreBackup(url("nowhere.json"));
    EXPECT_THAT(states, testing::ElementsAre(true, false));
}

}  // namespace
}  // namespace elmworth
