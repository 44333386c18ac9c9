// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/FileWatch.h"

#include <QFile>
#include <system_error>
#include <utility>

#include "platform/StandardFolders.h"

namespace elmworth {

FileWatch::FileWatch(const std::filesystem::path& file, std::function<void()> changed)
    : file_(QString::fromStdString(file.string())) {
    if (file.empty()) return;
    try {
        createPrivateFolder(file.parent_path());
    } catch (const std::system_error&) {
        return;
    }
    const auto look = [this, changed = std::move(changed)] {
        watchFile();
        changed();
    };
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, look);
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, look);
    watcher_.addPath(QString::fromStdString(file.parent_path().string()));
    watchFile();
}

/// A file that takes the place of another has to be watched anew; the folder alone does not tell of
/// what is written into a file that stays, or into one that a link leads to.
void FileWatch::watchFile() {
    if (watcher_.files().isEmpty() && QFile::exists(file_)) watcher_.addPath(file_);
}

}  // namespace elmworth
