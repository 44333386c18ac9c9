// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/Backup.h"
#include "platform/PowerEvents.h"
#include "platform/RunLoop.h"
#include "platform/Settings.h"
#include "store/UnitOfWork.h"

namespace elmworth {

class SnapshotJob;

/// Keeps a daily snapshot of the library for the last two weeks, by itself. Its only state is the
/// folder. The work is done in small steps beside that of the user; one that is not finished when
/// the program ends leaves nothing, and is due again at the next start.
class AutoBackup {
 public:
    static constexpr std::size_t snapshotsKept = 14;

    struct Snapshot {
        std::filesystem::path url;
        Instant date;  ///< as the file's name says

        friend bool operator==(const Snapshot&, const Snapshot&) = default;
    };

    /// A snapshot that did not verify.
    struct FailedCheck {
        Instant date;
        std::string reason;  ///< a sentence
    };

    /// Reads a snapshot that was written, and throws BackupDecodeError unless it holds `written`.
    using Check =
        std::function<void(const std::filesystem::path& file, const BackupCounts& written)>;

    /// Takes a snapshot, when one is due, 20 seconds from now, every six hours, and after each
    /// wake: unless the newest is younger than 20 hours or there are no entries. It is read back;
    /// then all but the newest `snapshotsKept` go, and what a killed process began to write more
    /// than a day ago. Texts that are damaged in the library go into the system log. A snapshot
    /// that does not verify is gone, and goes into the log and into `defaults` until a later one
    /// does; other failures are dropped. `check` is for tests; absent means what runs otherwise.
    AutoBackup(UnitOfWork& context, Settings& defaults, Clock now, RunLoop& runLoop,
               PowerEvents& powerEvents, Check check = nullptr);
    ~AutoBackup();

    /// The last snapshot, when it did not verify.
    [[nodiscard]] static std::optional<FailedCheck> failedCheck(const Settings& defaults);

    /// The folder of the snapshots, created when missing. Throws std::filesystem::filesystem_error.
    [[nodiscard]] static std::filesystem::path folder();

    /// The snapshots in `folder`, newest first. Files of other names are left out; a folder that
    /// cannot be listed is empty.
    [[nodiscard]] static std::vector<Snapshot> snapshots(const std::filesystem::path& folder);

 private:
    void tick();
    void noteFailedCheck(Instant date, const std::string& reason) noexcept;
    void begin();
    void step();
    void drop() noexcept;

    UnitOfWork& context_;
    Settings& defaults_;
    Clock now_;
    Check check_;
    RunLoop& runLoop_;
    std::unique_ptr<SnapshotJob> snapshot_;  ///< while one is being made
    std::filesystem::path file_;             ///< its name at the end
    Instant begun_;
    bool hasChanged_ = false;  ///< the library, since that was begun
    UnitOfWork::Observation changes_;
    RunLoop::Handle steps_;
    RunLoop::Handle anew_;
    RunLoop::Handle first_;
    RunLoop::Handle repeating_;
    PowerEvents::Observation wake_;
};

}  // namespace elmworth
