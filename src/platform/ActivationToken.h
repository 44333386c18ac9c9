// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace elmworth {

/// Takes the leave of somebody else to come to the front, for the window that next asks to be
/// activated. It comes from other programs, and the programs that this one starts inherit it: what
/// is empty, longer than 255 bytes or not printable ASCII is no leave, and changes nothing.
void takeActivationToken(std::string_view token);

}  // namespace elmworth
