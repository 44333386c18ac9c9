// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>

#include "platform/Observers.h"
#include "platform/RunLoop.h"
#include "store/RecordChanges.h"

namespace elmworth {

/// Tells those who ask for it which records changed, once in a turn of the run loop however many
/// changes there were.
class ChangeObservers {
 public:
    explicit ChangeObservers(RunLoop& runLoop) : runLoop_(runLoop) {}

    using Observation = std::shared_ptr<void>;
    /// Calls `changed` after changes to records of `schema`, until the handle dies.
    [[nodiscard]] Observation observe(const RecordSchema& schema, std::function<void()> changed);
    /// Calls `changed` with all changes, whatever their types, until the handle dies.
    [[nodiscard]] Observation observeAll(std::function<void(const RecordChanges&)> changed);

    /// Notes what became of the record `id`, to be told in the next turn.
    void note(const RecordSchema& schema, const PersistentID& id, const RecordChange& change);

    /// Tells what has been noted now. An observer may change records, and begin or end
    /// observations. What one throws goes to the system log, and the others are told all the same.
    void deliver();

 private:
    RunLoop& runLoop_;
    Observers<const RecordChanges&> observers_;
    RecordChanges noted_;
    RunLoop::Handle delivery_;
};

}  // namespace elmworth
