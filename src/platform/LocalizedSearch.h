// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Locale.h"

namespace elmworth {

/// Looks for one text in many others, without regard to case in the manner of the user's locale
/// (ICU's string search). Made once for a search, as that is the dearer part of it.
class LocalizedSearch {
 public:
    /// `wanted` is UTF-8. An empty one stands everywhere.
    explicit LocalizedSearch(std::string_view wanted, const Locale& locale = Locale::current());
    LocalizedSearch(LocalizedSearch&& other) noexcept;
    LocalizedSearch& operator=(LocalizedSearch&& other) noexcept;
    ~LocalizedSearch();

    /// Whether the text that is looked for stands anywhere in `text`, which is UTF-8.
    [[nodiscard]] bool findsIn(std::string_view text) const;

    /// As `findsIn`, but by ICU in every case: plain ASCII texts are otherwise compared byte by
    /// byte where the locale's rules come to the same.
    [[nodiscard]] bool findsByCollation(std::string_view text) const;

 private:
    struct Rules;
    struct Collation;
    [[nodiscard]] static const Rules& rulesOf(const Locale& locale);

    const Rules* rules_;
    std::string wanted_;
    std::string lowerASCII_;  ///< empty when `wanted_` needs the locale's rules
    mutable std::unique_ptr<Collation> collation_;
};

/// Whether `wanted` stands anywhere in `text`, for a single look. An empty text stands everywhere.
[[nodiscard]] bool containsLocalized(std::string_view text, std::string_view wanted);

}  // namespace elmworth
