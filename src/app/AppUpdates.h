// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/HttpsDownloads.h"
#include "updates/Updater.h"

namespace elmworth {

/// The updates of the running application. Where the list of releases lies and who signs it are
/// settings of the build (ELMWORTH_UPDATE_FEED, ELMWORTH_UPDATE_KEYS); without them nothing ever
/// goes out. An AppImage is replaced when the application ends.
class AppUpdates {
 public:
    /// All outlive it. One that `isHosted` looks for nothing.
    AppUpdates(Settings& settings, RunLoop& runLoop, Clock now, bool isHosted);

    [[nodiscard]] Updater& updater() noexcept { return updater_; }

 private:
    HttpsDownloads downloads_;
    Updater updater_;
};

}  // namespace elmworth
