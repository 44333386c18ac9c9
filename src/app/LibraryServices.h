// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/LoginItem.h"
#include "platform/LongWork.h"
#include "platform/Settings.h"
#include "platform/StandardFolders.h"
#include "records/Library.h"
#include "records/ProfileStore.h"
#include "store/StepRule.h"
#include "store/UndoHistory.h"
#include "tracking/EntryUndoGuard.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// An open library with its long-lived services, made in the start order of the program: the demo
/// library when it is asked for, the settings, the profile, the timer, and the timer's
/// restore.
///
/// Whoever makes one holds the lock of the library (see LibraryLock), unless it is in memory.
class LibraryServices {
 public:
    /// Throws LibraryError when the library cannot be opened.
    LibraryServices(bool isDemo, Clock now, RunLoop& runLoop);

    [[nodiscard]] UnitOfWork& context() noexcept { return container_.mainContext(); }
    [[nodiscard]] UndoHistory& history() noexcept { return history_; }
    [[nodiscard]] Settings& defaults() noexcept { return defaults_; }
    [[nodiscard]] ProfileStore& profiles() noexcept { return profiles_; }
    [[nodiscard]] TimerService& timer() noexcept { return timer_; }
    [[nodiscard]] LongWork& longWork() noexcept { return longWork_; }
    [[nodiscard]] LoginItem& loginItem() noexcept { return *loginItem_; }
    [[nodiscard]] const Clock& clock() const noexcept { return now_; }

 private:
    /// Of a demo, which neither shows the logo of the user nor touches the PDFs that are stored.
    std::unique_ptr<TemporaryDataFolder> demoFolder_;
    Clock now_;
    Library container_;
    UndoHistory history_{container_.mainContext(), now_};
    Settings defaults_;
    ProfileStore profiles_;
    TimerService timer_;
    EntryUndoGuard undoGuard_{timer_};
    LongWork longWork_;
    std::unique_ptr<LoginItem> loginItem_;
    // Last, as the demo is seeded without steps.
    StepRule stepRule_{container_.mainContext()};
};

/// Whether this is a hosted run, which keeps its library in memory and watches no power events.
[[nodiscard]] bool isHostedRun();

}  // namespace elmworth
