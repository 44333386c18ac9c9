// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UnitOfWork.h"

#include <algorithm>
#include <iterator>

#include "store/RecordOrder.h"
#include "store/StepRule.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

namespace {

/// Whether changes are held to StepRule.
#ifdef NDEBUG
constexpr bool asksForSteps = false;
#else
constexpr bool asksForSteps = true;
#endif

}  // namespace

UnitOfWork::UnitOfWork(std::unique_ptr<sqlite::RecordStore> store,
                       std::span<const RecordSchema* const> types, RunLoop& runLoop)
    : store_(std::move(store)),
      runLoop_(runLoop),
      types_(types),
      pending_(types.size()),
      observers_(runLoop),
      readFaults_(runLoop) {
    upkeep_ = runLoop_.post([this] { store_->prepareLog(); });
}

UnitOfWork::~UnitOfWork() {
    for (auto& [id, weak] : identities_) {
        if (const auto record = weak.lock()) record->context_ = nullptr;
    }
}

UnitOfWork::RecordMap& UnitOfWork::pending(const RecordSchema& schema) {
    return pending_[schema.ordinal];
}

bool UnitOfWork::hasChanges() const noexcept {
    return std::any_of(pending_.begin(), pending_.end(),
                       [](const auto& map) { return !map.empty(); });
}

// --- changes -----------------------------------------------------------------------------------

void UnitOfWork::insert(const Ref<Record>& record) {
    if (record->context_) return;
    if (recorder_) recorder_->touch(*record);
    const auto& schema = record->recordSchema();
    record->context_ = this;
    record->state_ = Record::State::inserted;
    identities_[record->id_] = record;
    pending(schema)[record->id_] = record;
    note(*record, {RecordChange::Kind::came});
}

Ref<Record> UnitOfWork::reinsert(const RecordSchema& schema, const PersistentID& id) {
    auto record = existing(id);
    if (!record) {
        record = schema.make(id);
        insert(record);
    } else if (record->state_ == Record::State::deleted) {
        if (recorder_) recorder_->touch(*record);
        record->state_ = Record::State::changed;  // the library still has its row
        note(*record, {RecordChange::Kind::came});
    }
    return record;
}

void UnitOfWork::recordWillChange(Record& record) {
    if (recorder_) recorder_->touch(record);
    if (record.state_ != Record::State::clean) return;
    record.saved_ = std::make_unique<std::vector<Value>>(record.capture());
    record.state_ = Record::State::changed;
    pending(record.recordSchema())[record.id_] = record.shared_from_this();
}

void UnitOfWork::recordDidChange(Record& record, std::size_t field) {
    if (asksForSteps && !recorder_ && record.stored_) {
        StepRule::check(*this, record,
                        std::string(record.recordSchema().fields[field].name) + " changed");
    }
    note(record, {RecordChange::Kind::changed, std::uint32_t{1} << field});
}

void UnitOfWork::assign(const Ref<Record>& record, std::size_t field, Value value) {
    const auto& description = record->recordSchema().fields[field];
    if (description.read(*record) == value) return;
    recordWillChange(*record);
    description.write(*record, std::move(value));
    recordDidChange(*record, field);
}

void UnitOfWork::beginStep() {
    recorder_.emplace();
}

std::optional<std::vector<RecordStep>> UnitOfWork::endStep() {
    auto recorder = std::exchange(recorder_, std::nullopt);
    return recorder ? std::move(*recorder).finish() : std::nullopt;
}

void UnitOfWork::note(const Record& record, const RecordChange& change) {
    observers_.note(record.recordSchema(), record.id_, change);
}

void UnitOfWork::deleteRecord(const Ref<Record>& record) {
    if (record->context_ != this || record->isDeleted()) return;
    std::vector<Ref<Record>> deletions;
    std::vector<std::pair<Ref<Record>, std::size_t>> nullified;
    collectDeletions(record, deletions, nullified);
    for (const auto& [other, field] : nullified) {
        recordWillChange(*other);
        other->recordSchema().fields[field].write(*other, Value{});
        recordDidChange(*other, field);
    }
    for (const auto& deletion : deletions) markDeleted(deletion);
}

void UnitOfWork::collectDeletions(const Ref<Record>& record, std::vector<Ref<Record>>& deletions,
                                  std::vector<std::pair<Ref<Record>, std::size_t>>& nullified) {
    deletions.push_back(record);
    for (const auto& relationship : record->recordSchema().relationships) {
        if (relationship.rule == DeleteRule::deny) continue;
        const auto& schema = relationship.target();
        for (const auto& other : related(schema, relationship.inverse, record->id_)) {
            if (relationship.rule == DeleteRule::cascade) {
                collectDeletions(other, deletions, nullified);
            } else {
                nullified.emplace_back(other, schema.fieldIndex(relationship.inverse));
            }
        }
    }
}

