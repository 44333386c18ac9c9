// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/document.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "exchange/Backup.h"
#include "platform/ISO8601.h"
#include "platform/Text.h"

namespace elmworth::fuzz {

using Json = rapidjson::Value;

struct Refused {};

/// Takes values of a tree for the fields of a backup. Throws Refused.
struct ReferenceBackup {
    static std::string_view text(const Json& value) {
        if (!value.IsString()) throw Refused{};
        return {value.GetString(), value.GetStringLength()};
    }

    static Value take(FieldKind kind, const Json& value) {
        switch (kind) {
            case FieldKind::integer:
                return integer(value);
            case FieldKind::boolean:
                if (!value.IsBool()) throw Refused{};
                return std::int64_t{value.GetBool()};
            case FieldKind::instant:
                if (const auto instant = parseISO8601(text(value)))
                    return FieldTraits<Instant>::toValue(*instant);
                throw Refused{};
            case FieldKind::paperSize:
                if (!paperSizeFromRawValue(text(value))) throw Refused{};
                return std::string(text(value));
            case FieldKind::profile:
                return Blob{encodeProfile(profile(value))};
            default:
                if (validUTF8(text(value)) != text(value)) throw Refused{};  // a lone surrogate
                return std::string(text(value));
        }
    }
    static std::int64_t integer(const Json& value) {
        if (value.IsInt64()) return value.GetInt64();
        if (!value.IsDouble()) throw Refused{};
        const auto number =
            static_cast<std::int64_t>(std::clamp(value.GetDouble(), -0x1p53, 0x1p53));
        if (static_cast<double>(number) != value.GetDouble()) throw Refused{};
        return number;
    }

    /// Of equal keys the last; null for none.
    static const Json* last(const Json& object, std::string_view key) {
        if (!object.IsObject()) throw Refused{};
        for (auto member = object.MemberEnd(); member != object.MemberBegin();) {
            --member;
            if (text(member->name) == key) return &member->value;
        }
        return nullptr;
    }

    static BackupObject object(const Json& json, const BackupShape& shape) {
        BackupObject object(shape);
        for (const auto& key : shape.keys) {
            const Json* value = last(json, key.name);
            if (value == nullptr && key.isRequired) throw Refused{};
            if (value == nullptr || (value->IsNull() && !key.isRequired)) continue;
            if (!key.items) {
                object[key.name] = take(key.kind, *value);
                continue;
            }
            if (!value->IsArray()) throw Refused{};
            for (const auto& item : value->GetArray()) {
                object.items.push_back(ReferenceBackup::object(item, *key.items));
            }
        }
        return object;
    }

    static BusinessProfile profile(const Json& json) {
        return profileOf(object(json, backupShapes().profile));
    }
};

/// A whole document as a tree.
struct JSONTree {
    explicit JSONTree(std::string_view json) {
        constexpr unsigned flags =
            rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag;
        rapidjson::MemoryStream stream(json.data(), json.size());
        document.ParseStream<flags>(stream);
        isValid = !document.HasParseError() && stream.Tell() == json.size();
    }

    /// Whether an object has a key twice.
    [[nodiscard]] bool repeatsKeys() const {
        std::vector<const Json*> open{&document};
        while (!open.empty()) {
            const Json& value = *open.back();
            open.pop_back();
            std::unordered_set<std::string_view> keys;
            if (value.IsArray()) {
                for (const auto& item : value.GetArray()) open.push_back(&item);
            } else if (value.IsObject()) {
                for (const auto& member : value.GetObject()) {
                    if (!keys.insert(ReferenceBackup::text(member.name)).second) return true;
                    open.push_back(&member.value);
                }
            }
        }
        return false;
    }

    rapidjson::Document document;
    bool isValid = false;
};

/// A backup document read the simple way, from the whole tree; absent when it is none.
inline std::optional<Backup> readBackupByReference(const JSONTree& tree) {
    if (!tree.isValid) return std::nullopt;
    try {
        auto document = ReferenceBackup::object(tree.document, backupShapes().document);
        Backup backup;
        backup.version = std::get<std::int64_t>(document["version"]);
        backup.exportedAt = FieldTraits<Instant>::fromValue(document["exportedAt"]);
        backup.profile = *decodeProfile(std::get<Blob>(document["profile"]).bytes);
        for (auto& item : document.items) {
            const bool isClient = item.shape == &backupShapes().client;
            (isClient ? backup.clients : backup.invoices).push_back(std::move(item));
        }
        return backup;
    } catch (const Refused&) {
        return std::nullopt;
    }
}

}  // namespace elmworth::fuzz
