// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/LeastSize.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <algorithm>
#include <array>

namespace elmworth {

namespace {

/// Whose windows lie over each other, and keep their least size.
constexpr std::array stackingDesktops{"GNOME", "KDE",     "XFCE",     "LXQt",   "MATE",
                                      "Unity", "Budgie",  "Pantheon", "labwc",  "X-Cinnamon",
                                      "Phosh", "Wayfire", "ubuntu",   "Endless"};

}  // namespace

bool DesktopManner::honoursLeastSize() const {
    if (!platform.startsWith(QStringLiteral("wayland"))) return true;
    const QStringList names = desktops.split(u':');
    return std::any_of(stackingDesktops.begin(), stackingDesktops.end(), [&](const char* known) {
        return names.contains(QLatin1String(known), Qt::CaseInsensitive);
    });
}

DesktopManner DesktopManner::current() {
    return {QGuiApplication::platformName(), qEnvironmentVariable("XDG_CURRENT_DESKTOP")};
}

QSize leastSize(QSize roomy, const QList<QSize>& screens, const DesktopManner& manner) {
    if (!manner.honoursLeastSize()) return {0, 0};
    for (const auto& screen : screens) roomy = roomy.boundedTo(screen);
    return roomy;
}

void lowerLeastSize(QWindow& window) {
    QList<QSize> screens;
    for (const QScreen* screen : QGuiApplication::screens()) screens << screen->availableSize();
    window.setMinimumSize(leastSize(window.minimumSize(), screens, DesktopManner::current()));
}

}  // namespace elmworth
