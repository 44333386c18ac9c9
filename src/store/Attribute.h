// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "store/Record.h"
#include "store/StoreError.h"

namespace elmworth {

/// A persistent property of a record. Reads like a value; an assignment that changes it is noted by
/// the record's context. Takes what is `storable`.
template <class T>
class Attribute {
 public:
    using ValueType = T;

    explicit Attribute(Record& owner, T initial = T{})
        : owner_(owner), value_(storable(std::move(initial))) {}
    Attribute(const Attribute&) = delete;
    ~Attribute() = default;

    [[nodiscard]] const T& get() const noexcept { return value_; }
    operator const T&() const noexcept { return value_; }  // NOLINT: reads like a value
    const T* operator->() const noexcept { return &value_; }

    Attribute& operator=(T given) {
        T value = storable(std::move(given));
        if (value == value_) return *this;
        owner_.willChange();
        value_ = std::move(value);
        owner_.didChange(this);
        return *this;
    }
    Attribute& operator=(const Attribute& other) { return *this = other.value_; }

 private:
    friend struct FieldAccess;

    Record& owner_;
    T value_;
};

/// Finds the record of an identity, from memory or the library; null when there is none or the
/// library can't be read.
[[nodiscard]] Ref<Record> resolveRecord(const Record& owner, const RecordSchema& target,
                                        const PersistentID& id);

/// A relationship to at most one record of type `T`, read from the library on first use.
template <class T>
class ToOne {
 public:
    using ValueType = std::optional<PersistentID>;
    using Target = T;

    explicit ToOne(Record& owner) : owner_(owner) {}
    ToOne(const ToOne&) = delete;
    ~ToOne() = default;

    /// The related record, or null. One that can't be read looks absent; the relationship stays.
    [[nodiscard]] const Ref<T>& get() const {
        if (!target_ && !id_.isNil()) {
            target_ = std::static_pointer_cast<T>(resolveRecord(owner_, T::schema(), id_));
        }
        return target_;
    }
    operator const Ref<T>&() const { return get(); }  // NOLINT: reads like a reference
    /// Requires a related record. Throws StoreError when it can't be read.
    T* operator->() const { return get() ? target_.get() : failToResolve(); }
    /// Whether there is a related record, without reading it: it may be one that can't be read. A
    /// record that was deleted keeps the identity, but may no longer find the related one.
    explicit operator bool() const noexcept { return !id_.isNil(); }

    /// The identity of the related record, without reading it; absent for none.
    [[nodiscard]] std::optional<PersistentID> id() const {
        return id_.isNil() ? std::nullopt : std::optional(id_);
    }

    ToOne& operator=(Ref<T> target) {
        const PersistentID id = target ? target->id() : PersistentID{};
        if (id == id_) return *this;
        owner_.willChange();
        assign(std::move(target));
        owner_.didChange(this);
        return *this;
    }
    /// Takes over the relationship, also to a record that can't be read.
    ToOne& operator=(const ToOne& other) {
        if (other.id_ == id_) return *this;
        owner_.willChange();
        id_ = other.id_;
        target_ = other.target_;
        owner_.didChange(this);
        return *this;
    }

 private:
    friend struct FieldAccess;

    [[noreturn]] static T* failToResolve() {
        throw StoreError(StoreError::Code::corrupt, "A record that is needed can't be read");
    }

    void assign(Ref<T> target) {
        id_ = target ? target->id() : PersistentID{};
        target_ = std::move(target);
    }

    Record& owner_;
    PersistentID id_;
    mutable Ref<T> target_;
};

/// The records of `target` whose relationship `inverse` is `owner`, oldest first, with unsaved
/// changes; none when the library can't be read.
[[nodiscard]] std::vector<Ref<Record>> relatedRecords(const Record& owner,
                                                      const RecordSchema& target,
                                                      std::string_view inverse);

/// The other side of a `ToOne`: all records of type `T` that point to the owner. Nothing is stored
/// or kept for it; each call asks the library by its index.
template <class T>
class ToMany {
 public:
    ToMany(const Record& owner, std::string_view inverse) : owner_(owner), inverse_(inverse) {}
    ToMany(const ToMany&) = delete;
    ToMany& operator=(const ToMany&) = delete;

    [[nodiscard]] std::vector<Ref<T>> operator()() const {
        std::vector<Ref<T>> records;
        for (auto& record : relatedRecords(owner_, T::schema(), inverse_)) {
            records.push_back(std::static_pointer_cast<T>(std::move(record)));
        }
        return records;
    }

 private:
    const Record& owner_;
    std::string_view inverse_;
};

}  // namespace elmworth
