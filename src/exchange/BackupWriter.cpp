// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupWriter.h"

#include <algorithm>

#include "records/FieldJSON.h"

namespace elmworth {

namespace {

/// The position of the list among the keys of an object; their number when it has none.
std::size_t listOf(const BackupShape& shape) {
    const auto list = std::find_if(shape.keys.begin(), shape.keys.end(),
                                   [](const auto& key) { return key.items != nullptr; });
    return static_cast<std::size_t>(list - shape.keys.begin());
}

}  // namespace

void BackupWriter::key(std::string_view name) {
    writer_.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
}

void BackupWriter::frozenProfile(std::string_view name, const std::string& json) {
    const auto profile = decodeProfile(validUTF8(json));
    if (!profile) return;
    if (!isUTF8(json)) ++repairedTexts_;
    key(name);
    write(backupObject(*profile));
}

void BackupWriter::field(const BackupKey& itsKey, const Value& value) {
    if (std::holds_alternative<std::monostate>(value)) return;
    if (const auto* blob = std::get_if<Blob>(&value))
        return frozenProfile(itsKey.name, blob->bytes);
    key(itsKey.name);
    if (!writeValue(writer_, itsKey.kind, value)) ++repairedTexts_;
}

void BackupWriter::fields(const BackupObject& object, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) field(object.shape->keys[i], object.values[i]);
}

void BackupWriter::begin() {
    writer_.SetIndent(' ', 2);
    writer_.StartObject();
    key("clients");
    writer_.StartArray();
}

void BackupWriter::beginList(const BackupObject& object) {
    const std::size_t list = listOf(*object.shape);
    writer_.StartObject();
    fields(object, 0, list);
    key(object.shape->keys[list].name);
    writer_.StartArray();
}

void BackupWriter::endList(const BackupObject& object) {
    writer_.EndArray();
    fields(object, listOf(*object.shape) + 1, object.values.size());
    writer_.EndObject();
}

void BackupWriter::write(const BackupObject& object) {
    if (listOf(*object.shape) < object.values.size()) {
        beginList(object);
        for (const auto& item : object.items) write(item);
        endList(object);
    } else {
        writer_.StartObject();
        fields(object, 0, object.values.size());
        writer_.EndObject();
    }
}

void BackupWriter::beginInvoices(Instant exportedAt) {
    writer_.EndArray();
    key("exportedAt");
    writeValue(writer_, FieldKind::instant, FieldTraits<Instant>::toValue(exportedAt));
    key("invoices");
    writer_.StartArray();
}

void BackupWriter::end(const BusinessProfile& profile, std::int64_t version) {
    writer_.EndArray();
    key("profile");
    write(backupObject(profile));
    key("version");
    writer_.Int64(version);
    writer_.EndObject();
    stream_.Put('\n');
    stream_.Flush();
}

}  // namespace elmworth
