// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "platform/Observers.h"
#include "platform/RunLoop.h"
#include "store/StoreError.h"

namespace elmworth {

/// Keeps account of reads of the library that failed.
class ReadFaults {
 public:
    explicit ReadFaults(RunLoop& runLoop) : runLoop_(runLoop) {}

    /// Counts a failure. The first one is written to the system log, and told to the observers in
    /// the next turn of the run loop.
    void note(const StoreError& error) noexcept;

    [[nodiscard]] std::size_t count() const noexcept { return count_; }

    /// Calls `found` after the first failure, unless it has been already. Ends when the handle
    /// dies.
    using Observation = std::shared_ptr<void>;
    [[nodiscard]] Observation observe(std::function<void()> found);

 private:
    RunLoop& runLoop_;
    std::size_t count_ = 0;
    Observers<> observers_;
    RunLoop::Handle telling_;
};

/// "Part of the library can't be read. Snapshots of it are in “/home/…/Backups”."
[[nodiscard]] std::string unreadableLibraryText();

}  // namespace elmworth
