// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace elmworth {

/// A typed date or time, taken apart into its runs of digits and of letters. Separators, white
/// space, full stops and the invisible marks that set a text's direction are left out.
struct DigitRuns {
    struct Number {
        int value;
        int digits;  ///< as typed, leading zeros too
    };
    static constexpr int mostDigits = 8;

    std::vector<Number> numbers;
    std::vector<std::u16string> words;  ///< case folded
    bool isReadable = true;  ///< false when a run has more than `mostDigits`, or the text is long

    /// Takes `typed` (UTF-8) apart. Digits are those of any script.
    [[nodiscard]] static DigitRuns of(std::string_view typed);
};

}  // namespace elmworth
