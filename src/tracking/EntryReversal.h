// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "records/Project.h"
#include "store/UnitOfWork.h"
#include "tracking/EntryStep.h"
#include "tracking/UndoResult.h"

namespace elmworth {

/// Takes one step back. The step that comes of it takes the taking back back, so that undo and redo
/// are the same.
///
/// Only the fields that the step changed are set back, and only of an entry that has in them what
/// the step left: a billed entry, and one that somebody changed since, stay as they are. A project
/// that is gone counts as none.
///
/// Where the step began a timer, a stop since is no change of its entry. Where it also ended
/// another, that one takes over: it runs on when the step's timer still runs, and else gets the end
/// that the step's timer got. An entry that ran when the step deleted it runs on only if nothing
/// runs and nothing began since; else it ends when the step was done. So at most one entry runs,
/// and no tracked second is lost.
class EntryReversal {
 public:
    /// Plans it. Changes nothing. Throws StoreError.
    EntryReversal(const EntryStep& step, UnitOfWork& context);

    /// Changes the records, without a save, and gives the step that takes this back; one without
    /// changes when everything was left alone.
    EntryStep carryOut(Instant now);

    [[nodiscard]] const UndoResult& result() const noexcept { return result_; }
    /// The entry that runs again, to be told to the timer, or null.
    [[nodiscard]] const Ref<TimeEntry>& revived() const noexcept { return revived_; }

 private:
    struct Item {
        EntryChange change;
        Ref<TimeEntry> entry;  ///< null where it must be inserted again
        std::optional<EntryState> current;
        std::optional<EntryState> goal;
    };

    void plan(EntryChange change);
    void leaveAlone(const EntryChange& change, std::size_t& count);
    void planTimer();
    void revive(Item& item, const Item* stopped);
    void settle(Item& item);
    void apply(Item& item);
    void forgetLostProject(std::optional<EntryState>& state);
    [[nodiscard]] const Ref<Project>& project(const PersistentID& id);
    [[nodiscard]] bool runsBeside(const Item* stopped) const;
    [[nodiscard]] bool wasTrackedSince() const;

    const EntryStep& step_;
    UnitOfWork& context_;
    std::vector<Item> items_;
    std::unordered_map<PersistentID, Ref<Project>> projects_;
    UndoResult result_;
    bool timerWasLeftAlone_ = false;  ///< the entry that the step's timer is on is left alone
    Ref<TimeEntry> revived_;
};

}  // namespace elmworth
