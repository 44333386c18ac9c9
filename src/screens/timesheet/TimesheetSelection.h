// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "screens/timesheet/TimesheetRow.h"

namespace elmworth {

/// Which entries of a timesheet are selected, as people expect it of lists: a click selects one,
/// with Ctrl it toggles one, with Shift it selects all from the one that was clicked last. The
/// arrow keys move the current line likewise. A step costs the lines that it selects or no longer
/// selects, however many are shown or selected.
///
/// `rows` are the lines that are shown, and `at` is the position of an entry's line among them.
class TimesheetSelection {
 public:
    using IDs = std::unordered_set<PersistentID>;
    using Rows = std::vector<TimesheetRow>;

    /// A place in the order of the lines, whether a line stands there or not.
    struct Spot {
        TimesheetRowID id;
        Instant start;  ///< of the entry

        [[nodiscard]] bool isBehind(const TimesheetRow& row) const;
    };

    [[nodiscard]] const IDs& ids() const noexcept { return ids_; }
    /// The line that the keyboard acts on, if there is one.
    [[nodiscard]] const std::optional<TimesheetRowID>& current() const noexcept { return current_; }

    void select(const Rows& rows, std::size_t at);
    void toggle(const Rows& rows, std::size_t at);
    /// Selects all entries between the line that was selected last and this one, and no others.
    void extendTo(const Rows& rows, std::size_t at);
    void selectAll(const Rows& rows);
    void clear();

    /// Selects nothing, but the arrow keys go on from the current line, also once it is gone.
    void clearKeepingPlace();
    /// Without a current line the arrow keys go on from `spot`.
    void stayAt(const Spot& spot) { place_ = spot; }

    /// Call when `rows` have changed.
    void rowsChanged() noexcept { extended_.reset(); }

    /// The line of an entry that stands `steps` entries below (above when negative) the current
    /// one, or as far as there are any; the first or last one when none is current. Absent when
    /// there are no entries.
    [[nodiscard]] std::optional<std::size_t> stepFrom(const Rows& rows, int steps) const;

 private:
    struct Extended {
        std::size_t from;
        std::size_t to;
    };

    void begin(const Rows& rows, std::size_t at);
    void moveCurrent(const TimesheetRow& row);
    void add(const TimesheetRow& row);
    void remove(const TimesheetRow& row);
    [[nodiscard]] std::ptrdiff_t startOfSteps(const Rows& rows, int direction) const;

    IDs ids_;
    std::unordered_map<PersistentID, int> repeated_;  ///< further lines of entries in `extended_`
    std::optional<TimesheetRowID> anchor_;
    std::optional<TimesheetRowID> current_;
    Instant currentStart_;
    std::optional<Spot> place_;         ///< where the arrow keys go on without a current line
    std::optional<Extended> extended_;  ///< the lines whose entries are selected, while known
};

}  // namespace elmworth
