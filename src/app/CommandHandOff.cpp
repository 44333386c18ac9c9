// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandHandOff.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "app/SessionBus.h"
#include "app/WorkingFolder.h"
#include "platform/AtomicFile.h"
#include "platform/LibraryLock.h"
#include "platform/Locale.h"
#include "platform/MoneyFormat.h"
#include "platform/StandardFolders.h"
#include "platform/ZoneOffsets.h"

namespace elmworth {

namespace {

/// A pipe whose write end closes when this process ends, however it ends: the reader sees end of
/// file then.
class Lifeline {
 public:
    Lifeline() {
        if (::pipe2(ends_.data(), O_CLOEXEC) != 0) ends_ = {-1, -1};
    }
    Lifeline(const Lifeline&) = delete;
    Lifeline& operator=(const Lifeline&) = delete;
    ~Lifeline() {
        for (const int end : ends_) {
            if (end >= 0) ::close(end);
        }
    }
    [[nodiscard]] int watched() const noexcept { return ends_[0]; }

 private:
    std::array<int, 2> ends_{};
};

/// Shows the application that this process may write its library.
class LockFile {
 public:
    LockFile() : descriptor_(openLockFile(dataFolder())) {}
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    ~LockFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

 private:
    int descriptor_;
};

}  // namespace

std::optional<CommandResult> handOff(const std::vector<std::string>& arguments,
                                     const GatheredInput& input) {
    const Lifeline lifeline;
    const LockFile library;
    if (lifeline.watched() < 0 || library.descriptor() < 0) return std::nullopt;
    return runOverBus({arguments, workingFolder().string(), Locale::current().identifier(),
                       currentMoneyLocale().identifier(), currentZoneID(), STDERR_FILENO,
                       lifeline.watched(), input.descriptor(), library.descriptor(),
                       currentUmask()});
}

}  // namespace elmworth
