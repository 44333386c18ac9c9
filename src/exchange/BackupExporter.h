// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>

#include "exchange/BackupWriter.h"
#include "platform/AtomicFile.h"
#include "platform/Progress.h"
#include "store/UnitOfWork.h"

namespace elmworth::BackupExporter {

using Counts = BackupCounts;

/// Writes the whole library of `context` as a document in JSON to `sink`, with `profile`, as of
/// `now`, without holding it in memory. Clients and invoices stand in the localized standard order
/// of their names and numbers, projects in the order of the code points of theirs, entries by
/// start. Throws StoreError, Cancelled, and whatever the sink throws.
Counts write(UnitOfWork& context, const BusinessProfile& profile, Instant now, const ByteSink& sink,
             Progress& progress = noProgress());

/// Writes the same to `file`, which has either its old content or the whole document at any time.
/// Throws StoreError, Cancelled or std::filesystem::filesystem_error.
Counts writeFile(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                 const std::filesystem::path& file, Progress& progress = noProgress(),
                 FileAccess access = FileAccess::ownerOnly());

/// What to tell of `count` repaired texts, at least one.
[[nodiscard]] std::string repairMessage(std::size_t count);

}  // namespace elmworth::BackupExporter
