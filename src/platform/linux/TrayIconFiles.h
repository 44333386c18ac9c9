// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include "platform/linux/TrayIconPainter.h"

namespace elmworth {

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
