// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QString>

namespace elmworth {

/// The colour that a record's text names, "#7C6CFF". "#" signs at both ends don't count; the rest
/// is one hexadecimal number whose lowest 24 bits are red, green and blue, so that "#FFF" is nearly
/// black. A text that is no such number of at most 64 bits gives #4F7CFF.
[[nodiscard]] QColor colorFromHex(const QString& text);

}  // namespace elmworth
