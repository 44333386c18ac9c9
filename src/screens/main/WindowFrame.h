// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>
#include <optional>

namespace elmworth {

/// Where a window stands and how large it is, in pixels that don't depend on the screen's density.
struct WindowFrame {
    QRect area;  ///< while it isn't maximized
    bool isMaximized = false;

    friend bool operator==(const WindowFrame&, const WindowFrame&) = default;

    /// "x y width height", with " maximized" after it; absent when `text` isn't of that form.
    [[nodiscard]] static std::optional<WindowFrame> parse(const QString& text);
    [[nodiscard]] QString text() const;

    /// The area on one of `screens`, the free areas of which there is at least one: as large as
    /// before if the screen allows, at least `smallest`, and moved so that all of it shows.
    [[nodiscard]] QRect areaOn(const QList<QRect>& screens, const QSize& smallest) const;
};

}  // namespace elmworth
