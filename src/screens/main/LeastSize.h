// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <QWindow>

namespace elmworth {

/// How a desktop treats the least size that a window asks for.
struct DesktopManner {
    QString platform;  ///< Qt's name for the way to the display: "xcb", "wayland" …
    QString desktops;  ///< XDG_CURRENT_DESKTOP: names between colons; may be empty

    /// Whether a window is never made smaller than it asked for, or can at least draw at the size
    /// that it was given. Under Wayland, desktops that tile give less, and Qt then draws past the
    /// tile: what lies there can't be seen.
    [[nodiscard]] bool honoursLeastSize() const;

    /// A screen as Qt has it from the desktop.
    struct Screen {
        QSize available;
        double scale = 1;  ///< device pixels in a pixel of a window
    };

    /// The part of `screen` that a window may cover for sure, in pixels of a window. GNOME tells a
    /// screen's size in device pixels, unless it is set up for scales between 100 and 200 %; which
    /// of both can't be seen.
    [[nodiscard]] QSize roomOn(const Screen& screen) const;

    [[nodiscard]] static DesktopManner current();
};

/// The least size to ask for, for a window that has room from `roomy` on and scrolls below that: no
/// larger than any of `screens`, and none where asking does harm.
[[nodiscard]] QSize leastSize(QSize roomy, const QList<DesktopManner::Screen>& screens,
                              const DesktopManner& manner);

/// Lowers the least size of `window`, to be called before it shows.
void lowerLeastSize(QWindow& window);

}  // namespace elmworth
