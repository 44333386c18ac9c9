// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/FreedesktopFiles.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QProcess>
#include <QUrl>
#include <utility>

namespace elmworth {

namespace {

// What xdg-open says when it could not open the file. Any other status is of the program that did,
// and may come when that is closed.
constexpr int missingFile = 2;
constexpr int missingTool = 3;
constexpr int actionFailed = 4;

QString text(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

bool isFailure(int status) {
    return status == missingFile || status == missingTool || status == actionFailed;
}

}  // namespace

FreedesktopFiles::FreedesktopFiles(QDBusConnection bus, QString opener)
    : bus_(std::move(bus)), opener_(std::move(opener)) {}

/// An opener that waits for the end of its viewer is left alone: its object would end it.
FreedesktopFiles::~FreedesktopFiles() {
    for (auto* process : findChildren<QProcess*>()) {
        if (process->state() != QProcess::NotRunning) process->setParent(nullptr);
    }
}

void FreedesktopFiles::open(const std::filesystem::path& file, Failed failed) {
    auto* process = new QProcess(this);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    connect(process, &QProcess::finished, this,
            [process, failed](int status, QProcess::ExitStatus /*how*/) {
                process->deleteLater();
                if (isFailure(status)) failed();
            });
    connect(process, &QProcess::errorOccurred, this,
            [process, failed](QProcess::ProcessError error) {
                if (error != QProcess::FailedToStart) return;
                process->deleteLater();
                failed();
            });
    process->start(opener_, {text(file)});
}

void FreedesktopFiles::reveal(const std::filesystem::path& file, Failed failed) {
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                                  QStringLiteral("/org/freedesktop/FileManager1"),
                                                  QStringLiteral("org.freedesktop.FileManager1"),
                                                  QStringLiteral("ShowItems"));
    message << QStringList{QString::fromUtf8(QUrl::fromLocalFile(text(file)).toEncoded())}
            << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, file, failed](QDBusPendingCallWatcher* call) {
                call->deleteLater();
                if (call->isError()) open(file.parent_path(), failed);
            });
}

}  // namespace elmworth
