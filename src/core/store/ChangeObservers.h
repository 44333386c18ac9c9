// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "core/store/Schema.h"
#include "platform/RunLoop.h"

namespace elmworth {

/// Tells those who ask for it that records of a type changed, once in a turn of the run loop
/// however many changes there were.
class ChangeObservers {
 public:
    explicit ChangeObservers(RunLoop& runLoop) : runLoop_(runLoop) {}

    /// Calls `changed` after changes to records of `schema`, until the handle dies.
    using Observation = std::shared_ptr<void>;
    [[nodiscard]] Observation observe(const RecordSchema& schema, std::function<void()> changed);

    /// Notes that a record of `schema` changed, to be told in the next turn.
    void note(const RecordSchema& schema);

    /// Tells what has been noted now. An observer may change records, and begin or end
    /// observations. What one throws goes to the system log, and the others are told all the same.
    void deliver();

 private:
    struct Observer {
        std::size_t type;
        std::function<void()> changed;
    };

    RunLoop& runLoop_;
    std::vector<std::weak_ptr<Observer>> observers_;
    std::array<bool, recordTypeCount> noted_{};
    RunLoop::Handle delivery_;
};

}  // namespace elmworth
