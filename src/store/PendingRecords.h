// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <span>
#include <unordered_map>
#include <vector>

#include "store/Predicate.h"
#include "store/Record.h"
#include "store/RecordOrder.h"
#include "store/SpanTotals.h"

namespace elmworth {

namespace sqlite {
struct ChangeSet;
}

/// The records of a unit of work that are not as stored: new, changed and deleted ones.
class PendingRecords {
 public:
    /// `types` are those of the library, and outlive this.
    explicit PendingRecords(std::span<const RecordSchema* const> types)
        : types_(types), byType_(types.size()) {}

    [[nodiscard]] bool isEmpty() const noexcept;
    [[nodiscard]] std::size_t count(const RecordSchema& schema) const;
    [[nodiscard]] bool contains(const RecordSchema& schema, const PersistentID& id) const;

    void add(const Ref<Record>& record);
    void remove(const Record& record);

    /// `visit` adds and removes nothing.
    void forEach(const std::function<void(Record&)>& visit) const;
    void forEach(const RecordSchema& schema, const std::function<void(Record&)>& visit) const;
    /// The same, and lets go of each type's records after its last. `visit` may add records.
    void releaseAll(const std::function<void(Record&)>& visit);

    /// What a save of them writes, by type and then in the order of creation.
    [[nodiscard]] sqlite::ChangeSet changes() const;

    /// Those that are not deleted and meet `predicate`, if there is one, in `order`.
    [[nodiscard]] std::vector<Ref<Record>> matching(const RecordSchema& schema,
                                                    const PredicateNode* predicate,
                                                    const RecordOrder& order) const;

    /// What a save of them adds to the sum of each owner, in microseconds.
    void forEachSpan(
        const SpanFields& fields,
        const std::function<void(const PersistentID& owner, double microseconds)>& add) const;

 private:
    using RecordMap = std::unordered_map<PersistentID, Ref<Record>>;

    [[nodiscard]] const RecordMap& ofType(const RecordSchema& schema) const;

    std::span<const RecordSchema* const> types_;
    std::vector<RecordMap> byType_;
};

}  // namespace elmworth
