// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/OneLine.h"

#include <algorithm>

namespace elmworth {

std::string oneLine(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    // Almost all texts need nothing.
    if (std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; }))
        return std::string(text);
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        // U+0080 to U+009F steer terminals as well.
        const bool isLong = byte(i) == 0xC2 && byte(i + 1) >= 0x80 && byte(i + 1) <= 0x9F;
        const bool isControl = byte(i) < 0x20 || byte(i) == 0x7F;
        line += isControl || isLong ? ' ' : text[i];
        if (isLong) ++i;
    }
    return line;
}

}  // namespace elmworth
