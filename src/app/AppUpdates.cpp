// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AppUpdates.h"

#include <QCoreApplication>
#include <cstdlib>
#include <utility>

namespace elmworth {

namespace {

/// The AppImage that runs, as its runtime tells it; empty where a package manager brought the
/// program.
std::filesystem::path replaceableProgram() {
    const char* image = std::getenv("APPIMAGE");
    return image != nullptr ? image : "";
}

Updater::Setup setup(bool isHosted) {
    return {ELMWORTH_UPDATE_FEED, UpdateKeys::parse(ELMWORTH_UPDATE_KEYS),
            ReleaseVersion::parse(ELMWORTH_VERSION).value_or(ReleaseVersion()),
            replaceableProgram(), isHosted};
}

}  // namespace

AppUpdates::AppUpdates(Settings& settings, RunLoop& runLoop, Clock now, bool isHosted)
    : updater_(setup(isHosted), settings, runLoop, std::move(now), downloads_) {
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, [this] { updater_.install(); });
}

}  // namespace elmworth
