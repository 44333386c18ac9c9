// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

#include "store/UnitOfWork.h"

namespace elmworth {

/// The record that a form edits, and which may change or go away meanwhile.
template <class T>
class EditedRecord {
 public:
    explicit EditedRecord(UnitOfWork& context) : context_(context) {}

    /// Edits `record` from now on; null, and one that is deleted, make it a new one. Until `close`
    /// it calls `changed` after changes to records of `T` and of the types `others`.
    void open(Ref<T> record, const std::function<void()>& changed,
              std::initializer_list<const RecordSchema*> others = {}) {
        record_ = record && !record->isDeleted() ? std::move(record) : nullptr;
        wasLost_ = false;
        observations_.clear();
        observations_.push_back(context_.observe(T::schema(), changed));
        for (const auto* other : others) {
            observations_.push_back(context_.observe(*other, changed));
        }
    }
    void close() { observations_.clear(); }

    /// Null for a new one.
    [[nodiscard]] const Ref<T>& get() const noexcept { return record_; }
    [[nodiscard]] explicit operator bool() const noexcept { return record_ != nullptr; }
    [[nodiscard]] T& operator*() const noexcept { return *record_; }
    [[nodiscard]] T* operator->() const noexcept { return record_.get(); }

    /// Makes it a new one when the record was deleted; true when it has just been.
    bool loseDeleted() {
        if (!record_ || !record_->isDeleted()) return false;
        record_ = nullptr;
        wasLost_ = true;
        return true;
    }
    /// Whether the record was deleted since `open`.
    [[nodiscard]] bool wasLost() const noexcept { return wasLost_; }

 private:
    UnitOfWork& context_;
    Ref<T> record_;
    bool wasLost_ = false;
    std::vector<UnitOfWork::Observation> observations_;
};

}  // namespace elmworth
