// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

#include "screens/timesheet/TimesheetRow.h"

namespace elmworth {

/// Which entries of a timesheet are selected, as people expect it of lists: a click selects one,
/// with Ctrl it toggles one, with Shift it selects all from the one that was clicked last. The
/// arrow keys move the current line likewise.
class TimesheetSelection {
 public:
    using IDs = std::unordered_set<PersistentID>;
    using Rows = std::vector<TimesheetRow>;

    [[nodiscard]] const IDs& ids() const noexcept { return ids_; }
    /// The line that the keyboard acts on, if there is one.
    [[nodiscard]] const std::optional<TimesheetRowID>& current() const noexcept { return current_; }

    void select(const TimesheetRowID& row);
    void toggle(const TimesheetRowID& row);
    /// Selects all entries of `rows` between the line that was selected last and `row`, and no
    /// others.
    void extendTo(const TimesheetRowID& row, const Rows& rows);
    void selectAll(const Rows& rows);
    void clear();

    /// The line of an entry that stands `steps` entries below (above when negative) the current
    /// one, or as far as there are any; the first or last one when none is current. Absent when
    /// there are no entries.
    [[nodiscard]] std::optional<TimesheetRowID> stepFrom(const Rows& rows, int steps) const;

 private:
    IDs ids_;
    std::optional<TimesheetRowID> anchor_;
    std::optional<TimesheetRowID> current_;
};

}  // namespace elmworth
