// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/FieldJSON.h"

#include <cmath>

#include "records/BusinessProfile.h"

namespace elmworth {

JSONScalar JSONScalar::ofNumber(double number) noexcept {
    constexpr double largest = 9'007'199'254'740'992;  // 2^53
    if (!(std::abs(number) <= largest) || number != std::trunc(number)) {
        return {Kind::other};
    }
    return {Kind::integer, static_cast<std::int64_t>(number)};
}

std::optional<Value> fieldValue(FieldKind kind, const JSONScalar& scalar) {
    using Is = JSONScalar::Kind;
    if (kind == FieldKind::integer || kind == FieldKind::boolean) {
        const Is wanted = kind == FieldKind::integer ? Is::integer : Is::boolean;
        return scalar.kind == wanted ? std::optional<Value>(scalar.integer) : std::nullopt;
    }
    if (scalar.kind != Is::text) return std::nullopt;
    if (kind == FieldKind::instant) {
        const auto instant = parseISO8601(scalar.text);
        return instant ? std::optional(FieldTraits<Instant>::toValue(*instant)) : std::nullopt;
    }
    const bool fits = kind == FieldKind::paperSize ? paperSizeFromRawValue(scalar.text).has_value()
                                                   : !holdsLoneSurrogate(scalar.text);
    return fits ? std::optional<Value>(std::string(scalar.text)) : std::nullopt;
}

const char* faultOf(FieldKind kind) noexcept {
    switch (kind) {
        case FieldKind::integer:
            return "not a whole number of 64 bits";
        case FieldKind::boolean:
            return "neither true nor false";
        case FieldKind::instant:
            return "not a date";
        case FieldKind::paperSize:
            return "neither \"letter\" nor \"a4\"";
        case FieldKind::profile:
            return "not an object";
        default:
            return "not a text";
    }
}

}  // namespace elmworth
