// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"

namespace elmworth::test {

/// The whole library of `context` as a document.
inline Backup makeBackup(UnitOfWork& context, const BusinessProfile& profile, Instant now) {
    std::string json;
    BackupExporter::write(context, profile, now, [&](std::string_view bytes) { json += bytes; });
    return decodeBackup(json);
}

inline Backup readBackup(const std::filesystem::path& file) {
    FileSource source(file);
    return decodeBackup(source);
}

/// The document as it is written.
inline std::string encode(const Backup& backup) {
    std::string json;
    BackupWriter writer([&](std::string_view bytes) { json += bytes; });
    writer.begin();
    for (const auto& client : backup.clients) writer.write(client);
    writer.beginInvoices(backup.exportedAt);
    for (const auto& invoice : backup.invoices) writer.write(invoice);
    writer.end(backup.profile, backup.version);
    return json;
}

}  // namespace elmworth::test
