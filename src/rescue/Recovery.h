// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/Progress.h"
#include "records/BusinessProfile.h"
#include "rescue/SnapshotCompletion.h"

namespace elmworth {

/// Why nothing was recovered: a sentence. Nothing was written.
class RecoveryError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// What to recover from.
struct RecoverySource {
    std::filesystem::path library;
    std::filesystem::path snapshots;         ///< the folder of AutoBackup
    std::optional<BusinessProfile> profile;  ///< absent: that of the snapshot
};

/// What was recovered, and where it lies.
struct RecoveryReport {
    std::filesystem::path library;  ///< a file that the program opens
    std::filesystem::path backup;   ///< a document that can be restored
    std::filesystem::path remarksFile;
    std::size_t pages = 0;  ///< of the damaged library
    std::size_t damagedPages = 0;
    std::optional<Instant> snapshot;  ///< the one that was used
    std::array<RecoveredCounts, 4> counts;
    std::vector<std::string> remarks;  ///< sentences on what a person should look at
};

/// Writes what can be read of a library, completed from the newest snapshot by the law of
/// `SnapshotCompletion`, into the new folder `folder`, which may be there when it is empty: a
/// library, the same as a backup document, and the remarks. Whatever is recovered from stays as it
/// is. All of it is in memory before the first file is written.
///
/// Throws RecoveryError, StoreError, Cancelled, or std::filesystem::filesystem_error; of the files
/// that were written then each is whole.
[[nodiscard]] RecoveryReport recoverLibrary(const RecoverySource& source,
                                            const std::filesystem::path& folder, Instant now,
                                            Progress& progress = noProgress());

}  // namespace elmworth
