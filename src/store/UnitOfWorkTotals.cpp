// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>

#include "store/UnitOfWork.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

namespace {

/// 0 unless both have a value, as in SQL.
double microseconds(const Value& since, const Value& until) {
    const auto* first = std::get_if<std::int64_t>(&since);
    const auto* last = std::get_if<std::int64_t>(&until);
    return first && last ? static_cast<double>(*last) - static_cast<double>(*first) : 0;
}

}  // namespace

void UnitOfWork::visitUnsavedSpans(
    const SpanFields& fields,
    const std::function<void(const PersistentID& owner, double microseconds)>& add) {
    const auto columns = fields.schema->fields;
    for (const auto& [id, record] : pending(*fields.schema)) {
        if (record->stored_) {
            const auto& saved = *record->saved_;
            const auto* owner = std::get_if<PersistentID>(&saved[fields.owner]);
            if (owner) add(*owner, -microseconds(saved[fields.since], saved[fields.until]));
        }
        if (record->isDeleted()) continue;
        const Value value = columns[fields.owner].read(*record);
        const auto* owner = std::get_if<PersistentID>(&value);
        if (!owner) continue;
        add(*owner,
            microseconds(columns[fields.since].read(*record), columns[fields.until].read(*record)));
    }
}

double UnitOfWork::totalSpan(const SpanFields& fields, const PersistentID& owner) {
    auto kept = std::find_if(totals_.begin(), totals_.end(),
                             [&](const auto& totals) { return totals.fields == fields; });
    if (kept == totals_.end()) kept = totals_.insert(kept, SpanTotals{fields});
    auto stored = kept->byOwner.find(owner);
    if (stored == kept->byOwner.end()) {
        const double inLibrary = reading([&] { return store_->totalSpan(fields, owner); });
        stored = kept->byOwner.emplace(owner, inLibrary).first;
    }
    double total = stored->second;
    visitUnsavedSpans(fields, [&](const PersistentID& other, double span) {
        if (other == owner) total += span;
    });
    return total;
}

void UnitOfWork::carryTotals() {
    for (auto& totals : totals_) {
        visitUnsavedSpans(totals.fields, [&](const PersistentID& owner, double span) {
            const auto stored = totals.byOwner.find(owner);
            if (stored != totals.byOwner.end()) stored->second += span;
        });
    }
}

}  // namespace elmworth
