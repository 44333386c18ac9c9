// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "store/Schema.h"

namespace elmworth {

/// What became of a record. One that went need not be readable any more; one that came may have
/// changed since.
struct RecordChange {
    enum class Kind : std::uint8_t { came, changed, went };

    Kind kind = Kind::changed;
    std::uint32_t fields = 0;  ///< of a changed one: bit i stands for field i of its schema

    friend bool operator==(const RecordChange&, const RecordChange&) = default;
};

/// Which records of a library came, changed and went between two moments, each named once.
class RecordChanges {
 public:
    using Named = std::unordered_map<PersistentID, RecordChange>;

    /// More changes of a type than this are not named one by one.
    static constexpr std::size_t mostNamed = 10'000;

    /// Whether any record of `schema` is affected.
    [[nodiscard]] bool touch(const RecordSchema& schema) const noexcept {
        return schema.ordinal < types_.size() && types_[schema.ordinal].isTouched;
    }
    /// The affected records of `schema`; null when they are too many to be named, so that every
    /// one may have come, changed or gone.
    [[nodiscard]] const Named* of(const RecordSchema& schema) const noexcept;

    /// Adds what happened next to the record `id`.
    void note(const RecordSchema& schema, const PersistentID& id, const RecordChange& change);

 private:
    struct OfType {
        bool isTouched = false;
        bool isTooLarge = false;
        Named named;
    };

    std::vector<OfType> types_;  ///< by their ordinals, as far as any is affected
};

}  // namespace elmworth
