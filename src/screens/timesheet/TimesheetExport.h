// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Calendar.h"
#include "tracking/TimesheetFilter.h"

namespace elmworth {

/// Writes the finished entries that pass `filter` to `file` as CSV, oldest start first, in the
/// calendar's time zone. Gives what went wrong as a sentence; the file is then as it was.
[[nodiscard]] std::optional<std::string> exportTimesheet(UnitOfWork& context,
                                                         const TimesheetFilter& filter, Instant now,
                                                         const Calendar& calendar,
                                                         const std::filesystem::path& file);

}  // namespace elmworth
