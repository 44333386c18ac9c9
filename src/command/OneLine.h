// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace elmworth {

/// `text` with a blank for each line break and control character, which would break a sentence or
/// a table apart, or steer the terminal.
[[nodiscard]] std::string oneLine(std::string_view text);

}  // namespace elmworth
