// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/StandardFolders.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/AtomicFile.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using test::ScopedEnvironment;

TEST(StandardFolders, followTheBaseDirectories) {
    const ScopedEnvironment data("XDG_DATA_HOME", "/data");
    const ScopedEnvironment config("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(dataFolder(), "/data/Elmworth");
    EXPECT_EQ(settingsFolder(), "/config/Elmworth");
}

TEST(StandardFolders, lieInTheHomeFolderWithoutBaseDirectories) {
    const ScopedEnvironment home("HOME", "/home/someone");
    const ScopedEnvironment data("XDG_DATA_HOME", std::nullopt);
    const ScopedEnvironment config("XDG_CONFIG_HOME", "");
    EXPECT_EQ(dataFolder(), "/home/someone/.local/share/Elmworth");
    EXPECT_EQ(settingsFolder(), "/home/someone/.config/Elmworth");
}

TEST(StandardFolders, relativeBaseDirectoriesDoNotCount) {
    const ScopedEnvironment home("HOME", "/home/someone");
    const ScopedEnvironment data("XDG_DATA_HOME", "data");
    EXPECT_EQ(dataFolder(), "/home/someone/.local/share/Elmworth");
}

TEST(StandardFolders, areAbsoluteAlsoWithoutAHomeFolder) {
    const ScopedEnvironment home("HOME", std::nullopt);
    const ScopedEnvironment data("XDG_DATA_HOME", std::nullopt);
    EXPECT_TRUE(dataFolder().is_absolute());
}

TEST(StandardFolders, aTemporaryDataFolderStandsInAndGoes) {
    const ScopedEnvironment data("XDG_DATA_HOME", "/data");
    std::filesystem::path folder;
    {
        const TemporaryDataFolder temporary;
        folder = dataFolder();
        struct stat status {};
        ASSERT_EQ(::stat(folder.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700);
        writeAtomically(createPrivateFolder(folder / "Invoices") / "INV-2026-001.pdf", "%PDF");
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_EQ(dataFolder(), "/data/Elmworth");
}

TEST(StandardFolders, aTemporaryDataFolderNeedsNoVariable) {
    const ScopedEnvironment temporary("TMPDIR", "/nowhere");
    const TemporaryDataFolder folder;
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder()));
}

TEST(StandardFolders, createdFoldersAreForTheUserAlone) {
    const test::TemporaryFolder folder;
    const auto created = createPrivateFolder(folder.path() / "a" / "b");
    EXPECT_EQ(created, folder.path() / "a" / "b");
    for (const auto& path : {created, created.parent_path()}) {
        struct stat status {};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700) << path;
    }
}

TEST(StandardFolders, anExistingFolderIsLeftAsItIs) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    createPrivateFolder(folder.path());
    struct stat status {};
    ASSERT_EQ(::stat(folder.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0755);
}

TEST(StandardFolders, aFileInTheWayIsReported) {
    const test::TemporaryFolder folder;
    writeAtomically(folder.path() / "a", "");
    EXPECT_THROW(createPrivateFolder(folder.path() / "a"), std::filesystem::filesystem_error);
    EXPECT_THROW(createPrivateFolder(folder.path() / "a" / "b"), std::filesystem::filesystem_error);
}

}  // namespace
}  // namespace elmworth