void UnitOfWork::markDeleted(const Ref<Record>& record) {
    if (recorder_) recorder_->touch(*record);
    const auto& schema = record->recordSchema();
    if (record->stored_) {
        if (asksForSteps && !recorder_) StepRule::check(*this, *record, "deleted");
        recordWillChange(*record);
        record->state_ = Record::State::deleted;
    } else {
        pending(schema).erase(record->id_);
        identities_.erase(record->id_);
        record->context_ = nullptr;
        record->state_ = Record::State::gone;
    }
    note(*record, {RecordChange::Kind::went});
}

void UnitOfWork::checkDeniedDeletions() {
    for (const auto& map : pending_) {
        for (const auto& [id, record] : map) {
            if (record->state_ != Record::State::deleted) continue;
            for (const auto& relationship : record->recordSchema().relationships) {
                if (relationship.rule != DeleteRule::deny) continue;
                if (related(relationship.target(), relationship.inverse, id).empty()) continue;
                throw StoreError(StoreError::Code::deleteDenied,
                                 "A " + std::string(record->recordSchema().name) +
                                     " that still has " + std::string(relationship.name) +
                                     " can't be deleted.");
            }
        }
    }
}

sqlite::ChangeSet UnitOfWork::collectChanges() {
    sqlite::ChangeSet changes;
    for (const auto* schema : types_) {
        std::vector<const Record*> ordered;
        for (const auto& [id, record] : pending(*schema)) ordered.push_back(record.get());
        std::sort(ordered.begin(), ordered.end(),
                  [](const auto* a, const auto* b) { return a->id() < b->id(); });
        for (const auto* record : ordered) {
            switch (record->state_) {
                case Record::State::inserted:
                    changes.inserted.push_back(record);
                    break;
                case Record::State::deleted:
                    changes.deleted.push_back(record);
                    break;
                default:
                    changes.updated.push_back({record, record->saved_.get()});
                    break;
            }
        }
    }
    return changes;
}

void UnitOfWork::save(Progress& progress) {
    if (hasChanges() || !flushed_.empty()) {
        try {
            checkDeniedDeletions();
            store_->write(collectChanges(), progress);
        } catch (...) {
            // The flushed rows went with the transaction; their objects may be gone.
            if (!flushed_.empty()) rollback();
            throw;
        }
        flushed_.clear();
        forgetChanges();
        tidyLogLater();
    }
    observers_.deliver();
}

/// In a turn of its own, so that no click waits for it.
void UnitOfWork::tidyLogLater() {
    if (store_->hasLongLog()) upkeep_ = runLoop_.post([this] { store_->tidyLog(); });
}

void UnitOfWork::flushInserts() {
    const auto changes = collectChanges();
    if (!changes.updated.empty() || !changes.deleted.empty()) return;
    try {
        store_->flush(changes.inserted);
        for (const auto* record : changes.inserted) {
            flushed_.push_back(record->id());
        }
    } catch (...) {
        rollback();
        throw;
    }
    if (recorder_ && !changes.inserted.empty()) recorder_->giveUp();
    forgetChanges();
}

/// The rows of `flushed_` were rolled back: their records are not stored.
void UnitOfWork::detachFlushed() {
    if (!flushed_.empty()) totals_.clear();
    for (const auto& id : std::exchange(flushed_, {})) {
        const auto record = existing(id);
        if (!record) continue;
        record->state_ = Record::State::inserted;
        record->stored_ = false;
        restore(*record);
    }
}

void UnitOfWork::saveQuietly() noexcept {
    try {
        save();
    } catch (const StoreError&) {
        return;
    }
}

void UnitOfWork::saveOrRollback(Progress& progress) {
    try {
        save(progress);
    } catch (...) {
        rollback();
        throw;
    }
}

void UnitOfWork::forgetChanges() {
    carryTotals();
    for (auto& map : pending_) {
        for (auto& [id, record] : map) {
            if (recorder_) recorder_->takeSaved(*record);
            record->saved_.reset();
            if (record->state_ == Record::State::deleted) {
                record->state_ = Record::State::gone;
                record->context_ = nullptr;
                record->stored_ = false;
                identities_.erase(id);
            } else {
                record->state_ = Record::State::clean;
                record->stored_ = true;
            }
        }
        // Releasing a record may release others that it points to, so the map must be out of reach.
        const RecordMap released = std::exchange(map, {});
    }
}

void UnitOfWork::rollback() {
    store_->dropFlushed();
    for (auto& map : pending_) {
        for (auto& [id, record] : map) {
            noteRestored(*record);
            restore(*record);
        }
        const RecordMap released = std::exchange(map, {});
    }
    if (!flushed_.empty()) tidyLogLater();
    detachFlushed();
}

void UnitOfWork::noteRestored(const Record& record) {
    using enum RecordChange::Kind;
    const bool wentWithIt = record.state_ == Record::State::inserted;
    const bool cameBack = record.state_ == Record::State::deleted;
    note(record, {wentWithIt ? went : cameBack ? came : changed, ~std::uint32_t{0}});
}

