// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "records/TimeEntry.h"

namespace elmworth {

/// The values of an unbilled entry, apart from its identity.
struct EntryState {
    Instant start;
    std::optional<Instant> end;  ///< absent while running
    std::string notes;
    std::optional<PersistentID> project;
    std::optional<std::int64_t> billedRateCents;

    [[nodiscard]] static EntryState of(const TimeEntry& entry);
    [[nodiscard]] bool isRunning() const noexcept { return !end.has_value(); }
    [[nodiscard]] bool isReversed() const noexcept { return end && *end < start; }

    friend bool operator==(const EntryState&, const EntryState&) = default;
};

/// What a step did to one entry. A state is absent where the entry was not in the library.
struct EntryChange {
    PersistentID id;
    std::optional<EntryState> former;  ///< before the step
    std::optional<EntryState> left;    ///< after the step; differs from `former`

    /// Whether the step took the running timer from this entry.
    [[nodiscard]] bool endsTimer() const noexcept;
    /// Whether the step gave the running timer to this entry.
    [[nodiscard]] bool beginsTimer() const noexcept;
};

/// What a person does to entries in one go.
enum class EntryAction { add, edit, move, duplicate, remove, continueTracking };

/// One thing that a person did, as values: enough to take it back.
struct EntryStep {
    EntryAction action;
    Instant at;                        ///< when it was done
    std::vector<EntryChange> changes;  ///< each entry stands there once

    /// What a menu calls it: "Delete Entry", "Delete 3 Entries".
    [[nodiscard]] std::string name() const;
    /// About how much memory it takes.
    [[nodiscard]] std::size_t bytes() const;
};

}  // namespace elmworth
