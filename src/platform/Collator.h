// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string_view>

#include "platform/Locale.h"

namespace elmworth {

/// The order in which people expect names: the locale's alphabet (UCA with CLDR tailoring), digit
/// runs compared as numbers, case ignored.
class Collator {
 public:
    explicit Collator(const Locale& locale);
    Collator(Collator&& other) noexcept;
    Collator& operator=(Collator&& other) noexcept;
    ~Collator();

    /// Negative, zero or positive as `a` sorts before, the same as, or after `b`. Both are UTF-8.
    [[nodiscard]] int compare(std::string_view a, std::string_view b) const;

    /// The collator of `Locale::currentForCollation()`, made on first use.
    [[nodiscard]] static const Collator& current();

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// The localized standard comparison of the current user.
[[nodiscard]] int localizedStandardCompare(std::string_view a, std::string_view b);

}  // namespace elmworth
