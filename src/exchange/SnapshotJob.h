// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>
#include <future>
#include <memory>

#include "exchange/BackupWalk.h"
#include "exchange/BackupWriter.h"
#include "platform/AtomicFile.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// A snapshot of a library while it is being made: written in small steps, then read back and
/// brought to the disk, and only then given its name. One that dies before leaves nothing.
///
/// The reading back and the disk are waited for by a thread of its own, which has to do with
/// nothing but the file.
class SnapshotJob {
 public:
    /// Reads what was written to `file`, and throws BackupDecodeError unless it holds `written`.
    /// Runs in the other thread.
    using Check =
        std::function<void(const std::filesystem::path& file, const BackupCounts& written)>;

    /// `check` is for tests; absent means that the document is read as a restore would read it.
    SnapshotJob(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                const std::filesystem::path& file, Check check = nullptr);
    SnapshotJob(const SnapshotJob&) = delete;
    SnapshotJob& operator=(const SnapshotJob&) = delete;
    ~SnapshotJob();

    /// Goes on by one step. False once the snapshot stands in its place. Throws StoreError,
    /// BackupDecodeError (what was written cannot be read back) or
    /// std::filesystem::filesystem_error; there is no snapshot then.
    bool advance();

    /// How many texts of the library were damaged, once all is written.
    [[nodiscard]] std::size_t repairedTexts() const noexcept { return writer_.repairedTexts(); }

    /// Whether the library is still being read, so that a change of it makes the snapshot useless.
    [[nodiscard]] bool isReading() const noexcept { return !check_.valid(); }

 private:
    /// Lets the check end early when nobody waits for it any more.
    class StopFlag;

    void beginCheck();
    void readBack(const BackupCounts& written);
    void finish();

    Check checkInstead_;
    AtomicFile target_;
    BackupWriter writer_;
    BackupWalk walk_;
    std::unique_ptr<StopFlag> stop_;
    std::future<void> check_;  ///< once all is written
};

}  // namespace elmworth
