// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/document.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_set>
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

    static void take(const Json& value, std::string& target) {
        target = text(value);
        if (validUTF8(target) != target) throw Refused{};  // a lone surrogate
    }
    static void take(const Json& value, std::int64_t& target) {
        if (value.IsInt64()) {
            target = value.GetInt64();
            return;
        }
        if (!value.IsDouble()) throw Refused{};
        target = static_cast<std::int64_t>(std::clamp(value.GetDouble(), -0x1p53, 0x1p53));
        if (static_cast<double>(target) != value.GetDouble()) throw Refused{};
    }
    static void take(const Json& value, bool& target) {
        if (!value.IsBool()) throw Refused{};
        target = value.GetBool();
    }
    static void take(const Json& value, Instant& target) {
        const auto instant = parseISO8601(text(value));
        if (!instant) throw Refused{};
        target = *instant;
    }
    static void take(const Json& value, PaperSize& target) {
        const auto size = paperSizeFromRawValue(text(value));
        if (!size) throw Refused{};
        target = *size;
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

    template <class T>
    static void required(const Json& object, std::string_view key, T& target) {
        const Json* value = last(object, key);
        if (value == nullptr) throw Refused{};
        take(*value, target);
    }

    template <class T>
    static void optional(const Json& object, std::string_view key, T& target) {
        const Json* value = last(object, key);
        if (value == nullptr || value->IsNull()) return;
        if constexpr (requires { target.emplace(); }) {
            take(*value, target.emplace());
        } else {
            take(*value, target);
        }
    }

    static void take(const Json& json, BusinessProfile& profile) {
        if (!json.IsObject()) throw Refused{};
        optional(json, "name", profile.name);
        optional(json, "address", profile.address);
        optional(json, "taxID", profile.taxID);
        optional(json, "email", profile.email);
        optional(json, "paymentInstructions", profile.paymentInstructions);
        optional(json, "invoicePrefix", profile.invoicePrefix);
        optional(json, "nextInvoiceNumber", profile.nextInvoiceNumber);
        optional(json, "paperSize", profile.paperSize);
        optional(json, "roundingMinutes", profile.roundingMinutes);
        optional(json, "defaultDueDays", profile.defaultDueDays);
        optional(json, "defaultTaxBasisPoints", profile.defaultTaxBasisPoints);
        optional(json, "taxLabel", profile.taxLabel);
        optional(json, "resetNumberingYearly", profile.resetNumberingYearly);
        optional(json, "numberingYear", profile.numberingYear);
    }

    static void take(const Json& json, EntryDTO& entry) {
        required(json, "start", entry.start);
        optional(json, "end", entry.end);
        required(json, "notes", entry.notes);
        optional(json, "invoiceNumber", entry.invoiceNumber);
        optional(json, "billedRateCents", entry.billedRateCents);
    }

    template <class T>
    static void takeAll(const Json& object, std::string_view key, std::vector<T>& target) {
        const Json* list = last(object, key);
        if (list == nullptr || !list->IsArray()) throw Refused{};
        for (const auto& item : list->GetArray()) take(item, target.emplace_back());
    }

    static void take(const Json& json, ProjectDTO& project) {
        required(json, "name", project.name);
        required(json, "colorHex", project.colorHex);
        optional(json, "rateOverrideCents", project.rateOverrideCents);
        required(json, "isArchived", project.isArchived);
        optional(json, "budgetHours", project.budgetHours);
        takeAll(json, "entries", project.entries);
    }

    static void take(const Json& json, ClientDTO& client) {
        required(json, "name", client.name);
        required(json, "email", client.email);
        required(json, "address", client.address);
        required(json, "currencyCode", client.currencyCode);
        required(json, "hourlyRateCents", client.hourlyRateCents);
        optional(json, "dueDays", client.dueDays);
        optional(json, "taxBasisPoints", client.taxBasisPoints);
        takeAll(json, "projects", client.projects);
    }

    static void take(const Json& json, InvoiceDTO& invoice) {
        required(json, "number", invoice.number);
        required(json, "client", invoice.client);
        required(json, "status", invoice.status);
        required(json, "currencyCode", invoice.currencyCode);
        required(json, "notes", invoice.notes);
        required(json, "issueDate", invoice.issueDate);
        required(json, "dueDate", invoice.dueDate);
        required(json, "periodStart", invoice.periodStart);
        required(json, "periodEnd", invoice.periodEnd);
        required(json, "taxRateBasisPoints", invoice.taxRateBasisPoints);
        required(json, "roundingMinutes", invoice.roundingMinutes);
        optional(json, "paidAt", invoice.paidAt);
        optional(json, "showsEntryDetails", invoice.showsEntryDetails);
        optional(json, "business", invoice.business);
        optional(json, "clientIndex", invoice.clientIndex);
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
        Backup backup;
        ReferenceBackup::required(tree.document, "version", backup.version);
        ReferenceBackup::required(tree.document, "exportedAt", backup.exportedAt);
        ReferenceBackup::required(tree.document, "profile", backup.profile);
        ReferenceBackup::takeAll(tree.document, "clients", backup.clients);
        ReferenceBackup::takeAll(tree.document, "invoices", backup.invoices);
        return backup;
    } catch (const Refused&) {
        return std::nullopt;
    }
}

}  // namespace elmworth::fuzz
