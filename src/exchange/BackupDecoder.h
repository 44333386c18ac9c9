// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "exchange/Backup.h"
#include "exchange/FileSource.h"
#include "platform/Progress.h"

namespace elmworth {

/// Why a document could not be read as a backup: one sentence that names the place, such as
/// "clients[3].projects[0].entries[12].start: not a date (line 4711)."
class BackupDecodeError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Reads a backup document piece by piece. Kinds, 64-bit ranges and required keys are strict;
/// optional keys may be missing or null; unknown keys are passed over, however deep they go; of two
/// equal keys the last counts. Throws BackupDecodeError, std::filesystem::filesystem_error or
/// Cancelled.
[[nodiscard]] Backup decodeBackup(FileSource& source, Progress& progress = noProgress());

/// How much a document holds that decodeBackup would take: it is read in the same way, but nothing
/// is kept. Throws the same.
[[nodiscard]] BackupCounts countBackup(FileSource& source, Progress& progress = noProgress());

}  // namespace elmworth
