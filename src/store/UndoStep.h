// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Instant.h"
#include "store/Value.h"

namespace elmworth {

struct RecordSchema;

/// Values of some fields of a record.
class FieldValues {
 public:
    FieldValues() = default;
    /// Those of all fields, in the order of the schema.
    explicit FieldValues(std::vector<Value> all)
        : mask_((std::uint64_t{1} << all.size()) - 1), values_(std::move(all)) {}

    /// Bit i stands for field i of the schema.
    [[nodiscard]] std::uint64_t mask() const noexcept { return mask_; }
    [[nodiscard]] bool has(std::size_t field) const noexcept {
        return ((mask_ >> field) & 1U) != 0;
    }
    /// The value of a field; null when it is not among these.
    [[nodiscard]] const Value* find(std::size_t field) const noexcept {
        return has(field) ? &values_[place(field)] : nullptr;
    }
    /// Adds the value of a field, or replaces it.
    void set(std::size_t field, Value value);

    /// Calls `visit(field, value)` for each, in the order of the schema.
    template <class Visit>
    void forEach(const Visit& visit) const {
        std::size_t place = 0;
        for (auto rest = mask_; rest != 0; rest &= rest - 1) {
            visit(static_cast<std::size_t>(std::countr_zero(rest)), values_[place++]);
        }
    }

    /// About how much memory they take.
    [[nodiscard]] std::size_t bytes() const noexcept;

 private:
    [[nodiscard]] std::size_t place(std::size_t field) const noexcept {
        return static_cast<std::size_t>(std::popcount(mask_ & ((std::uint64_t{1} << field) - 1)));
    }

    std::uint64_t mask_ = 0;
    std::vector<Value> values_;
};

/// What a step did to one record. Of one that came or went all fields are noted, of one that
/// changed those that differ.
struct RecordStep {
    const RecordSchema* schema;
    PersistentID id;
    std::optional<FieldValues> before;  ///< absent: the record was not in the library
    std::optional<FieldValues> after;   ///< absent: it is there no more
};

/// What a menu calls a step: "Archive Website", or by the number of records that it changed,
/// "Delete Entry" and "Delete 3 Entries".
class StepName {
 public:
    StepName(std::string name) : one_(std::move(name)) {}  // NOLINT: a name is a text
    StepName(const char* name) : one_(name) {}             // NOLINT
    /// `several` has "%1" in place of the number.
    StepName(std::string one, std::string several)
        : one_(std::move(one)), several_(std::move(several)) {}

    [[nodiscard]] std::string text(std::size_t records) const;

 private:
    std::string one_;
    std::string several_;
};

/// One thing that a person did, as values: enough to undo it.
struct UndoStep {
    StepName name;
    Instant at;                       ///< when it was done
    std::vector<RecordStep> records;  ///< each record stands there once
    std::string field;                ///< what was typed into, while it may go on; else empty

    [[nodiscard]] std::string text() const { return name.text(records.size()); }
    /// About how much memory it takes.
    [[nodiscard]] std::size_t bytes() const noexcept;
};

/// Takes up in `step` what was done next. Records that are as before the step leave it.
void append(std::vector<RecordStep>& step, std::vector<RecordStep> next);

}  // namespace elmworth
