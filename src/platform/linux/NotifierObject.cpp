// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/NotifierObject.h"

#include <algorithm>

#include "platform/ActivationToken.h"

namespace elmworth {

NotifierObject::NotifierObject(const QString& menuPath) : menu_(menuPath) {
    registerStatusNotifierTypes();
}

void NotifierObject::setIconPixmap(NotifierPixmapList pixmaps) {
    const auto isSame = [](const NotifierPixmap& a, const NotifierPixmap& b) {
        return a.width == b.width && a.pixels == b.pixels;
    };
    if (std::equal(pixmaps.begin(), pixmaps.end(), pixmaps_.begin(), pixmaps_.end(), isSame)) {
        return;
    }
    pixmaps_ = std::move(pixmaps);
    Q_EMIT NewIcon();
}

void NotifierObject::setNamedIcon(const QString& name, const QString& folder) {
    if (iconFolder_ != folder) {
        iconFolder_ = folder;
        Q_EMIT NewIconThemePath(folder);
    }
    if (iconName_ == name) return;
    iconName_ = name;
    Q_EMIT NewIcon();
}

void NotifierObject::setLabel(const QString& label) {
    if (label_ == label) return;
    label_ = label;
    Q_EMIT XAyatanaNewLabel(label_, labelGuide());
}

void NotifierObject::setToolTip(const QString& text) {
    if (toolTip_ == text) return;
    toolTip_ = text;
    Q_EMIT NewToolTip();
}

/// Some desktops show the title alone, so that it tells what there is to know.
NotifierToolTip NotifierObject::toolTip() const {
    if (toolTip_.isEmpty()) return {.title = title()};
    return {.title = toolTip_, .text = title()};
}

QString NotifierObject::labelGuide() const {
    QString guide = label_;
    for (auto& letter : guide) {
        if (letter.isDigit()) letter = QLatin1Char('0');
    }
    return guide;
}

void NotifierObject::Activate(int x, int y) {
    if (events_.activated) events_.activated({x, y});
}

void NotifierObject::SecondaryActivate(int x, int y) {
    if (events_.secondaryActivated) events_.secondaryActivated({x, y});
}

void NotifierObject::XAyatanaSecondaryActivate(uint /*timestamp*/) {
    SecondaryActivate(0, 0);
}

void NotifierObject::ContextMenu(int /*x*/, int /*y*/) {}

void NotifierObject::Scroll(int /*delta*/, const QString& /*orientation*/) {}

void NotifierObject::ProvideXdgActivationToken(const QString& token) {
    takeActivationToken(token.toStdString());
}

}  // namespace elmworth
