// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "records/BusinessProfile.h"
#include "records/Client.h"
#include "records/FieldText.h"

namespace elmworth {

/// The longest payment term, in days.
inline constexpr std::int64_t longestTerm = 120;

/// A name without blanks at its ends; it is not empty, and fits on one line.
Parsed<std::string> parseName(std::string_view text);

/// An hourly rate in cents: "120", "120.50".
Parsed<std::int64_t> parseRate(std::string_view text);

/// An ISO 4217 code in use, in upper case.
Parsed<std::string> parseCurrency(std::string_view text);

/// A payment term in days, up to `longestTerm`.
Parsed<std::int64_t> parseDueDays(std::string_view text);

/// What stands below a rate that can't be taken; nothing below one that can, and none yet.
[[nodiscard]] std::string_view rateProblem(std::string_view text);

/// What a person fills in to add or change a client. Nothing touches a record before `apply`.
struct ClientForm {
    std::string name{};
    std::string email{};
    std::string address{};
    std::string currencyCode = "USD";
    std::string rateText = "100";
    bool hasOwnTerms = false;  ///< else the business defaults hold, whatever the next two say
    std::int64_t dueDays = 14;
    std::string taxText{};  ///< empty: 0%

    /// What `client` has, with the terms of `profile` where it has none of its own.
    [[nodiscard]] static ClientForm of(const Client& client, const BusinessProfile& profile);

    /// Whether it has a name, and the numbers can be read.
    [[nodiscard]] bool canSave() const;
    /// Writes all fields into `client`, a name of several lines as one. Throws Refused unless
    /// `canSave`; nothing is written then.
    void apply(Client& client) const;

    friend bool operator==(const ClientForm&, const ClientForm&) = default;
};

}  // namespace elmworth
