// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace elmworth {

/// Writes one line to the system log (syslog, which journald collects) and, on a terminal, to
/// standard error.
void writeSystemLog(std::string_view line);

}  // namespace elmworth
