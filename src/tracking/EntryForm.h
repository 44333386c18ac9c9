// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/Project.h"
#include "core/TimeEntry.h"
#include "core/store/ModelContext.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What a person types to add or change a time entry. Nothing touches a record before `save`.
struct EntryForm {
    Ref<Project> project;
    Instant start;
    Instant end;
    std::string notes;
    bool wasRunning = false;  ///< a running entry stays running: its end is not looked at

    /// Why this cannot be saved, as a sentence; absent when it can. The future can't be logged, but
    /// an entry may end in it.
    [[nodiscard]] std::optional<std::string_view> problem(Instant now) const;

    /// Writes the form into `entry`, or into a new one when that is null, saves, and brings the
    /// timer in line. A failed save stays pending in `context`. Requires `problem` to be absent.
    Ref<TimeEntry> save(Ref<TimeEntry> entry, ModelContext& context, TimerService& timer) const;
};

}  // namespace elmworth
