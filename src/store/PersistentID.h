// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>

namespace elmworth {

/// The identity of a record: a UUID of version 7 (RFC 9562), never reused. Identifiers made later
/// in one process compare greater.
struct PersistentID {
    std::array<std::uint8_t, 16> bytes{};

    /// A new identifier.
    [[nodiscard]] static PersistentID make();

    /// No identity at all: all bytes are zero.
    [[nodiscard]] bool isNil() const noexcept { return *this == PersistentID{}; }

    /// The 36-character text form, in lower case.
    [[nodiscard]] std::string string() const;

    friend auto operator<=>(const PersistentID&, const PersistentID&) = default;
};

}  // namespace elmworth

template <>
struct std::hash<elmworth::PersistentID> {
    /// The last eight bytes are random, which makes them a good hash as they are.
    std::size_t operator()(const elmworth::PersistentID& id) const noexcept {
        std::size_t value = 0;
        std::memcpy(&value, id.bytes.data() + id.bytes.size() - sizeof value, sizeof value);
        return value;
    }
};
