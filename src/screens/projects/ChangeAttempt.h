// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <functional>

namespace elmworth {

/// Runs `change`, which changes nothing when it throws. Returns why it could not be made, as a
/// sentence to show; empty when it was.
[[nodiscard]] QString attempt(const std::function<void()>& change);

}  // namespace elmworth
