// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/TrayIconFiles.h"

#include <QDir>
#include <QStandardPaths>

namespace elmworth {

namespace {

constexpr int fileSize = 48;

}  // namespace

TrayIconFiles::TrayIconFiles(const TrayIconStyle& style)
    : folder_(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
              QStringLiteral("/elmworth-tray")) {
    QDir().mkpath(folder_);
    for (const auto icon : {TrayFace::Icon::idle, TrayFace::Icon::running}) {
        drawTrayIcon(style, {.icon = icon}, fileSize, false)
            .save(folder_ + QLatin1Char('/') + name(icon) + QStringLiteral(".png"));
    }
}

QString TrayIconFiles::name(TrayFace::Icon icon) {
    return icon == TrayFace::Icon::running ? QStringLiteral("elmworth-tray-running")
                                           : QStringLiteral("elmworth-tray-idle");
}

}  // namespace elmworth
