// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "store/sqlite/LibraryFile.h"
#include "support/DamagedTable.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using sqlite::longestKeptLog;
using test::TestLibrary;

/// A library, and the size of its log's file.
class LibraryLog : public testing::Test {
 protected:
    [[nodiscard]] fs::path log() const { return library.file() += "-wal"; }
    [[nodiscard]] std::int64_t size() const {
        return static_cast<std::int64_t>(fs::file_size(log()));
    }
    /// Adds clients that take some ten megabytes of the log.
    void addMuch() {
        for (int i = 0; i < 100; ++i) {
            library.addClient(std::to_string(i))->address = std::string(100'000, 'a');
        }
    }
    void saveAClick() {
        library.addClient("Acme");
        library.context().save();
    }

    TestLibrary library;
};

TEST_F(LibraryLog, beginsAnewInALaterTurnOnceItIsLong) {
    const auto client = library.addClient("Acme");
    const auto saveOften = [&](int times) {
        for (int i = 0; i < times; ++i) {
            client->address = std::string(3000, 'x') + std::to_string(i);
            library.context().save();
        }
    };
    saveOften(300);
    const auto longest = size();
    library.runLoop.turn();
    saveOften(100);
    EXPECT_EQ(size(), longest);
    library.reopen();
    EXPECT_TRUE(library.context().fetch<Client>().at(0)->address->ends_with("x99"));
}

TEST_F(LibraryLog, isNotMovedIntoALibraryThatIsDamaged) {
    const auto client = library.addClient("Acme");
    library.addProject("Website", client);
    library.context().save();
    library.close();
    test::damageTable(library.file(), "Project");
    library.open();
    const auto bytes = readFile(library.file());
    EXPECT_THROW(static_cast<void>(library.context().fetch<Project>()), StoreError);
    addMuch();
    library.context().save();
    library.runLoop.turn();
    library.close();
    EXPECT_GT(size(), 2 * longestKeptLog);
    EXPECT_EQ(readFile(library.file()), bytes);
}

TEST_F(LibraryLog, isCutBackInALaterTurnAfterAnImport) {
    addMuch();
    library.context().save();
    EXPECT_GT(size(), 2 * longestKeptLog);
    library.runLoop.turn();
    EXPECT_LE(size(), longestKeptLog);
    saveAClick();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 101U);
}

TEST_F(LibraryLog, isCutBackInALaterTurnAfterAnImportThatWasGivenUp) {
    addMuch();
    library.context().flushInserts();
    library.addClient("Globex")->address = std::string(longestKeptLog, 'a');
    library.context().flushInserts();
    library.context().rollback();
    EXPECT_GT(size(), longestKeptLog);
    library.runLoop.turn();
    EXPECT_LE(size(), longestKeptLog);
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
}

TEST_F(LibraryLog, isCutBackAtTheEndOfACommandThatImported) {
    addMuch();
    library.context().save();
    library.close();
    EXPECT_LE(size(), longestKeptLog);
    library.open();
    EXPECT_EQ(library.context().fetchCount<Client>(), 100U);
}

TEST_F(LibraryLog, thatWasLargeBeforeIsCutBackSoonAfterTheStart) {
    saveAClick();
    library.close();
    fs::resize_file(log(), 5 * longestKeptLog);
    library.open();
    library.runLoop.turn();
    EXPECT_LE(size(), longestKeptLog);
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
}

TEST_F(LibraryLog, isNeverCutBackByAClick) {
    saveAClick();
    library.runLoop.turn();
    library.close();
    fs::resize_file(log(), 5 * longestKeptLog);
    library.open();
    for (int i = 0; i < 10; ++i) saveAClick();
    EXPECT_EQ(size(), 5 * longestKeptLog);
}

}  // namespace
}  // namespace elmworth
