// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/icons/AppIcon.h"

#include <QString>

// The macro declares a function of the global namespace.
static void initializeIconResources() {
    Q_INIT_RESOURCE(elmworth_app_icon);
}

namespace elmworth {

QIcon appIcon() {
    initializeIconResources();
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/elmworth/icons/AppIcon-%1.png").arg(size),
                     QSize(size, size));
    }
    return icon;
}

}  // namespace elmworth
