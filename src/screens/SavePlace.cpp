// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/SavePlace.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace elmworth {

QUrl savePlace(const QString& name) {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(folder).isDir()) folder = QDir::homePath();
    return QUrl::fromLocalFile(folder + QLatin1Char('/') + name);
}

std::optional<std::filesystem::path> localFile(const QUrl& chosen) {
    // The dialog that Qt brings for desktops without one gives a name that was typed without a
    // scheme.
    const bool isLocal = chosen.scheme().isEmpty() || chosen.isLocalFile();
    if (chosen.isEmpty() || !isLocal) return std::nullopt;
    const QString path = chosen.scheme().isEmpty() ? chosen.path() : chosen.toLocalFile();
    return path.toStdString();
}

}  // namespace elmworth
