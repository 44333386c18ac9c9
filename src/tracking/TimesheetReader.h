// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/TimesheetEntry.h"
#include "tracking/TimesheetFilter.h"

namespace elmworth {

/// Entries that were read together, newest start first, with their notes.
class TimesheetPiece {
 public:
    void add(const TimeEntry& entry);

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] const TimesheetEntry& entry(std::size_t i) const { return entries_[i]; }
    [[nodiscard]] std::string_view notes(std::size_t i) const;

 private:
    std::vector<TimesheetEntry> entries_;
    std::vector<std::size_t> noteEnds_;
    std::string notes_;  ///< of all entries, one after another
};

/// Reads what a timesheet's filter admits, whatever its search, in pieces of about a year: a month
/// or a year is one piece, and of twenty years the newest can show while the others are read.
///
/// The pieces in their order, newest first, hold the entries in the order of `filteredEntries`,
/// each once. The last piece holds those that began before the period and reach into it.
class TimesheetReader {
 public:
    /// Looks only at how far back the library goes. Throws StoreError.
    TimesheetReader(ModelContext& context, TimesheetFilter filter, Instant now);

    [[nodiscard]] std::size_t pieceCount() const noexcept { return bounds_.size(); }

    /// Whether each piece covers the same time as that of `other`.
    [[nodiscard]] bool hasPiecesOf(const TimesheetReader& other) const noexcept {
        return bounds_ == other.bounds_;
    }

    /// Reads the piece `i`, which is below `pieceCount`. Throws StoreError.
    [[nodiscard]] std::shared_ptr<const TimesheetPiece> read(std::size_t i) const;

 private:
    void visitBegunIn(const DateInterval& span,
                      const std::function<void(const TimeEntry&)>& visit) const;
    void visitBegunBefore(const std::function<void(const TimeEntry&)>& visit) const;

    ModelContext& context_;
    TimesheetFilter filter_;
    Instant now_;
    std::vector<Instant> bounds_;  ///< where the pieces but the last begin and end, newest first
};

}  // namespace elmworth
