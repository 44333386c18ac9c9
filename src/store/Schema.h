// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

#include "store/Attribute.h"
#include "store/Record.h"
#include "store/Value.h"

namespace elmworth {

namespace sqlite {
class Database;
}

/// What becomes of the records that point to a record when it is deleted.
enum class DeleteRule {
    cascade,  ///< they are deleted too
    nullify,  ///< they point to nothing
    deny,     ///< the deletion is refused at the save while there are any
};

/// What people type to set a field, and how it is read, where its kind does not tell.
enum class FieldInput {
    byKind,
    name,      ///< a text on one line, not empty
    color,     ///< #RRGGBB
    currency,  ///< ISO 4217
    amount,    ///< "120.50" for cents
    percent,   ///< "8.25" for basis points
    hours,     ///< "37.5", rounded to whole hours
    days,      ///< a payment term
    none,      ///< set in another way than by its name and a value
};

/// What a row says of a field where it is not the usual.
struct FieldOptions {
    bool unique = false;        ///< no two records of the library have the same value
    bool isInternal = false;    ///< neither backup documents nor commands know it
    bool mayBeMissing = false;  ///< in a backup document, of an older version; else if `optional`
    std::string_view key = {};  ///< its name in documents and commands, where it is another
    FieldInput input = FieldInput::byKind;
    std::string_view word = {};  ///< what people call it on the command line; else the key
};

/// One stored field of a record type.
struct FieldDescription : FieldOptions {
    std::string_view name;
    StorageClass storage;
    FieldKind kind;
    bool optional;  ///< a record may have no value
    Value (*read)(const Record&);
    /// Sets the field as an assignment does; null for relationships.
    void (*assign)(Record&, const Value&);
    /// Sets the field behind the context's back: when a row is read, and when changes are rolled
    /// back.
    void (*write)(Record&, Value&&);
    /// Where a record keeps the field, to tell which one has changed.
    const void* (*place)(const Record&);
    /// The record type that a to-one relationship points to; null for attributes.
    const RecordSchema& (*target)() = nullptr;
};

/// One to-many relationship, the inverse of a to-one field of the other type.
struct ToManyDescription {
    std::string_view name;
    const RecordSchema& (*target)();
    std::string_view inverse;
    DeleteRule rule;
};

/// An index over `columns`, in which only rows stand whose `present` columns have a value and whose
/// `absent` column has none. Empty names mean none.
struct IndexDescription {
    std::string_view name;
    std::array<std::string_view, 3> columns;
    std::string_view present = {};
    std::string_view absent = {};
};

/// The one declaration of a record type. It drives table, load, save, change tracking, predicates,
/// sort keys, delete rules, the backup document and what commands show and set.
struct RecordSchema {
    std::string_view name;
    std::size_t ordinal;  ///< its place among the types of the library
    std::span<const FieldDescription> fields;
    std::span<const ToManyDescription> relationships;
    std::span<const IndexDescription> indexes;
    /// An object for the row of an identity, its fields still to be read.
    std::shared_ptr<Record> (*make)(const PersistentID& id);

    /// The position of the field that is called `fieldName`, which must exist.
    [[nodiscard]] std::size_t fieldIndex(std::string_view fieldName) const;
};

/// Access to the values inside a record's members, for the functions below.
struct FieldAccess {
    template <class T>
    static Value read(const Attribute<T>& attribute) {
        return FieldTraits<T>::toValue(attribute.value_);
    }
    template <class T>
    static void write(Attribute<T>& attribute, Value&& value) {
        if constexpr (std::is_same_v<T, std::string>) {
            attribute.value_ = std::move(std::get<std::string>(value));
        } else {
            attribute.value_ = FieldTraits<T>::fromValue(value);
        }
    }
    template <class T>
    static Value read(const ToOne<T>& relationship) {
        return relationship.id_.isNil() ? Value{} : Value{relationship.id_};
    }
    template <class T>
    static void write(ToOne<T>& relationship, Value&& value) {
        const auto* id = std::get_if<PersistentID>(&value);
        relationship.id_ = id ? *id : PersistentID{};
        relationship.target_ = nullptr;
    }
};

namespace detail {

template <class Member>
struct MemberPointer;
template <class Owner, class Field>
struct MemberPointer<Field Owner::*> {
    using RecordType = Owner;
    using FieldType = Field;
};

template <auto Member>
Value readField(const Record& record) {
    using Type = typename MemberPointer<decltype(Member)>::RecordType;
    return FieldAccess::read(static_cast<const Type&>(record).*Member);
}
template <auto Member>
void assignField(Record& record, const Value& value) {
    using Type = typename MemberPointer<decltype(Member)>::RecordType;
    using T = typename MemberPointer<decltype(Member)>::FieldType::ValueType;
    static_cast<Type&>(record).*Member = FieldTraits<T>::fromValue(value);
}
template <auto Member>
void writeField(Record& record, Value&& value) {
    using Type = typename MemberPointer<decltype(Member)>::RecordType;
    FieldAccess::write(static_cast<Type&>(record).*Member, std::move(value));
}
template <auto Member>
const void* placeOfField(const Record& record) {
    using Type = typename MemberPointer<decltype(Member)>::RecordType;
    return &(static_cast<const Type&>(record).*Member);
}

}  // namespace detail

/// Makes the object of a stored record of type `T`.
template <class T>
std::shared_ptr<Record> makeRecord(const PersistentID& id) {
    return std::make_shared<T>(id);
}

/// Declares the member `Member` as a stored attribute.
template <auto Member>
constexpr FieldDescription attribute(std::string_view name, FieldOptions options = {}) {
    using T = typename detail::MemberPointer<decltype(Member)>::FieldType::ValueType;
    if (options.key.empty()) options.key = name;
    return {options,
            name,
            FieldTraits<T>::storage,
            FieldTraits<T>::kind,
            isOptional<T>,
            &detail::readField<Member>,
            &detail::assignField<Member>,
            &detail::writeField<Member>,
            &detail::placeOfField<Member>};
}

/// Declares the member `Member` as a to-one relationship.
template <auto Member>
constexpr FieldDescription toOne(std::string_view name) {
    using Field = typename detail::MemberPointer<decltype(Member)>::FieldType;
    return {{.key = name},
            name,
            StorageClass::identity,
            FieldKind::reference,
            true,
            &detail::readField<Member>,
            nullptr,
            &detail::writeField<Member>,
            &detail::placeOfField<Member>,
            &Field::Target::schema};
}

/// How a library of one version becomes one of the next: by SQL statements, by a function, or by
/// the statements and then the function. Runs in a transaction, with foreign keys off, so that a
/// table can be made anew; opens and ends no transaction, and leaves the version alone.
struct MigrationStep {
    int from;
    int to;
    std::string_view sql = {};
    void (*change)(sqlite::Database&) = nullptr;  ///< throws StoreError
};

/// What a library consists of: its record types, the version of their schema, and the steps that
/// lead to it from older ones.
struct LibraryModel {
    /// Parents before those that point to them; the ordinal of each is its place here.
    std::span<const RecordSchema* const> types;
    int version;
    std::span<const MigrationStep> steps = {};

    /// Whether a library of `stored` is of the current version, or steps lead from it there.
    [[nodiscard]] bool canRead(int stored) const;
    /// The step that begins at `stored`; null for none.
    [[nodiscard]] const MigrationStep* stepFrom(int stored) const;
};

}  // namespace elmworth
