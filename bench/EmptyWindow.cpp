// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The least that a program takes to show a window with the Qt modules that the application uses.

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QtDBus>

int main(int argc, char** argv) {
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const QGuiApplication application(argc, argv);
    QDBusConnection::sessionBus();
    QQmlApplicationEngine engine;
    engine.loadData(R"(
        import QtQuick
        import QtQuick.Controls.Basic
        import QtQuick.Layouts
        import QtQuick.Templates as T
        ApplicationWindow {
            visible: true
            width: 1080
            height: 720
            title: "Elmworth"
        }
    )");
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
