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

constexpr auto wayland = "wayland";

/// Under Wayland nobody tells what of a screen the desktop's bars and the window's title take; a
/// window that asks for all of it can't be maximized.
constexpr QSize bars{80, 100};

}  // namespace

bool DesktopManner::honoursLeastSize() const {
    if (!platform.startsWith(QLatin1String(wayland))) return true;
    const QStringList names = desktops.split(u':');
    return std::any_of(stackingDesktops.begin(), stackingDesktops.end(), [&](const char* known) {
        return names.contains(QLatin1String(known), Qt::CaseInsensitive);
    });
}

QSize DesktopManner::roomOn(const Screen& screen) const {
    if (!platform.startsWith(QLatin1String(wayland))) return screen.available;
    const bool mayTellDevicePixels =
        desktops.split(u':').contains(QLatin1String("GNOME"), Qt::CaseInsensitive);
    return (mayTellDevicePixels ? screen.available / screen.scale : screen.available) - bars;
}

DesktopManner DesktopManner::current() {
    return {QGuiApplication::platformName(), qEnvironmentVariable("XDG_CURRENT_DESKTOP")};
}

QSize leastSize(QSize roomy, const QList<DesktopManner::Screen>& screens,
                const DesktopManner& manner) {
    if (!manner.honoursLeastSize()) return {0, 0};
    for (const auto& screen : screens) roomy = roomy.boundedTo(manner.roomOn(screen));
    return roomy;
}

void lowerLeastSize(QWindow& window) {
    QList<DesktopManner::Screen> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back({screen->availableSize(), screen->devicePixelRatio()});
    window.setMinimumSize(leastSize(window.minimumSize(), screens, DesktopManner::current()));
}

}  // namespace elmworth
