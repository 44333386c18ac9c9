// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/RememberedWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <chrono>
#include <utility>

namespace elmworth {

namespace {

using namespace std::chrono_literals;

QList<QRect> freeAreas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) areas << screen->availableGeometry();
    return areas;
}

}  // namespace

RememberedWindow::RememberedWindow(QWindow& window, Settings& defaults, std::string key)
    : window_(window), defaults_(defaults), key_(std::move(key)) {
    restore();
    settled_.setSingleShot(true);
    settled_.setInterval(500ms);
    connect(&settled_, &QTimer::timeout, this, &RememberedWindow::note);
    const auto changed = [this] { settled_.start(); };
    connect(&window_, &QWindow::xChanged, this, changed);
    connect(&window_, &QWindow::yChanged, this, changed);
    connect(&window_, &QWindow::widthChanged, this, changed);
    connect(&window_, &QWindow::heightChanged, this, changed);
    connect(&window_, &QWindow::windowStateChanged, this, changed);
}

RememberedWindow::~RememberedWindow() {
    if (settled_.isActive()) note();
}

void RememberedWindow::restore() {
    const auto text = defaults_.string(key_).value_or("");
    const auto frame = WindowFrame::parse(QString::fromStdString(text));
    const auto screens = freeAreas();
    if (screens.isEmpty()) return;
    if (!frame) {
        window_.resize(
            WindowFrame{window_.geometry()}.areaOn(screens, window_.minimumSize()).size());
        return;
    }
    frame_ = *frame;
    window_.setGeometry(frame_.areaOn(screens, window_.minimumSize()));
    if (frame_.isMaximized) window_.setWindowStates(Qt::WindowMaximized);
}

/// A maximized window keeps the area that it had before.
void RememberedWindow::note() {
    const auto states = window_.windowStates();
    if (states.testFlag(Qt::WindowMinimized) || states.testFlag(Qt::WindowFullScreen)) return;
    frame_.isMaximized = states.testFlag(Qt::WindowMaximized);
    if (!frame_.isMaximized || frame_.area.isEmpty()) frame_.area = window_.geometry();
    defaults_.setString(key_, frame_.text().toStdString());
}

}  // namespace elmworth
