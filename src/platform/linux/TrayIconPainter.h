// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QString>

#include "platform/Tray.h"

namespace elmworth {

/// How the tray item's pictures are drawn: glyphs of an icon font, figures of a text font, on a
/// ground of their own, since nobody tells the colour of the desktop's panel.
struct TrayIconStyle {
    QString iconFamily;
    QString idleGlyph;
    QString runningGlyph;
    QString textFamily;
    QColor ground = QColor(0x26, 0x26, 0x2b);
    QColor foreground = Qt::white;
    QColor accent = QColor(0xff, 0x6b, 0x93);  ///< what shows that a timer runs
};

/// The icon of `face` as a square of `size` pixels. With `iconText` in it unless that is empty, or
/// `withText` is false.
[[nodiscard]] QImage drawTrayIcon(const TrayIconStyle& style, const TrayFace& face, int size,
                                  bool withText);

/// The same in the sizes that panels use.
[[nodiscard]] QList<QImage> drawTrayIcons(const TrayIconStyle& style, const TrayFace& face,
                                          bool withText);

/// The tray item's icons as files, for desktops that read no pictures from the bus: they look in a
/// folder for an icon by its name.
class TrayIconFiles {
 public:
    /// Writes the icons into the folder for what lives as long as the session. Files that cannot be
    /// written are not there.
    explicit TrayIconFiles(const TrayIconStyle& style);

    [[nodiscard]] const QString& folder() const noexcept { return folder_; }
    [[nodiscard]] static QString name(TrayFace::Icon icon);

 private:
    QString folder_;
};

}  // namespace elmworth
