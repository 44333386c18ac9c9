// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QObject>

#include "platform/DesktopFiles.h"

namespace elmworth {

/// Opens files by xdg-open, and shows them by the service org.freedesktop.FileManager1 of file
/// managers.
class FreedesktopFiles final : public QObject, public DesktopFiles {
 public:
    /// `opener` is a program that opens the file that it is given, and fails when it can't.
    explicit FreedesktopFiles(QDBusConnection bus, QString opener = QStringLiteral("xdg-open"));

    ~FreedesktopFiles() override;

    void open(const std::filesystem::path& file, Failed failed) override;
    void reveal(const std::filesystem::path& file, Failed failed) override;

 private:
    QDBusConnection bus_;
    QString opener_;
};

}  // namespace elmworth
