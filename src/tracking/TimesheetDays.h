// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/Calendar.h"
#include "tracking/TimesheetReader.h"

namespace elmworth {

/// An entry of a timesheet: where it stands among what was read. Lives as long as its piece.
struct TimesheetPlace {
    const TimesheetPiece* piece = nullptr;
    std::uint32_t index = 0;

    [[nodiscard]] const TimesheetEntry& entry() const { return piece->entry(index); }
    [[nodiscard]] std::string_view notes() const { return piece->notes(index); }
};

/// One day of a timesheet.
struct TimesheetDay {
    Instant start;
    Instant end;                          ///< of the calendar day
    std::vector<TimesheetPlace> entries;  ///< those that touch it, newest start first
    double finishedSeconds = 0;           ///< their share of this day, the running one's aside
    bool holdsRunning = false;

    /// The share of this day of all its entries, the running one's up to `now`. In seconds.
    [[nodiscard]] double seconds(Instant now) const;
};

/// What a timesheet shows. Keeps what it refers to.
struct TimesheetListing {
    std::vector<std::shared_ptr<const TimesheetPiece>> pieces;
    std::vector<TimesheetPlace> entries;  ///< all that are listed, newest start first
    std::vector<std::size_t> pieceEnds;   ///< how many of them are of this piece and those before
    std::vector<std::shared_ptr<const TimesheetDay>> days;  ///< newest first
    Instant now;  ///< up to which running entries have days, or earlier than that
};

/// Lists what `search` finds in `pieces`, which stand newest first (a null one is not read yet), by
/// the days of `range` that it touches. An entry that crosses midnight stands in each of its days;
/// one whose end is not after its start in none.
[[nodiscard]] TimesheetListing listTimesheet(
    std::vector<std::shared_ptr<const TimesheetPiece>> pieces, const DateInterval& range,
    Instant now, const Calendar& calendar, const TimesheetSearch& search);

/// The same, reusing `former`, which lists as many pieces by the same range, calendar and search:
/// only pieces that differ are searched, and days without their entries are shared with `former`.
[[nodiscard]] TimesheetListing relistTimesheet(
    const TimesheetListing& former, std::vector<std::shared_ptr<const TimesheetPiece>> pieces,
    const DateInterval& range, Instant now, const Calendar& calendar,
    const TimesheetSearch& search);

}  // namespace elmworth
