// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupExporter.h"

#include "exchange/BackupDecoder.h"
#include "exchange/BackupWalk.h"
#include "records/TimeEntry.h"

namespace elmworth::BackupExporter {

Backup makeBackup(UnitOfWork& context, const BusinessProfile& profile, Instant now) {
    std::string json;
    write(context, profile, now, [&](std::string_view bytes) { json += bytes; });
    return decodeBackup(json);
}

std::string encode(const Backup& backup) {
    std::string json;
    BackupWriter writer([&](std::string_view bytes) { json += bytes; });
    writer.begin();
    for (const auto& client : backup.clients) writer.write(client);
    writer.beginInvoices(backup.exportedAt);
    for (const auto& invoice : backup.invoices) writer.write(invoice);
    writer.end(backup.profile, backup.version);
    return json;
}

Counts write(UnitOfWork& context, const BusinessProfile& profile, Instant now, const ByteSink& sink,
             Progress& progress) {
    const std::size_t total = context.fetchCount<TimeEntry>();
    std::size_t done = 0;
    BackupWriter writer([&](std::string_view bytes) {
        progress.advance("Writing", done, total);
        sink(bytes);
    });
    BackupWalk walk(context, profile, now, writer);
    while (walk.advance()) done = walk.counts().entries;
    return walk.counts();
}

Counts writeFile(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                 const std::filesystem::path& file, Progress& progress, FileAccess access) {
    AtomicFile target(file, access);
    const Counts counts = write(
        context, profile, now, [&](std::string_view bytes) { target.write(bytes); }, progress);
    target.commit();
    return counts;
}

std::string repairMessage(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " text" : " texts") +
           " of the library held damaged bytes, which stand as � in the document.";
}

}  // namespace elmworth::BackupExporter
