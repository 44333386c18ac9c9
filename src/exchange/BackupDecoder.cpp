// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupDecoder.h"

#include <utility>

#include "exchange/JSONShape.h"
#include "platform/ISO8601.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

using Kind = JSONScalar::Kind;

// What each kind of field takes, and where its value goes. The target must stay where it is while
// the document is read.

JSONSlot slotFor(std::string& target) {
    return {"not a text", [&target](const JSONScalar& value) {
                if (value.kind != Kind::text || holdsLoneSurrogate(value.text)) return false;
                target = value.text;
                return true;
            }};
}

JSONSlot slotFor(std::int64_t& target) {
    return {"not a whole number of 64 bits", [&target](const JSONScalar& value) {
                if (value.kind != Kind::integer) return false;
                target = value.integer;
                return true;
            }};
}

JSONSlot slotFor(bool& target) {
    return {"neither true nor false", [&target](const JSONScalar& value) {
                if (value.kind != Kind::boolean) return false;
                target = value.boolean;
                return true;
            }};
}

JSONSlot slotFor(Instant& target) {
    return {"not a date", [&target](const JSONScalar& value) {
                const auto instant =
                    value.kind == Kind::text ? parseISO8601(value.text) : std::nullopt;
                if (instant) target = *instant;
                return instant.has_value();
            }};
}

JSONSlot slotFor(PaperSize& target) {
    return {"neither \"letter\" nor \"a4\"", [&target](const JSONScalar& value) {
                const auto size =
                    value.kind == Kind::text ? paperSizeFromRawValue(value.text) : std::nullopt;
                if (size) target = *size;
                return size.has_value();
            }};
}

template <class T>
JSONSlot slotFor(std::optional<T>& target) {
    T unused{};
    JSONSlot slot{slotFor(unused).expectation};
    slot.scalar = [&target](const JSONScalar& value) {
        T content{};
        if (!slotFor(content).scalar(value)) return false;
        target = std::move(content);
        return true;
    };
    slot.clear = [&target] { target.reset(); };
    return slot;
}

template <class T>
JSONField required(std::string_view name, T& target) {
    return {name, true, slotFor(target)};
}
template <class T>
JSONField optional(std::string_view name, std::optional<T>& target) {
    return {name, false, slotFor(target)};
}
/// A field that has a value of its own while the key is missing.
template <class T>
JSONField optional(std::string_view name, T& target) {
    JSONField field{name, false, slotFor(target)};
    field.slot.clear = [&target, initial = target] { target = initial; };
    return field;
}

/// A list whose items are objects of the shape that `shapeOf` gives for each new one. Where they
/// are counted, each takes the place of the one before.
template <class T, class ShapeOf>
JSONSlot listOf(std::vector<T>& target, const ShapeOf& shapeOf, std::size_t* count) {
    JSONSlot slot{"not an array"};
    slot.array = [&target, shapeOf, count] {
        target.clear();  // of two equal keys the last counts
        JSONFrame frame;
        frame.isArray = true;
        frame.item.expectation = "not an object";
        frame.item.object = [&target, shapeOf, count] {
            if (count) {
                target.clear();
                ++*count;
            }
            return shapeOf(target.emplace_back());
        };
        return frame;
    };
    return slot;
}

JSONFrame profileShape(BusinessProfile& profile) {
    profile = {};
    return {{
        optional("name", profile.name),
        optional("address", profile.address),
        optional("taxID", profile.taxID),
        optional("email", profile.email),
        optional("paymentInstructions", profile.paymentInstructions),
        optional("invoicePrefix", profile.invoicePrefix),
        optional("nextInvoiceNumber", profile.nextInvoiceNumber),
        optional("paperSize", profile.paperSize),
        optional("roundingMinutes", profile.roundingMinutes),
        optional("defaultDueDays", profile.defaultDueDays),
        optional("defaultTaxBasisPoints", profile.defaultTaxBasisPoints),
        optional("taxLabel", profile.taxLabel),
        optional("resetNumberingYearly", profile.resetNumberingYearly),
        optional("numberingYear", profile.numberingYear),
    }};
}