void UnitOfWork::restore(Record& record) {
    if (record.state_ == Record::State::inserted) {
        identities_.erase(record.id_);
        record.context_ = nullptr;
        record.state_ = Record::State::detached;
        return;
    }
    const auto fields = record.recordSchema().fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i].write(record, std::move((*record.saved_)[i]));
    }
    record.saved_.reset();
    record.state_ = Record::State::clean;
}

// --- reading -----------------------------------------------------------------------------------

Ref<Record> UnitOfWork::existing(const PersistentID& id) const {
    const auto found = identities_.find(id);
    return found == identities_.end() ? nullptr : found->second.lock();
}

void UnitOfWork::adopt(Record& record) {
    record.context_ = this;
    record.state_ = Record::State::clean;
    record.stored_ = true;
    identities_[record.id_] = record.weak_from_this();
}

void UnitOfWork::forget(Record& record) noexcept {
    const auto found = identities_.find(record.id_);
    if (found != identities_.end() && found->second.expired()) identities_.erase(found);
}

Ref<Record> UnitOfWork::record(const RecordSchema& schema, const PersistentID& id) {
    if (auto known = existing(id)) return known->isDeleted() ? nullptr : known;
    Ref<Record> found;
    reading([&] {
        store_->selectOne(schema, id, [&](const sqlite::Row& row) {
            found = schema.make(id);
            row.readInto(*found, schema);
            adopt(*found);
        });
    });
    return found;
}

Ref<Record> UnitOfWork::recordQuietly(const RecordSchema& schema, const PersistentID& id) {
    try {
        return record(schema, id);
    } catch (const StoreError&) {
        return nullptr;
    }
}

std::vector<Ref<Record>> UnitOfWork::related(const RecordSchema& schema, std::string_view inverse,
                                             const PersistentID& owner) {
    return recordsWith(schema, schema.fieldIndex(inverse), owner);
}

std::vector<Ref<Record>> UnitOfWork::recordsWith(const RecordSchema& schema, std::size_t field,
                                                 Value value) {
    const PredicateNode hasValue{PredicateNode::Kind::equal, field, std::move(value), {}};
    std::vector<Ref<Record>> records;
    fetchRecords(schema, &hasValue, {}, std::nullopt,
                 [&](Ref<Record> record) { records.push_back(std::move(record)); });
    return records;
}

void UnitOfWork::fetchRecords(const RecordSchema& schema, const PredicateNode* predicate,
                              std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
                              const RecordHandler& handler) {
    const auto& unsaved = pending(schema);
    // Each unsaved record may take the place of one of the library's.
    const auto rowLimit = limit ? std::optional(*limit + unsaved.size()) : std::nullopt;
    std::vector<Ref<Record>> records;
    const auto take = [&](const sqlite::Row& row) {
        const PersistentID id = row.id();
        auto record = existing(id);
        if (!record) {
            record = schema.make(id);
            row.readInto(*record, schema);
            adopt(*record);
        } else if (record->state_ != Record::State::clean) {
            return;
        }
        records.push_back(std::move(record));
    };
    reading([&] { store_->select(schema, predicate, sortBy, rowLimit, take); });
    if (sortBy.empty()) {
        std::sort(records.begin(), records.end(),
                  [](const auto& a, const auto& b) { return a->id_ < b->id_; });
    }
    overlayPending(records, schema, predicate, sortBy);
    if (limit && records.size() > *limit) records.resize(*limit);
    for (auto& record : records) handler(std::move(record));
}

std::vector<Ref<Record>> UnitOfWork::unsavedMatches(const RecordSchema& schema,
                                                    const PredicateNode* predicate,
                                                    const RecordOrder& order) {
    std::vector<Ref<Record>> records;
    for (const auto& [id, record] : pending(schema)) {
        if (record->isDeleted()) continue;
        if (!predicate || predicate->matches(schema, *record)) records.push_back(record);
    }
    std::sort(records.begin(), records.end(),
              [&](const auto& a, const auto& b) { return order.precedes(*a, *b); });
    return records;
}

void UnitOfWork::overlayPending(std::vector<Ref<Record>>& records, const RecordSchema& schema,
                                const PredicateNode* predicate, std::span<const SortKey> sortBy) {
    const RecordOrder order(schema, sortBy);
    const auto stored = static_cast<std::ptrdiff_t>(records.size());
    auto unsaved = unsavedMatches(schema, predicate, order);
    std::move(unsaved.begin(), unsaved.end(), std::back_inserter(records));
    std::inplace_merge(records.begin(), records.begin() + stored, records.end(),
                       [&](const auto& a, const auto& b) { return order.precedes(*a, *b); });
}

std::size_t UnitOfWork::countRecords(const RecordSchema& schema, const PredicateNode* predicate) {
    return reading([&] {
        std::size_t count = store_->count(schema, predicate);
        for (const auto& [id, record] : pending(schema)) {
            if (record->stored_ && store_->rowMatches(schema, id, predicate)) --count;
            if (record->isDeleted()) continue;
            if (!predicate || predicate->matches(schema, *record)) ++count;
        }
        return count;
    });
}

}  // namespace elmworth
