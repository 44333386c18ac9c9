// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "exchange/Backup.h"
#include "platform/Progress.h"
#include "records/BusinessProfile.h"
#include "records/ProfileStore.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Why a document was not restored. The message is the sentence to show; the library is as it was.
class RestoreError : public std::runtime_error {
 public:
    enum class Code {
        notEmpty,             ///< the library holds clients or time
        negativeClientIndex,  ///< the document is wrong
        profileNotWritten,    ///< the settings file cannot take the profile
    };
    explicit RestoreError(Code code, const std::string& place = {});
    [[nodiscard]] Code code() const noexcept { return code_; }

 private:
    Code code_;
};

struct RestoreResult {
    BusinessProfile profile;           ///< of the document
    std::int64_t unlinkedEntries = 0;  ///< entries whose invoice was not restored; unbilled now
};

/// Loads `backup` without its profile into the empty library of `context` and saves: all of it or
/// nothing. No restored entry runs. Throws RestoreError, StoreError or Cancelled.
RestoreResult restore(const Backup& backup, UnitOfWork& context, Progress& progress = noProgress());

/// As above, and gives `profiles` the profile of the document. Both hold the document, or neither
/// does and the restore can be repeated: also when the process ends, or a disk fails, at any
/// moment, once `finishRestore` was called at the next start.
RestoreResult restore(const Backup& backup, UnitOfWork& context, ProfileStore& profiles,
                      Progress& progress = noProgress());

/// Brings the profile in line with the library where a restore ended between the two. For each
/// start, before anything else changes either. A profile that was set since then stays.
void finishRestore(UnitOfWork& context, ProfileStore& profiles);

/// What to tell after a restore.
[[nodiscard]] std::string restoreMessage(const Backup& backup, const RestoreResult& result);

}  // namespace elmworth
