// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "store/PersistentID.h"
#include "store/Value.h"

namespace elmworth {

class UnitOfWork;
struct RecordSchema;

/// A reference to a record. Two references are equal when they are the same stored record.
template <class T>
using Ref = std::shared_ptr<T>;

/// What all persistent records have in common.
///
/// A record is a plain object until a context takes it by `insert`; from then on the context notes
/// each change and writes it at the next save. There is at most one object for a stored record, so
/// references can be compared. Whoever keeps a reference across events asks `isDeleted` before
/// using it.
class Record : public std::enable_shared_from_this<Record> {
 public:
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    virtual ~Record();

    /// The stable identity, from creation on.
    [[nodiscard]] const PersistentID& id() const noexcept { return id_; }

    /// True once the record is deleted in its context, also before the deletion is saved.
    [[nodiscard]] bool isDeleted() const noexcept {
        return state_ == State::deleted || state_ == State::gone;
    }

    /// The context that owns the record: null before it is inserted, and once it has left.
    [[nodiscard]] UnitOfWork* unitOfWork() const noexcept { return context_; }

    /// The declaration of this record's type.
    [[nodiscard]] virtual const RecordSchema& recordSchema() const noexcept = 0;

 protected:
    /// A record with a new identity.
    Record();
    /// The record of an identity that the library holds.
    explicit Record(const PersistentID& id) : id_(id) {}

 private:
    friend class UnitOfWork;
    friend class PendingRecords;
    friend class RecordReader;
    friend class StepRecorder;
    template <class T>
    friend class Attribute;
    template <class T>
    friend class ToOne;
    template <class T>
    friend class ToMany;

    enum class State : std::uint8_t {
        detached,  ///< not in a context
        inserted,  ///< in a context, not stored yet
        clean,     ///< as stored
        changed,   ///< stored, with changes to save
        deleted,   ///< to be deleted at the next save
        gone,      ///< deleted and saved
    };

    /// Called around each change of a field, which lies at `field`.
    void willChange();
    void didChange(const void* field);

    /// The values of all fields, in the order of the schema.
    [[nodiscard]] std::vector<Value> capture() const;

    PersistentID id_;
    UnitOfWork* context_ = nullptr;
    State state_ = State::detached;
    bool stored_ = false;                        ///< the library holds a row of this record
    std::unique_ptr<std::vector<Value>> saved_;  ///< the values at the last save, while they differ
};

}  // namespace elmworth