JSONSlot profileSlot(BusinessProfile& profile) {
    JSONSlot slot{"not an object"};
    slot.object = [&profile] { return profileShape(profile); };
    return slot;
}

JSONSlot profileSlot(std::optional<BusinessProfile>& profile) {
    JSONSlot slot{"not an object"};
    slot.object = [&profile] { return profileShape(profile.emplace()); };
    slot.clear = [&profile] { profile.reset(); };
    return slot;
}

JSONFrame entryShape(EntryDTO& entry) {
    return {{
        required("start", entry.start),
        optional("end", entry.end),
        required("notes", entry.notes),
        optional("invoiceNumber", entry.invoiceNumber),
        optional("billedRateCents", entry.billedRateCents),
    }};
}

JSONFrame projectShape(ProjectDTO& project, BackupCounts* counts) {
    return {{
        required("name", project.name),
        required("colorHex", project.colorHex),
        optional("rateOverrideCents", project.rateOverrideCents),
        required("isArchived", project.isArchived),
        optional("budgetHours", project.budgetHours),
        {"entries", true,
         listOf(project.entries, &entryShape, counts ? &counts->entries : nullptr)},
    }};
}

JSONFrame clientShape(ClientDTO& client, BackupCounts* counts) {
    const auto shapeOf = [counts](ProjectDTO& project) { return projectShape(project, counts); };
    return {{
        required("name", client.name),
        required("email", client.email),
        required("address", client.address),
        required("currencyCode", client.currencyCode),
        required("hourlyRateCents", client.hourlyRateCents),
        optional("dueDays", client.dueDays),
        optional("taxBasisPoints", client.taxBasisPoints),
        {"projects", true, listOf(client.projects, shapeOf, counts ? &counts->projects : nullptr)},
    }};
}

JSONFrame invoiceShape(InvoiceDTO& invoice) {
    return {{
        required("number", invoice.number),
        required("client", invoice.client),
        required("status", invoice.status),
        required("currencyCode", invoice.currencyCode),
        required("notes", invoice.notes),
        required("issueDate", invoice.issueDate),
        required("dueDate", invoice.dueDate),
        required("periodStart", invoice.periodStart),
        required("periodEnd", invoice.periodEnd),
        required("taxRateBasisPoints", invoice.taxRateBasisPoints),
        required("roundingMinutes", invoice.roundingMinutes),
        optional("paidAt", invoice.paidAt),
        optional("showsEntryDetails", invoice.showsEntryDetails),
        {"business", false, profileSlot(invoice.business)},
        optional("clientIndex", invoice.clientIndex),
    }};
}

/// Where `counts` are given, the document's lists keep their last items alone.
Backup decode(const std::function<std::string_view()>& nextPiece, BackupCounts* counts = nullptr) {
    Backup backup;
    const auto shapeOf = [counts](ClientDTO& client) { return clientShape(client, counts); };
    try {
        readJSON(nextPiece,
                 {{
                     required("version", backup.version),
                     required("exportedAt", backup.exportedAt),
                     {"profile", true, profileSlot(backup.profile)},
                     {"clients", true,
                      listOf(backup.clients, shapeOf, counts ? &counts->clients : nullptr)},
                     {"invoices", true,
                      listOf(backup.invoices, &invoiceShape, counts ? &counts->invoices : nullptr)},
                 }});
    } catch (const JSONShapeError& error) {
        throw BackupDecodeError(error.what());
    }
    return backup;
}

std::function<std::string_view()> piecesOf(FileSource& source, Progress& progress) {
    return [&] {
        progress.advance("Reading", source.bytesRead(), source.size());
        return source.nextPiece();
    };
}

}  // namespace

Backup decodeBackup(std::string_view json) {
    return decode([&] { return std::exchange(json, {}); });
}

Backup decodeBackup(FileSource& source, Progress& progress) {
    return decode(piecesOf(source, progress));
}

BackupCounts countBackup(FileSource& source, Progress& progress) {
    BackupCounts counts;
    decode(piecesOf(source, progress), &counts);
    return counts;
}

Backup decodeBackupFile(const std::filesystem::path& file, Progress& progress) {
    FileSource source(file);
    return decodeBackup(source, progress);
}

}  // namespace elmworth
