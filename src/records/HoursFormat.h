// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace elmworth {

/// A duration as decimal hours with two decimals and a point, in every locale: 5400 s reads "1.50".
[[nodiscard]] std::string formatDecimalHours(double seconds);

}  // namespace elmworth
