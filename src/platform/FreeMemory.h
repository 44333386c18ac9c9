// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace elmworth {

/// Gives memory back to the system that the program has freed but its allocator keeps. For when
/// much was let go that is not soon needed again; takes some milliseconds.
void returnFreeMemory() noexcept;

}  // namespace elmworth
