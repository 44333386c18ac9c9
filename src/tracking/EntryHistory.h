// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "store/UnitOfWork.h"
#include "tracking/EntryStep.h"
#include "tracking/TimerService.h"
#include "tracking/UndoResult.h"

namespace elmworth {

/// What a person did to entries, to be undone and redone as long as the program runs. Each step is
/// kept as values: what it takes back and what it leaves alone, see EntryReversal.
class EntryHistory {
 public:
    /// How much is kept: beyond it the oldest steps are forgotten, but never the newest.
    struct Limits {
        std::size_t steps = 200;
        std::size_t bytes = 16 << 20;
    };

    EntryHistory(UnitOfWork& context, TimerService& timer, Clock now);
    EntryHistory(UnitOfWork& context, TimerService& timer, Clock now, Limits limits);
    EntryHistory(const EntryHistory&) = delete;
    EntryHistory& operator=(const EntryHistory&) = delete;

    /// Does `change` and keeps what it did to the entries `touched`, each of which stands there
    /// once, and to the one that it made and gives; gives that one, or null. What could be redone
    /// is forgotten. A change of nothing is no step.
    Ref<TimeEntry> perform(EntryAction action, std::span<const PersistentID> touched,
                           const std::function<Ref<TimeEntry>()>& change);

    /// Takes the newest step back, saves, and brings the timer in line; a failed save stays
    /// pending. What it leaves alone is no longer part of the step. Does nothing when there is
    /// none. Throws StoreError when the library cannot be read; nothing is changed then.
    UndoResult undo();
    /// Takes the newest undo back, likewise.
    UndoResult redo();

    [[nodiscard]] bool canUndo() const noexcept { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const noexcept { return !redo_.empty(); }
    /// "Undo Delete 3 Entries", or "Undo" when there is nothing to undo.
    [[nodiscard]] std::string undoText() const;
    /// "Redo Delete 3 Entries", or "Redo".
    [[nodiscard]] std::string redoText() const;

    /// Forgets everything, as when another library takes the place of this one.
    void clear();

    /// Calls `changed` after something above changed, until the handle dies.
    using Observation = std::shared_ptr<void>;
    [[nodiscard]] Observation observe(std::function<void()> changed);

 private:
    using Steps = std::deque<EntryStep>;
    using Observer = std::function<void()>;

    UndoResult reverse(Steps& from, Steps& to);
    void keep(EntryStep step);
    void notify();

    UnitOfWork& context_;
    TimerService& timer_;
    Clock now_;
    Limits limits_;
    Steps undo_;
    Steps redo_;
    std::vector<std::weak_ptr<Observer>> observers_;
};

}  // namespace elmworth
