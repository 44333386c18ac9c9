// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace elmworth {

/// Writes one line to the system log (syslog, which journald collects) and, on a terminal, to
/// standard error.
void writeSystemLog(std::string_view line);

/// Ends the process at once over a programming error: `reason` goes to the system log, and the
/// process aborts. What the library has saved stays saved.
[[noreturn]] void fatalError(std::string_view reason);

}  // namespace elmworth
