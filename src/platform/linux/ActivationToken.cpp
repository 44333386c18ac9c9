// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ActivationToken.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace elmworth {

void takeActivationToken(std::string_view token) {
    constexpr std::size_t longest = 255;
    const auto isPrintable = [](char c) { return c > ' ' && c <= '~'; };
    if (token.empty() || token.size() > longest) return;
    if (!std::all_of(token.begin(), token.end(), isPrintable)) return;
    // Qt reads it when a window asks to be activated.
    ::setenv("XDG_ACTIVATION_TOKEN", std::string(token).c_str(), 1);
}

}  // namespace elmworth
