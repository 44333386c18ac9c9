// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>
#include <QStringView>

namespace elmworth {

/// The icons, each by the name of what it shows, such as "clock-filled": a glyph of the icon font,
/// which is drawn as text and takes any colour. An unknown name gives an empty square.
[[nodiscard]] QChar iconGlyph(QStringView name);

/// Every name that has a glyph, in alphabetical order.
[[nodiscard]] QStringList iconNames();

}  // namespace elmworth
