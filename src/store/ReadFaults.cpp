// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/ReadFaults.h"

#include <utility>

#include "platform/StandardFolders.h"
#include "platform/SystemLog.h"

namespace elmworth {

void ReadFaults::note(const StoreError& error) noexcept {
    if (count_++ > 0) return;
    writeSystemLog(std::string("Elmworth: part of the library can't be read: ") + error.what());
    telling_ = runLoop_.post([this] { observers_.notify(); });
}

ReadFaults::Observation ReadFaults::observe(std::function<void()> found) {
    return observers_.add(std::move(found));
}

std::string unreadableLibraryText() {
    return "Part of the library can't be read. Snapshots of it are in “" +
           (dataFolder() / "Backups").string() +
           "”. In a terminal, elmworth check names what is damaged, and elmworth recover FOLDER "
           "writes what can be read into a new library.";
}

}  // namespace elmworth
