// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <new>
#include <string>
#include <string_view>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"

namespace elmworth::test {

/// What `json` says when it stands in a file.
inline Backup decode(std::string_view json) {
    const int descriptor = ::memfd_create("document", MFD_CLOEXEC);
    const auto written = ::pwrite(descriptor, json.data(), json.size(), 0);
    FileSource source(descriptor, "document");
    ::close(descriptor);
    if (written != static_cast<ssize_t>(json.size())) throw std::bad_alloc();
    return decodeBackup(source);
}

/// The whole library of `context` as a document.
inline Backup makeBackup(UnitOfWork& context, const BusinessProfile& profile, Instant now) {
    std::string json;
    BackupExporter::write(context, profile, now, [&](std::string_view bytes) { json += bytes; });
    return decode(json);
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
