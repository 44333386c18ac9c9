// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ElmworthApp.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_MainPlugin)

namespace elmworth {

ElmworthApp::ElmworthApp(bool isDemo, Opening opening)
    : services_(isDemo, currentInstant, runLoop_),
      activation_({[this] { showMainWindow(); }, [this] { showPanel(); }}, services_.timer()),
      commandService_(services_, painter_, activation_),
      terminationSignals_([] { QGuiApplication::quit(); }),
      timerWindowModel_(services_.context(), services_.timer()),
      lastSave_(services_.context()) {
    if (!isHostedRun()) {
        services_.timer().installSleepObservers(powerEvents_);
        saveBeforeInterruptions();
    }
    if (!isHostedRun() && !isDemo) {
        autoBackup_.emplace(services_.context(), services_.defaults(), services_.clock(), runLoop_,
                            powerEvents_);
    }
    if (!isDemo) commandService_.publish();
    loadEmbeddedFonts();
    engine_.setInitialProperties(
        {{QStringLiteral("model"), QVariant::fromValue(&timerWindowModel_)},
         {QStringLiteral("visible"), opening == Opening::mainWindow}});
    engine_.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Main/TimerWindow.qml")));
    if (opening == Opening::panel) showPanel();
}

/// The machine may not come back from a sleep, and a session that ends may not wait.
void ElmworthApp::saveBeforeInterruptions() {
    const auto save = [this] { services_.context().saveQuietly(); };
    saves_ = {powerEvents_.onWillSleep(save), powerEvents_.onWillShutDown(save)};
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, &terminationSignals_,
        [save](QSessionManager& /*manager*/) { save(); }, Qt::DirectConnection);
}

void ElmworthApp::showPanel() {
    showMainWindow();
}

void ElmworthApp::showMainWindow() {
    const auto windows = engine_.rootObjects();
    if (windows.isEmpty()) return;
    if (auto* window = qobject_cast<QQuickWindow*>(windows.first())) {
        window->show();
        window->raise();
        window->requestActivate();
    }
}

}  // namespace elmworth
