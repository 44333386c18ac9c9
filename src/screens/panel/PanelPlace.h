// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QString>
#include <QtQmlIntegration>
#include <chrono>
#include <optional>
#include <vector>

namespace elmworth {

/// A screen as Qt sees it: where it begins in device pixels of the desktop, and how large it is in
/// logical ones.
struct PanelScreen {
    QRect geometry;
    QRect available;        ///< without the desktop's bars
    double pixelRatio = 1;  ///< device pixels for each logical one

    /// The screen in device pixels.
    [[nodiscard]] QRectF device() const;
    /// A device pixel of this screen in logical ones.
    [[nodiscard]] QPoint logical(QPointF devicePixel) const;
};

/// The screen that shows the device pixel, or else the one that is nearest to it. Requires screens.
[[nodiscard]] std::size_t screenAt(const std::vector<PanelScreen>& screens, QPointF devicePixel);

/// The upper left corner of a panel of that size: under the tray item at `item` (logical) where
/// that is in the upper half of the screen, and over it in the lower one; without an item the upper
/// right corner of the screen. The panel never begins outside of what is available.
[[nodiscard]] QPoint panelCorner(const PanelScreen& screen, std::optional<QPoint> item, QSize size);

/// For how long the panel stays when another window gets the focus. Where the desktop places the
/// panel (Qt's `platform` is then "wayland"), the pointer may have to cross other windows on its
/// way there, and on some desktops the focus follows it. Once the pointer has been there, and where
/// the panel stands beside the tray item, it goes at once.
[[nodiscard]] std::chrono::milliseconds panelPatience(const QString& platform, bool wasVisited);

/// Where the panel stands: on which screen, and where there.
class PanelPlace : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// How high the panel can be on its screen, in logical pixels.
    Q_PROPERTY(int largestHeight READ largestHeight NOTIFY changed FINAL)

 public:
    explicit PanelPlace(QObject* parent = nullptr) : QObject(parent) { chooseCorner(); }

    [[nodiscard]] int largestHeight() const;

    /// Beside the tray item, whose place the desktop gives: on X11 in device pixels.
    Q_INVOKABLE void choose(QPointF item);
    /// In the corner of the main screen.
    Q_INVOKABLE void chooseCorner();

    /// Gives `window`, a QWindow, that size, and moves it to its place. Its size is its least and
    /// its greatest at once: desktops that tile let such a window float instead of filling half a
    /// screen.
    Q_INVOKABLE void stand(QObject* window, QSize size) const;

    /// `panelPatience` here, in milliseconds.
    Q_INVOKABLE int patience(bool wasVisited) const;

 Q_SIGNALS:
    void changed();

 private:
    std::size_t screen_ = 0;  ///< of those that there are
    std::optional<QPoint> item_;
};

}  // namespace elmworth
