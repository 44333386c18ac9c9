// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UnitOfWork.h"

#include <utility>

#include "store/Deletion.h"
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
      readFaults_(runLoop),
      pending_(types),
      reader_(*this, *store_, pending_, readFaults_),
      observers_(runLoop) {
    upkeep_ = runLoop_.post([this] { store_->prepareLog(); });
}

UnitOfWork::~UnitOfWork() = default;

bool UnitOfWork::hasChanges() const noexcept {
    return !pending_.isEmpty();
}

// --- changes -----------------------------------------------------------------------------------

void UnitOfWork::insert(const Ref<Record>& record) {
    if (record->context_) return;
    if (recorder_) recorder_->touch(*record);
    record->context_ = this;
    record->state_ = Record::State::inserted;
    reader_.add(*record);
    pending_.add(record);
    note(*record, {RecordChange::Kind::came});
}

Ref<Record> UnitOfWork::reinsert(const RecordSchema& schema, const PersistentID& id) {
    auto record = reader_.existing(id);
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
    pending_.add(record.shared_from_this());
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
    const auto deletion = Deletion::of(record, *this);
    for (const auto& [other, field] : deletion.nullified) {
        recordWillChange(*other);
        other->recordSchema().fields[field].write(*other, Value{});
        recordDidChange(*other, field);
    }
    for (const auto& deleted : deletion.deleted) markDeleted(deleted);
}

void UnitOfWork::markDeleted(const Ref<Record>& record) {
    if (recorder_) recorder_->touch(*record);
    if (record->stored_) {
        if (asksForSteps && !recorder_) StepRule::check(*this, *record, "deleted");
        recordWillChange(*record);
        record->state_ = Record::State::deleted;
    } else {
        pending_.remove(*record);
        reader_.remove(record->id_);
        record->context_ = nullptr;
        record->state_ = Record::State::gone;
    }
    note(*record, {RecordChange::Kind::went});
}

void UnitOfWork::checkDeniedDeletions() {
    pending_.forEach([&](const Record& record) {
        if (record.state_ == Record::State::deleted) requireDeletable(record, *this);
    });
}

void UnitOfWork::save(Progress& progress) {
    if (hasChanges() || !flushed_.empty()) {
        try {
            checkDeniedDeletions();
            store_->write(pending_.changes(), progress);
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
    const auto changes = pending_.changes();
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
    if (!flushed_.empty()) totals_.forget();
    for (const auto& id : std::exchange(flushed_, {})) {
        const auto record = reader_.existing(id);
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
    totals_.carry(pending_);
    pending_.releaseAll([&](Record& record) {
        if (recorder_) recorder_->takeSaved(record);
        record.saved_.reset();
        if (record.state_ == Record::State::deleted) {
            record.state_ = Record::State::gone;
            record.context_ = nullptr;
            record.stored_ = false;
            reader_.remove(record.id_);
        } else {
            record.state_ = Record::State::clean;
            record.stored_ = true;
        }
    });
}

void UnitOfWork::rollback() {
    store_->dropFlushed();
    pending_.releaseAll([&](Record& record) {
        noteRestored(record);
        restore(record);
    });
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
        reader_.remove(record.id_);
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
    reader_.fetch(schema, &hasValue, {}, std::nullopt,
                  [&](Ref<Record> record) { records.push_back(std::move(record)); });
    return records;
}

double UnitOfWork::totalSpan(const SpanFields& fields, const PersistentID& owner) {
    return totals_.total(fields, owner, pending_,
                         [&] { return reader_.storedSpan(fields, owner); });
}

}  // namespace elmworth
