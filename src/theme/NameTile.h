// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <cstdint>

namespace elmworth {

/// A number from 0 to 65,535 that is the same for a name in every run, so that a client keeps the
/// colour of its tile.
[[nodiscard]] std::uint32_t nameHash(const QString& text);

/// At most two letters that stand for a name on a tile: the first ones of its first and its second
/// word, as capitals. Signs before a word's first letter or digit don't count. A name without
/// letters and digits gives its first character, and one without anything "?".
[[nodiscard]] QString initials(const QString& text);

}  // namespace elmworth
