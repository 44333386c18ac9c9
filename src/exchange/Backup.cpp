// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/Backup.h"

#include <algorithm>
#include <utility>

#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

std::vector<BackupKey> keysOf(const RecordSchema& schema, std::vector<BackupKey> keys,
                              const BackupShape* items) {
    for (const auto& field : schema.fields) {
        if (field.isInternal || field.target) continue;
        keys.push_back({field.key, field.kind, !field.optional && !field.mayBeMissing, &field});
    }
    for (const auto& list : schema.relationships) {
        if (list.rule != DeleteRule::cascade) continue;
        keys.push_back({list.name, FieldKind::reference, true, nullptr, items});
    }
    return keys;
}

std::vector<BackupKey> keysOfProfile() {
    std::vector<BackupKey> keys;
    for (const auto& field : profileFields()) keys.push_back({field.name, field.kind, false});
    return keys;
}

Value defaultOf(const BackupKey& key) {
    if (!key.isRequired || !key.isScalar()) return {};
    return key.kind == FieldKind::text ? Value(std::string()) : Value(std::int64_t{0});
}

}  // namespace

BackupShape::BackupShape(const RecordSchema& schema, std::vector<BackupKey> besides,
                         const BackupShape* items)
    : BackupShape(keysOf(schema, std::move(besides), items)) {}

BackupShape::BackupShape(std::vector<BackupKey> all) : keys(std::move(all)) {
    std::sort(keys.begin(), keys.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    for (const auto& key : keys) defaults.push_back(defaultOf(key));
}

std::size_t BackupShape::index(std::string_view name) const {
    std::size_t i = 0;
    while (keys.at(i).name != name) ++i;
    return i;
}

const BackupShapes& backupShapes() {
    using enum FieldKind;
    static const BackupShapes shapes{
        .profile = BackupShape(keysOfProfile()),
        .entry{TimeEntry::schema(), {{"invoiceNumber", text, false}}},
        .project{Project::schema(), {}, &shapes.entry},
        .client{Client::schema(), {}, &shapes.project},
        .invoice{Invoice::schema(), {{"client", text, true}, {"clientIndex", integer, false}}},
        .document = BackupShape({
            {"version", integer, true},
            {"exportedAt", instant, true},
            {"profile", FieldKind::profile, true},
            {"clients", reference, true, nullptr, &shapes.client},
            {"invoices", reference, true, nullptr, &shapes.invoice},
        }),
    };
    return shapes;
}

BackupObject backupObject(const BusinessProfile& profile) {
    BackupObject object(backupShapes().profile);
    for (const auto& field : profileFields()) object[field.name] = field.read(profile);
    return object;
}

BusinessProfile profileOf(const BackupObject& object) {
    BusinessProfile profile;
    for (const auto& field : profileFields()) {
        const Value& value = object[field.name];
        if (!std::holds_alternative<std::monostate>(value)) field.write(profile, value);
    }
    return profile;
}

}  // namespace elmworth
