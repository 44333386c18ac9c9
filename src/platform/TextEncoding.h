// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

namespace elmworth {

/// Reads the text of a file whose encoding nobody told: as UTF-8, UTF-16, Windows code page 1252 or
/// Mac OS Roman, the first that fits. UTF-16 needs a byte order mark, or at least one ASCII comma
/// in it: nearly any bytes could be read as some UTF-16. A byte order mark is kept, except that of
/// UTF-16. Absent when nothing fits, and above 2 GB.
[[nodiscard]] std::optional<std::string> decodeText(std::string bytes);

}  // namespace elmworth
