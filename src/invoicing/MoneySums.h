// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/Locale.h"

namespace elmworth {

/// Amounts in several currencies, added up in each of them and never converted.
class MoneySums {
 public:
    /// Adds `cents` of `currencyCode`. A sum beyond 64 bits stays at their end.
    void add(const std::string& currencyCode, std::int64_t cents);

    /// The sums in the order of their codes, "€120.00 · $1,200.00"; "—" when nothing was added.
    [[nodiscard]] std::string text(const Locale& locale) const;

 private:
    std::map<std::string, std::int64_t> sums_;
};

}  // namespace elmworth
