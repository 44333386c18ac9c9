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

/// Creates `folder` and its missing parents; what is created gets mode 0700. Returns `folder`.
/// Throws std::filesystem::filesystem_error.
std::filesystem::path createPrivateFolder(const std::filesystem::path& folder);

}  // namespace elmworth
