// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

#include "records/TimeEntry.h"

namespace elmworth {

/// What changes of clients and projects ask of the timer, which is handed in: tracking stands
/// beside this room.
struct TimerCalls {
    std::function<Ref<TimeEntry>()> running;  ///< the entry that runs, or null
    std::function<void()> stop;
    std::function<void()> refresh;  ///< looks again at the running entry

    /// Those of `timer`, which outlives them.
    template <class Timer>
    [[nodiscard]] static TimerCalls of(Timer& timer) {
        return {[&timer] { return timer.running(); }, [&timer] { timer.stop(); },
                [&timer] { timer.refresh(); }};
    }
};

}  // namespace elmworth
