// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "platform/StandardFolders.h"
#include "screens/settings/SettingsModel.h"
#include "support/FileSizeLimit.h"
#include "support/LibraryTest.h"
#include "support/TestLoginItem.h"

namespace elmworth::test {

/// The settings over a library, a clock and folders of their own. It is Monday, 2026-03-02, 09:00.
class SettingsTest : public LibraryTest {
 protected:
    [[nodiscard]] SettingsServices settingsServices() {
        return {.app = services(),
                .loginItem = loginItem,
                .longWork = longWork,
                .version = "0.9",
                .build = "12",
                .snapshotFolder =
                    [this] { return createPrivateFolder(timer.library.folder.path() / "Backups"); },
                .updater = updater.get(),
                .lookForUpdates = [this] { ++looks; },
                .showFolder = [this](const auto& folder) { shown = folder; }};
    }
    [[nodiscard]] const BusinessProfile& profile() { return profiles.profile(); }
    /// What the settings file holds, as the next start reads it.
    [[nodiscard]] BusinessProfile storedProfile() {
        Settings stored(defaults.file());
        return ProfileStore(stored).profile();
    }

    ScopedEnvironment data{"XDG_DATA_HOME", timer.library.folder.path().string()};
    TestLoginItem loginItem;
    LongWork longWork;
    std::filesystem::path shown;
    std::unique_ptr<Updater> updater;  ///< null unless a test makes one
    int looks = 0;
    SettingsKeeper keeper;
};

}  // namespace elmworth::test
