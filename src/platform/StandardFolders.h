// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

namespace elmworth {

/// The user's folder for this program's data: "Elmworth" in XDG_DATA_HOME (else ~/.local/share);
/// see "base directories" at freedesktop.org. Not created.
[[nodiscard]] std::filesystem::path dataFolder();

/// The user's folder for this program's settings: "Elmworth" in XDG_CONFIG_HOME (else ~/.config).
[[nodiscard]] std::filesystem::path settingsFolder();

/// While one lives, `dataFolder()` is a private folder below the system's temporary one, which goes
/// with it: what keeps its library in memory touches no file of the user's. One at a time.
class TemporaryDataFolder {
 public:
    /// Throws std::filesystem::filesystem_error when the folder can't be made.
    TemporaryDataFolder();
    TemporaryDataFolder(const TemporaryDataFolder&) = delete;
    TemporaryDataFolder& operator=(const TemporaryDataFolder&) = delete;
    ~TemporaryDataFolder();

    [[nodiscard]] static bool isInUse();
};

/// Creates `folder` and its missing parents; what is created gets mode 0700. Returns `folder`.
/// Throws std::filesystem::filesystem_error.
std::filesystem::path createPrivateFolder(const std::filesystem::path& folder);

}  // namespace elmworth
