// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "records/BusinessProfile.h"

namespace elmworth {

/// Why a text can't be taken, or a change not be made. The message is one sentence to show, and
/// nothing has changed.
class Refused : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// What a text that people typed means, or why it can't be taken.
template <class T>
class [[nodiscard]] Parsed {
 public:
    Parsed(T value) : outcome_(std::move(value)) {}    // NOLINT(google-explicit-constructor)
    Parsed(Refused why) : outcome_(std::move(why)) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] explicit operator bool() const noexcept {
        return std::holds_alternative<T>(outcome_);
    }
    /// The sentence that says why the text can't be taken; empty when it can.
    [[nodiscard]] std::string problem() const {
        const auto* why = std::get_if<Refused>(&outcome_);
        return why ? why->what() : "";
    }
    /// Throws Refused when the text can't be taken.
    [[nodiscard]] const T& value() const {
        if (const auto* why = std::get_if<Refused>(&outcome_)) throw Refused(*why);
        return std::get<T>(outcome_);
    }

 private:
    std::variant<T, Refused> outcome_;
};

/// A tax rate in basis points, at most 100%: "0", "8.25". Empty text is 0.
Parsed<std::int64_t> parseTaxRate(std::string_view text);

/// A whole number from `lowest` to `highest`; `what` names it in the sentence.
Parsed<std::int64_t> parseWholeNumber(std::string_view text, std::string_view what,
                                      std::int64_t lowest, std::int64_t highest);

/// "true" or "false", also "yes", "no", "on", "off", "1", "0"; `what` names it in the sentence.
Parsed<bool> parseFlag(std::string_view text, std::string_view what);

/// "letter" or "a4".
Parsed<PaperSize> parsePaperSize(std::string_view text);

}  // namespace elmworth
