// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace elmworth {

/// The version of a release: one to four numbers such as "1.10.2". What is missing counts as 0, so
/// that "1.2" and "1.2.0" are equal.
class ReleaseVersion {
 public:
    ReleaseVersion() = default;

    /// Absent for any other text, and for numbers above 999,999,999.
    [[nodiscard]] static std::optional<ReleaseVersion> parse(std::string_view text);

    /// As it is shown: at least two numbers, and no zeros at the end beyond them.
    [[nodiscard]] std::string text() const;

    friend auto operator<=>(const ReleaseVersion&, const ReleaseVersion&) = default;

 private:
    std::array<std::uint32_t, 4> numbers_{};
};

}  // namespace elmworth
