// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "command/CommandDescription.h"

namespace elmworth {

/// The manual page of `program` for man(1), section 1: each command with its arguments and what
/// they mean, as the commands declare it.
[[nodiscard]] std::string manualPage(const CommandDescription& program);

}  // namespace elmworth
