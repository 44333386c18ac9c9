// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "platform/LoginItem.h"
#include "platform/LongWork.h"
#include "screens/AppServices.h"
#include "updates/Updater.h"

namespace elmworth {

/// What the settings window works on, beside what all screens do. All of it outlives the window.
struct SettingsServices {
    AppServices app;
    LoginItem& loginItem;
    LongWork& longWork;
    /// The demo keeps nothing: it neither has a logo nor snapshots of its own.
    bool isDemo = false;
    std::string version{};  ///< "0.9"
    std::string build{};    ///< "12"
    /// The folder of the snapshots. Throws std::filesystem::filesystem_error.
    std::function<std::filesystem::path()> snapshotFolder{};
    /// Null for a program that never looks for updates.
    Updater* updater = nullptr;
    /// Looks for updates, and shows the main window, which says what was found.
    std::function<void()> lookForUpdates{};
    /// Shows a folder in the desktop's file manager.
    std::function<void(const std::filesystem::path&)> showFolder{};
};

}  // namespace elmworth
