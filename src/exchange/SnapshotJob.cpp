// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/SnapshotJob.h"

#include <atomic>
#include <chrono>
#include <string_view>
#include <utility>

#include "exchange/BackupDecoder.h"
#include "exchange/FileSource.h"
#include "platform/Progress.h"

namespace elmworth {

class SnapshotJob::StopFlag final : public Progress {
 public:
    void set() noexcept { isSet_ = true; }

 protected:
    void report(const char* /*step*/, std::size_t /*done*/, std::size_t /*total*/) override {
        if (isSet_) throw Cancelled();
    }

 private:
    std::atomic<bool> isSet_ = false;
};

SnapshotJob::SnapshotJob(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                         const std::filesystem::path& file, Check check)
    : checkInstead_(std::move(check)),
      target_(file),
      writer_([this](std::string_view bytes) { target_.write(bytes); }),
      walk_(context, profile, now, writer_),
      stop_(std::make_unique<StopFlag>()) {}

SnapshotJob::~SnapshotJob() {
    stop_->set();
    if (check_.valid()) check_.wait();
}

bool SnapshotJob::advance() {
    if (!check_.valid()) {
        if (!walk_.advance()) beginCheck();
        return true;
    }
    if (check_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return true;
    finish();
    return false;
}

void SnapshotJob::beginCheck() {
    BackupCounts written = walk_.counts();
    written.repairedTexts = 0;  // they are read as good ones
    check_ = std::async(std::launch::async, [this, written] {
        if (checkInstead_) {
            checkInstead_(target_.temporaryPath(), written);
        } else {
            readBack(written);
        }
        target_.sync();
    });
}

void SnapshotJob::readBack(const BackupCounts& written) {
    FileSource file(target_.temporaryPath());
    if (countBackup(file, *stop_) != written) {
        throw BackupDecodeError("The snapshot does not hold what was written.");
    }
}

void SnapshotJob::finish() {
    check_.get();
    target_.commit();
}

}  // namespace elmworth
