// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Locale.h"

namespace elmworth {

/// Money and percentages as text, and typed text as money and percentages. Nothing else in the
/// program converts them, so that an amount reads the same everywhere.
///
/// Money is a count of cents, 1/100 of the currency's unit, also for a currency that has no such
/// part. A percentage is a count of basis points, 1/100 of a percent.

/// The locale in which the user reads amounts (LC_MONETARY).
[[nodiscard]] Locale currentMoneyLocale();

/// `cents` as the locale writes money of `currencyCode` (ISO 4217), with as many decimals as it
/// gives that currency: "$12.00", "¥12". For a code without a form of its own "{code} {value}",
/// such as "X 12.5".
[[nodiscard]] std::string formatCents(std::int64_t cents, std::string_view currencyCode,
                                      const Locale& locale = currentMoneyLocale());

/// Reads an amount in units, as people type it in whatever locale: "120", "$ 1,200.50", "12,5".
/// All but digits, points and commas is ignored, the minus sign too. The last point or comma is the
/// decimal one when one or two digits follow it, and else separates thousands: "1.234" is 1234.
/// Absent without a digit, with a numeral other than 0 to 9 ("½"), and above 1,000,000,000.00.
[[nodiscard]] std::optional<std::int64_t> parseCents(std::string_view text);

/// `basisPoints` as a percentage without its sign: "8", "8.25", "8.50".
[[nodiscard]] std::string formatBasisPoints(std::int64_t basisPoints);

/// Reads a percentage as `parseCents` does an amount, except that the last point or comma is always
/// the decimal one: "8,25" is 825, "1.234" is 123. Absent above 100 percent.
[[nodiscard]] std::optional<std::int64_t> parseBasisPoints(std::string_view text);

/// A hundred times the decimal number in `text` (digits with at most one point), rounded to a whole
/// number, halves up: "12.345" gives 1235. Exact whatever the number of digits. Absent when `text`
/// is no such number, or the result is above `limit`. For the two parsers only.
[[nodiscard]] std::optional<std::int64_t> parseScaledDecimal(std::string_view text,
                                                             std::int64_t limit);

}  // namespace elmworth
