// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>

namespace elmworth {

/// The application's icon in the sizes that windows, panels and lists ask for. Its images are the
/// resources ":/elmworth/icons/AppIcon-{size}.png", which are there after the first call. Needs a
/// QGuiApplication.
[[nodiscard]] QIcon appIcon();

}  // namespace elmworth
