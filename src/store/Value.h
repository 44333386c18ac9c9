// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>

#include "platform/ISO8601.h"
#include "platform/Instant.h"
#include "store/PersistentID.h"

namespace elmworth {

/// Raw bytes.
struct Blob {
    std::string bytes;

    friend bool operator==(const Blob&, const Blob&) = default;
};

/// The value of one field of a record, whatever its type: absent, a number (also instants in
/// microseconds since 1970 and booleans), text, bytes, or the identity of another record.
using Value = std::variant<std::monostate, std::int64_t, std::string, Blob, PersistentID>;

/// How a field's type is stored.
enum class StorageClass { integer, text, blob, identity };

/// What the values of a field are to those who write them down: a document, the command line.
enum class FieldKind {
    text,
    integer,
    boolean,
    instant,
    paperSize,  ///< one of two texts
    profile,    ///< a business profile, as the bytes of its JSON
    reference,  ///< another record
};

/// What a field takes for `value`: of dates only those that a backup can hold, and the nearest of
/// them for others.
template <class T>
[[nodiscard]] T storable(T value) {
    return value;
}
[[nodiscard]] inline Instant storable(Instant value) {
    return clampedToISO8601(value);
}
[[nodiscard]] inline std::optional<Instant> storable(std::optional<Instant> value) {
    return value ? std::optional(clampedToISO8601(*value)) : std::nullopt;
}

/// Turns the types that a field can have into a `Value` and back.
template <class T>
struct FieldTraits;

template <>
struct FieldTraits<std::int64_t> {
    static constexpr FieldKind kind = FieldKind::integer;
    static constexpr StorageClass storage = StorageClass::integer;
    static Value toValue(std::int64_t value) { return value; }
    static std::int64_t fromValue(const Value& value) { return std::get<std::int64_t>(value); }
};

template <>
struct FieldTraits<bool> {
    static constexpr FieldKind kind = FieldKind::boolean;
    static constexpr StorageClass storage = StorageClass::integer;
    static Value toValue(bool value) { return std::int64_t{value ? 1 : 0}; }
    static bool fromValue(const Value& value) { return std::get<std::int64_t>(value) != 0; }
};

template <>
struct FieldTraits<Instant> {
    static constexpr FieldKind kind = FieldKind::instant;
    static constexpr StorageClass storage = StorageClass::integer;
    static Value toValue(Instant value) { return std::int64_t{value.time_since_epoch().count()}; }
    static Instant fromValue(const Value& value) {
        return storable(Instant{std::chrono::microseconds{std::get<std::int64_t>(value)}});
    }
};

template <>
struct FieldTraits<std::string> {
    static constexpr FieldKind kind = FieldKind::text;
    static constexpr StorageClass storage = StorageClass::text;
    static Value toValue(const std::string& value) { return value; }
    static std::string fromValue(const Value& value) { return std::get<std::string>(value); }
};

template <>
struct FieldTraits<Blob> {
    static constexpr FieldKind kind = FieldKind::profile;
    static constexpr StorageClass storage = StorageClass::blob;
    static Value toValue(const Blob& value) { return value; }
    static Blob fromValue(const Value& value) { return std::get<Blob>(value); }
};

template <>
struct FieldTraits<PersistentID> {
    static constexpr FieldKind kind = FieldKind::reference;
    static constexpr StorageClass storage = StorageClass::identity;
    static Value toValue(const PersistentID& value) { return value; }
    static PersistentID fromValue(const Value& value) { return std::get<PersistentID>(value); }
};

template <class T>
struct FieldTraits<std::optional<T>> {
    static constexpr FieldKind kind = FieldTraits<T>::kind;
    static constexpr StorageClass storage = FieldTraits<T>::storage;
    static Value toValue(const std::optional<T>& value) {
        return value ? FieldTraits<T>::toValue(*value) : Value{};
    }
    static std::optional<T> fromValue(const Value& value) {
        if (std::holds_alternative<std::monostate>(value)) return std::nullopt;
        return FieldTraits<T>::fromValue(value);
    }
};

template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;

}  // namespace elmworth
