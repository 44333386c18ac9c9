// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/AppAppearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QQmlEngine>

namespace elmworth {

namespace {

bool isPaletteDark() {
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5F;
}

}  // namespace

AppAppearance::AppAppearance() {
    if (qGuiApp != nullptr) qGuiApp->installEventFilter(this);
    dark_ = decide();
}

AppAppearance& AppAppearance::instance() {
    static AppAppearance appearance;
    return appearance;
}

AppAppearance* AppAppearance::create(QQmlEngine* /*engine*/, QJSEngine* /*scriptEngine*/) {
    QJSEngine::setObjectOwnership(&instance(), QJSEngine::CppOwnership);
    return &instance();
}

void AppAppearance::setSetting(AppearanceSetting setting) {
    setting_ = setting;
    update();
}

void AppAppearance::setDesktopDark(std::optional<bool> dark) {
    desktopDark_ = dark;
    update();
}

void AppAppearance::setReducedMotion(bool reduced) {
    if (reducedMotion_ == reduced) return;
    reducedMotion_ = reduced;
    Q_EMIT reducedMotionChanged();
}

bool AppAppearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) update();
    return QObject::eventFilter(watched, event);
}

bool AppAppearance::decide() const {
    if (setting_ != AppearanceSetting::system) return setting_ == AppearanceSetting::dark;
    return desktopDark_ ? *desktopDark_ : isPaletteDark();
}

void AppAppearance::update() {
    const bool dark = decide();
    if (dark_ == dark) return;
    dark_ = dark;
    Q_EMIT darkChanged();
}

}  // namespace elmworth
