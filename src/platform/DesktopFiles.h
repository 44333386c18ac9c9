// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>

namespace elmworth {

/// What the desktop does with a file for a person. Nothing here waits for another program.
class DesktopFiles {
 public:
    virtual ~DesktopFiles() = default;

    /// Called at most once, maybe much later.
    using Failed = std::function<void()>;

    /// Opens `file` in the program that the person has for files of its kind. Calls `failed` when
    /// there is none, or the file is gone.
    virtual void open(const std::filesystem::path& file, Failed failed) = 0;

    /// Shows `file` in the file manager; its folder, where the file manager can't point to a file.
    /// Calls `failed` when there is no file manager.
    virtual void reveal(const std::filesystem::path& file, Failed failed) = 0;
};

}  // namespace elmworth
