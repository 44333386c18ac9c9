// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace elmworth {

// Values as people type them. Each throws CommandError with one sentence that shows a good example.

/// An amount of money in cents: "120", "120.50".
[[nodiscard]] std::int64_t typedAmount(const std::string& text);

/// A percentage in basis points, at most 100%: "0", "8.25".
[[nodiscard]] std::int64_t typedPercent(const std::string& text);

/// A whole number between `lowest` and `highest`; `what` names it in the sentence.
[[nodiscard]] std::int64_t typedInteger(const std::string& text, const std::string& what,
                                        std::int64_t lowest, std::int64_t highest);

/// Hours of a budget, above 0, rounded to whole hours: "40", "37.5". Empty text is absent.
[[nodiscard]] std::optional<std::int64_t> typedBudget(const std::string& text);

/// "true" or "false", also "yes", "no", "on", "off", "1", "0".
[[nodiscard]] bool typedFlag(const std::string& text, const std::string& what);

/// A colour in the form #RRGGBB.
[[nodiscard]] std::string typedColor(const std::string& text);

/// An ISO 4217 code in use, in upper case.
[[nodiscard]] std::string typedCurrency(const std::string& text);

/// A name without blanks at its ends; it must not be empty, and fits on one line.
[[nodiscard]] std::string typedName(const std::string& text);

}  // namespace elmworth
