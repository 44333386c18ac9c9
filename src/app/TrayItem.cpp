// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/TrayItem.h"

#include <QGuiApplication>
#include <QPointF>
#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>
#include <utility>

#include "app/MakeWindow.h"
#include "app/ScreenServices.h"
#include "screens/panel/TrayMenu.h"
#include "theme/Icons.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)

namespace elmworth {

namespace {

TrayIconStyle iconStyle() {
    TrayIconStyle style;
    style.iconFamily = QStringLiteral("Elmworth Icons");
    style.idleGlyph = iconGlyph(u"clock");
    style.runningGlyph = iconGlyph(u"record");
    style.textFamily = tabularFontFamily();
    return style;
}

/// While the library is half changed nothing in it can be acted on.
TrayMenu busyMenu() {
    return {{.text = "Elmworth is busy\u2026", .isEnabled = false, .identity = "busy"}};
}

}  // namespace

TrayItem::TrayItem(LibraryServices& services, RunLoop& runLoop, QQmlEngine& engine,
                   const Ways& ways)
    : engine_(engine),
      longWork_(services.longWork()),
      label_(screenServices(services, runLoop)),
      panel_(screenServices(services, runLoop)),
      tray_(iconStyle()) {
    leadOn(ways);
    watchTray(ways.trayChanged);
    updateFace();
    updateMenu();
}

void TrayItem::leadOn(const Ways& ways) {
    QObject::connect(&panel_, &PanelModel::mainWindowRequested, ways.toMainWindow);
    QObject::connect(&panel_, &PanelModel::settingsRequested, ways.toSettings);
    QObject::connect(&panel_, &PanelModel::panelRequested, [this] { showPanel(); });
    QObject::connect(&panel_, &PanelModel::quitRequested, [] { QGuiApplication::quit(); });
}

void TrayItem::watchTray(std::function<void(bool)> changed) {
    QObject::connect(&label_, &TrayLabel::changed, [this] {
        updateFace();
        updateMenu();
    });
    QObject::connect(&panel_, &PanelModel::offersChanged, [this] { updateMenu(); });
    workObservation_ = longWork_.observe([this] { updateMenu(); });
    const auto press = [this](TrayPoint place) {
        if (isBusy()) return;
        QMetaObject::invokeMethod(panelWindow(), "toggleAt",
                                  Q_ARG(QPointF, QPointF(place.x, place.y)));
    };
    tray_.setEvents({press, press, [this] { updateMenu(); }, std::move(changed)});
}

void TrayItem::updateFace() {
    tray_.setFace(label_.trayFace());
}

void TrayItem::updateMenu() {
    tray_.setMenu(isBusy() ? busyMenu() : makeTrayMenu(panel_, label_));
}

QQuickWindow* TrayItem::panelWindow() {
    if (!window_) {
        window_ = makeWindow(
            engine_,
            QUrl(QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Panel/PanelWindow.qml")),
            QVariant::fromValue(&panel_));
    }
    return window_.get();
}

void TrayItem::showPanel() {
    if (isBusy()) return;
    QMetaObject::invokeMethod(panelWindow(), "openAt", Q_ARG(QPointF, QPointF()),
                              Q_ARG(bool, false));
}

}  // namespace elmworth
