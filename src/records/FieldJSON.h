// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/rapidjson.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ISO8601.h"
#include "platform/Text.h"
#include "store/Value.h"

namespace elmworth {

// The values of fields as JSON writes them. An instant is ISO 8601 in UTC with whole seconds.

/// A value of a JSON document that is neither object nor array.
struct JSONScalar {
    enum class Kind { null, boolean, integer, other, text };
    Kind kind = Kind::null;
    std::int64_t integer = 0;  ///< or 0 or 1
    std::string_view text{};

    /// Whole numbers may have a fraction of zeros or an exponent (6.0 is 6) up to ±2^53; beyond,
    /// not every integer can be told from its neighbours.
    static JSONScalar ofNumber(double number) noexcept;
};

/// Gives RapidJSON's events for scalars to `Handler::scalar`, which returns false to end the
/// parsing.
template <class Handler>
class JSONScalars {
 public:
    bool Null() { return give({}); }
    bool Bool(bool value) { return give({JSONScalar::Kind::boolean, value ? 1 : 0}); }
    bool Int(int value) { return Int64(value); }
    bool Uint(unsigned value) { return Int64(value); }
    bool Int64(std::int64_t value) { return give({JSONScalar::Kind::integer, value}); }
    bool Uint64(std::uint64_t value) {
        const auto number = static_cast<std::int64_t>(value);
        return give({number < 0 ? JSONScalar::Kind::other : JSONScalar::Kind::integer, number});
    }
    bool Double(double value) { return give(JSONScalar::ofNumber(value)); }
    bool RawNumber(const char* /*text*/, rapidjson::SizeType /*length*/, bool /*copy*/) {
        return give({JSONScalar::Kind::other});
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return give({JSONScalar::Kind::text, 0, {text, length}});
    }

 private:
    bool give(const JSONScalar& value) { return static_cast<Handler*>(this)->scalar(value); }
};

/// What `scalar` is for a field of `kind`; absent when it is of another kind.
[[nodiscard]] std::optional<Value> fieldValue(FieldKind kind, const JSONScalar& scalar);

/// What is wrong where `fieldValue` is absent: "not a date".
[[nodiscard]] const char* faultOf(FieldKind kind) noexcept;

/// Writes a text so that it can be read: what is not UTF-8 in it as U+FFFD. False where it had to.
template <class Writer>
bool writeText(Writer& writer, std::string_view text) {
    if (!isUTF8(text)) return writeText(writer, validUTF8(text)), false;
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    return true;
}

/// Writes a present value of a field of `kind`, which is a scalar. False where a text was damaged.
template <class Writer>
bool writeValue(Writer& writer, FieldKind kind, const Value& value) {
    switch (kind) {
        case FieldKind::integer:
            return writer.Int64(std::get<std::int64_t>(value));
        case FieldKind::boolean:
            return writer.Bool(std::get<std::int64_t>(value) != 0);
        case FieldKind::instant:
            return writeText(writer, formatISO8601(FieldTraits<Instant>::fromValue(value)));
        default:
            return writeText(writer, std::get<std::string>(value));
    }
}

}  // namespace elmworth
