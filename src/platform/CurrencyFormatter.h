// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Locale.h"

namespace elmworth {

/// Formats `hundredths` / 100, an exact decimal, as money of the ISO 4217 `currencyCode` in
/// `locale`, with as many decimals as the locale gives that currency. Absent when there is no text
/// for it (a code that is not three letters).
[[nodiscard]] std::optional<std::string> formatCurrency(std::int64_t hundredths,
                                                        std::string_view currencyCode,
                                                        const Locale& locale);

/// The ISO 4217 codes in use, ascending.
[[nodiscard]] const std::vector<std::string>& commonCurrencyCodes();

/// What `locale` calls the currency, such as "US Dollar"; the code itself where it has no name.
[[nodiscard]] std::string currencyName(std::string_view currencyCode, const Locale& locale);

}  // namespace elmworth
