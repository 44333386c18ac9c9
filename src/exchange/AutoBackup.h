// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "core/BusinessProfile.h"
#include "core/store/ModelContext.h"
#include "platform/PowerEvents.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

namespace elmworth {

/// Keeps a daily snapshot of the library for the last two weeks, by itself. Its only state is the
/// folder.
class AutoBackup {
 public:
    static constexpr std::size_t snapshotsKept = 14;

    struct Snapshot {
        std::filesystem::path url;
        Instant date;  ///< as the file's name says

        friend bool operator==(const Snapshot&, const Snapshot&) = default;
    };

    /// Arranges a snapshot, when one is due, 20 seconds from now, every six hours, and after each
    /// wake.
    AutoBackup(ModelContext& context, UserDefaults& defaults, Clock now, RunLoop& runLoop,
               PowerEvents& powerEvents);

    /// Writes a snapshot unless the newest is younger than 20 hours or there are no entries, reads
    /// it back, and removes all but the newest `snapshotsKept`, and what a killed process began to
    /// write more than a day ago. Gives the new file, or absent when none was written. `folder` is
    /// for tests; absent means `AutoBackup::folder()`. Throws StoreError, BackupDecodeError (the
    /// snapshot did not verify, and is gone) or std::filesystem::filesystem_error; older snapshots
    /// are then all there.
    static std::optional<std::filesystem::path> runIfDue(
        ModelContext& context, const BusinessProfile& profile, Instant now,
        const std::optional<std::filesystem::path>& folder = std::nullopt);

    /// The folder of the snapshots, created when missing. Throws std::filesystem::filesystem_error.
    [[nodiscard]] static std::filesystem::path folder();

    /// The snapshots in `folder`, newest first. Files of other names are left out; a folder that
    /// cannot be listed is empty.
    [[nodiscard]] static std::vector<Snapshot> snapshots(const std::filesystem::path& folder);

 private:
    void tick();

    ModelContext& context_;
    UserDefaults& defaults_;
    Clock now_;
    RunLoop::Handle first_;
    RunLoop::Handle repeating_;
    PowerEvents::Observation wake_;
};

}  // namespace elmworth
