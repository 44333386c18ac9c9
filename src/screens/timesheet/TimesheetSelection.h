// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <tuple>
#include <vector>

#include "screens/timesheet/TimesheetRow.h"
#include "theme/KeyedSelection.h"

namespace elmworth {

/// What can be selected in a timesheet, for a ListSelection: entries. The heads of days can't be,
/// and an entry over midnight has several lines.
struct TimesheetEntryLines {
    using Row = TimesheetRow;
    using Rows = std::vector<Row>;
    using ID = TimesheetRowID;
    using Key = PersistentID;
    /// In the order of the lines, whether a line stands there or not.
    struct Place {
        TimesheetRowID id;
        Instant start;  ///< of the entry

        [[nodiscard]] bool isBehind(const Row& row) const {
            if (row.id.day != id.day) return row.id.day > id.day;
            return row.isHead() ||
                   std::tie(start, id.entry) < std::tie(row.place.entry().start, row.id.entry);
        }
    };

    [[nodiscard]] static bool isSelectable(const Row& row) { return !row.isHead(); }
    [[nodiscard]] static const Key& keyOf(const Row& row) { return row.id.entry; }
    [[nodiscard]] static std::optional<std::size_t> find(const ID& id, const Rows& rows) {
        return positionOf(id, rows);
    }
    [[nodiscard]] static Place placeOf(const Rows& rows, std::size_t at) {
        return {rows[at].id, rows[at].place.entry().start};
    }
    [[nodiscard]] static std::size_t firstFrom(const Place& place, const Rows& rows) {
        const auto first = std::partition_point(
            rows.begin(), rows.end(), [&](const Row& row) { return place.isBehind(row); });
        return static_cast<std::size_t>(first - rows.begin());
    }
};

using TimesheetSelection = RowSelection<TimesheetEntryLines>;

}  // namespace elmworth
