// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/LibraryProblem.h"

#include <unistd.h>

#include <QDBusConnection>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QUrl>
#include <QVariant>
#include <cstdio>

#include "app/DetachedStart.h"
#include "app/LiveAppearance.h"
#include "app/MakeWindow.h"
#include "app/Renderer.h"
#include "platform/linux/PortalColorScheme.h"
#include "theme/fonts/Fonts.h"
#include "theme/icons/AppIcon.h"

namespace elmworth {

namespace {

constexpr const char* wayOut =
    "If the library is damaged, elmworth check names what is wrong with it, and elmworth recover "
    "FOLDER writes what can be read, and the newest snapshot, into a new library.";

/// The words for a window: it has said by its head what couldn't be done.
QString reasonIn(const std::string& sentence) {
    const QString reason = QString::fromStdString(sentence.substr(sentence.find(": ") + 2));
    return reason.left(1).toUpper() + reason.mid(1);
}

void showProblem(const QString& reason) {
    chooseRenderer();
    loadEmbeddedFonts();
    QGuiApplication::setWindowIcon(appIcon());
    QGuiApplication::setQuitOnLastWindowClosed(true);
    Settings settings(Settings::standardFile());
    PortalColorScheme desktop(QDBusConnection::sessionBus());
    const LiveAppearance appearance(settings, desktop);
    QQmlEngine engine;
    const auto window = makeWindow(
        engine,
        QUrl(QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Main/LibraryProblem.qml")),
        QVariantMap{{QStringLiteral("reason"), reason},
                    {QStringLiteral("wayOut"), QString::fromLatin1(wayOut)}});
    QGuiApplication::exec();
}

}  // namespace

void tellLibraryProblem(const std::string& sentence, bool isInTerminal) {
    std::fprintf(stderr, "%s\n%s\n", sentence.c_str(), wayOut);
    if (isInTerminal || ::isatty(STDERR_FILENO) == 1) return;
    endStandardError();
    showProblem(reasonIn(sentence));
}

}  // namespace elmworth
