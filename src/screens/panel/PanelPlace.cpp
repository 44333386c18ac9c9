// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/PanelPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace elmworth {

namespace {

constexpr int gap = 8;

/// In Qt's order; the first is the main one.
std::vector<PanelScreen> currentScreens() {
    // Elsewhere trays count as Qt does.
    const bool countsDevicePixels = QGuiApplication::platformName() == QStringLiteral("xcb");
    std::vector<PanelScreen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.push_back({screen->geometry(), screen->availableGeometry(),
                           countsDevicePixels ? screen->devicePixelRatio() : 1.0});
    }
    return screens;
}

double distance(const QRectF& area, QPointF point) {
    const double x = std::max({area.left() - point.x(), 0.0, point.x() - area.right()});
    const double y = std::max({area.top() - point.y(), 0.0, point.y() - area.bottom()});
    return std::hypot(x, y);
}

/// `wanted`, clamped to begin at or after `first` and to end before `end`; the first one wins.
int within(int wanted, int first, int end, int length) {
    return std::max(first, std::min(wanted, end - length));
}

/// One that shows is not resized beyond the bounds of its former size.
void fixSize(QWindow& window, QSize size) {
    window.setMinimumSize(window.minimumSize().boundedTo(size));
    window.setMaximumSize(window.maximumSize().expandedTo(size));
    window.resize(size);
    window.setMinimumSize(size);
    window.setMaximumSize(size);
}

}  // namespace

QRectF PanelScreen::device() const {
    return {geometry.topLeft(), QSizeF(geometry.size()) * pixelRatio};
}

QPoint PanelScreen::logical(QPointF devicePixel) const {
    return geometry.topLeft() + ((devicePixel - geometry.topLeft()) / pixelRatio).toPoint();
}

std::size_t screenAt(const std::vector<PanelScreen>& screens, QPointF devicePixel) {
    const auto nearest =
        std::min_element(screens.begin(), screens.end(), [&](const auto& a, const auto& b) {
            return distance(a.device(), devicePixel) < distance(b.device(), devicePixel);
        });
    return static_cast<std::size_t>(nearest - screens.begin());
}

QPoint panelCorner(const PanelScreen& screen, std::optional<QPoint> item, QSize size) {
    const QRect room = screen.available.adjusted(gap, gap, -gap, -gap);
    const int right = room.left() + room.width();
    const int bottom = room.top() + room.height();
    int x = right;
    int y = room.top();
    if (item) {
        const bool hangs = item->y() < screen.geometry.top() + screen.geometry.height() / 2;
        x = item->x() - size.width() / 2;
        y = hangs ? item->y() + gap : item->y() - gap - size.height();
    }
    return {within(x, room.left(), right, size.width()),
            within(y, room.top(), bottom, size.height())};
}

std::chrono::milliseconds panelPatience(const QString& platform, bool wasVisited) {
    using namespace std::chrono_literals;
    const bool isPlacedByDesktop = platform.startsWith(QStringLiteral("wayland"));
    return isPlacedByDesktop && !wasVisited ? 1500ms : 0ms;
}

int PanelPlace::patience(bool wasVisited) const {
    return static_cast<int>(panelPatience(QGuiApplication::platformName(), wasVisited).count());
}

int PanelPlace::largestHeight() const {
    const auto screens = currentScreens();
    return screen_ < screens.size() ? screens[screen_].available.height() - 2 * gap : 0;
}

void PanelPlace::choose(QPointF item) {
    const auto screens = currentScreens();
    if (screens.empty()) return chooseCorner();
    screen_ = screenAt(screens, item);
    item_ = screens[screen_].logical(item);
    Q_EMIT changed();
}

void PanelPlace::chooseCorner() {
    screen_ = 0;
    item_.reset();
    Q_EMIT changed();
}

void PanelPlace::stand(QObject* window, QSize size) const {
    auto* const panel = qobject_cast<QWindow*>(window);
    if (!panel) return;
    fixSize(*panel, size);
    const auto screens = currentScreens();
    if (screen_ >= screens.size()) return;
    panel->setScreen(QGuiApplication::screens().at(static_cast<qsizetype>(screen_)));
    panel->setPosition(panelCorner(screens[screen_], item_, size));
}

}  // namespace elmworth
