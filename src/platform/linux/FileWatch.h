// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <filesystem>
#include <functional>

namespace elmworth {

/// Calls `changed` in a turn of the event loop after somebody wrote, made, replaced or removed a
/// file, and now and then without such a reason. Needs a QCoreApplication.
class FileWatch {
 public:
    /// Makes the file's folder when it is missing; where that fails, or `file` is empty, nothing is
    /// watched.
    FileWatch(const std::filesystem::path& file, std::function<void()> changed);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

 private:
    void watchFile();

    QString file_;
    QFileSystemWatcher watcher_;
};

}  // namespace elmworth
