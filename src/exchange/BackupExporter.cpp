// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupExporter.h"

#include "exchange/BackupWalk.h"
#include "records/TimeEntry.h"

namespace elmworth::BackupExporter {

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
