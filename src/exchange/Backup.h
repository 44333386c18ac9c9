// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/Instant.h"
#include "records/BusinessProfile.h"
#include "store/Schema.h"

namespace elmworth {

// What a backup document consists of; docs/backup-format.md describes it for others. The keys of
// an object follow from the schema of its record: the fields, and a list of what is deleted with
// it. Relationships are told by keys of their own, since a document has no identities.

struct BackupShape;

/// One key of an object of the document.
struct BackupKey {
    std::string_view name;
    FieldKind kind;
    bool isRequired;                          ///< else it may be missing or null
    const FieldDescription* field = nullptr;  ///< of the record; null for what is said otherwise
    const BackupShape* items = nullptr;       ///< the key holds a list of such objects

    [[nodiscard]] bool isScalar() const { return !items && kind != FieldKind::profile; }
};

/// The keys of an object, by name.
struct BackupShape {
    /// The object of a record: with `besides` its fields, and with `items` what stands below it.
    BackupShape(const RecordSchema& schema, std::vector<BackupKey> besides,
                const BackupShape* items = nullptr);
    explicit BackupShape(std::vector<BackupKey> all);

    std::vector<BackupKey> keys;
    std::vector<Value> defaults;  ///< of the keys: empty or 0 where a value is required

    /// The position of a key, which must exist.
    [[nodiscard]] std::size_t index(std::string_view name) const;
};

/// The objects of a document.
struct BackupShapes {
    BackupShape profile, entry, project, client, invoice, document;
};
[[nodiscard]] const BackupShapes& backupShapes();

/// One object of a document: a value for each key of its shape, as a record's field has it, and
/// the objects of its list. Instants are whole seconds.
struct BackupObject {
    explicit BackupObject(const BackupShape& itsShape)
        : shape(&itsShape), values(itsShape.defaults) {}

    const BackupShape* shape;
    std::vector<Value> values;
    std::vector<BackupObject> items = {};

    [[nodiscard]] Value& operator[](std::string_view key) { return values[shape->index(key)]; }
    [[nodiscard]] const Value& operator[](std::string_view key) const {
        return values[shape->index(key)];
    }
    friend bool operator==(const BackupObject&, const BackupObject&) = default;
};

[[nodiscard]] BackupObject backupObject(const BusinessProfile& profile);
[[nodiscard]] BusinessProfile profileOf(const BackupObject& object);

/// How much a document holds.
struct BackupCounts {
    std::size_t clients = 0;
    std::size_t projects = 0;
    std::size_t entries = 0;
    std::size_t invoices = 0;
    std::size_t repairedTexts = 0;  ///< damaged ones, which stand with U+FFFD in the document

    friend bool operator==(const BackupCounts&, const BackupCounts&) = default;
};

struct Backup {
    std::int64_t version = 1;
    Instant exportedAt;
    BusinessProfile profile;
    std::vector<BackupObject> clients;  ///< with their projects, and those with their entries
    std::vector<BackupObject> invoices;

    friend bool operator==(const Backup&, const Backup&) = default;
};

}  // namespace elmworth
