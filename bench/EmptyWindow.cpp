// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The least that a program takes to show a window with the modules that the application's window
// uses.

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QtDBus>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_MainPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)

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
        import Qt.labs.qmlmodels
        import Elmworth.Main
        import Elmworth.Theme
        import Elmworth.Timesheet
        import Elmworth.Panel
        ApplicationWindow {
            visible: true
            width: 1080
            height: 720
            title: "Elmworth"
        }
    )");
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
