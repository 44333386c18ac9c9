// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace elmworth {

/// A user's language and region, which decide how dates, money and names read.
class Locale {
 public:
    /// A locale of an identifier in POSIX ("de_DE.UTF-8", "C") or BCP 47 form ("de-DE"). "C",
    /// "POSIX" and an empty text mean American English; a locale nobody knows falls back to its
    /// language, and at last to the root locale, without an error.
    explicit Locale(std::string_view identifier);

    /// The locale of the user's formats, read from the environment at each call as desktop programs
    /// do: the first of LC_ALL, LC_TIME and LANG that is set and not empty.
    [[nodiscard]] static Locale current();

    /// The locale in which names are put in order: the first of LC_ALL, LC_COLLATE and LANG.
    [[nodiscard]] static Locale currentForCollation();

    /// The identifier in ICU's canonical form, such as "de_DE".
    [[nodiscard]] const std::string& identifier() const noexcept { return identifier_; }

    friend bool operator==(const Locale&, const Locale&) = default;

 private:
    std::string identifier_;
};

/// What the environment gives a locale of its own.
enum class LocaleCategory {
    time,      ///< LC_TIME: dates and times, and the calendar
    monetary,  ///< LC_MONETARY: amounts of money
    numeric,   ///< LC_NUMERIC: other numbers
    collate,   ///< LC_COLLATE: the order of names
};

/// The user's locale for `category`, read at each call: the first of LC_ALL, the category's own
/// variable and LANG that is set and not empty.
[[nodiscard]] Locale environmentLocale(LocaleCategory category);

}  // namespace elmworth
