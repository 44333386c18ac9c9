// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>

namespace elmworth {

/// The colours that a person can choose for a project, and that imported projects take in turn.
inline constexpr std::array projectColors{"#7C6CFF", "#4AA8FF", "#2EC4B6", "#40D19E", "#FFB400",
                                          "#FF8A4C", "#FF6B8B", "#C06CFF", "#8E8E93"};

}  // namespace elmworth
