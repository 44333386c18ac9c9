// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SettingsItem.h"

#include <QDesktopServices>
#include <QQmlEngine>
#include <QUrl>
#include <QVariant>
#include <QtQml/QQmlExtensionPlugin>
#include <utility>

#include "app/MakeWindow.h"
#include "app/ScreenServices.h"
#include "exchange/AutoBackup.h"

Q_IMPORT_QML_PLUGIN(Elmworth_SettingsPlugin)

namespace elmworth {

namespace {

SettingsServices settingsServices(LibraryServices& services, RunLoop& runLoop, bool isDemo,
                                  Updater& updater, std::function<void()> lookForUpdates) {
    return {
        .app = screenServices(services, runLoop),
        .loginItem = services.loginItem(),
        .longWork = services.longWork(),
        .isDemo = isDemo,
        .version = ELMWORTH_VERSION,
        .build = ELMWORTH_BUILD,
        .snapshotFolder = &AutoBackup::folder,
        .updater = &updater,
        .lookForUpdates = std::move(lookForUpdates),
        .showFolder = [](const std::filesystem::path& folder) {
            QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(folder.string())));
        }};
}

}  // namespace

SettingsItem::SettingsItem(LibraryServices& services, RunLoop& runLoop, QQmlEngine& engine,
                           bool isDemo, Updater& updater, std::function<void()> lookForUpdates)
    : engine_(engine),
      model_(settingsServices(services, runLoop, isDemo, updater, std::move(lookForUpdates))) {}

void SettingsItem::show() {
    if (!window_) {
        window_ = makeWindow(
            engine_,
            QUrl(
                QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Settings/SettingsWindow.qml")),
            QVariant::fromValue(&model_));
    }
    window_->setWindowStates(window_->windowStates() & ~Qt::WindowMinimized);
    window_->show();
    window_->raise();
    window_->requestActivate();
}

}  // namespace elmworth
