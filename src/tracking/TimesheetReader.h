// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "records/TimesheetEntry.h"
#include "store/UnitOfWork.h"
#include "tracking/TimesheetFilter.h"

namespace elmworth {

/// Entries that were read together, newest start first, with their notes.
class TimesheetPiece {
 public:
    using IDs = std::unordered_set<PersistentID>;

    void add(const TimeEntry& entry);

    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] const TimesheetEntry& entry(std::size_t i) const { return entries_[i]; }
    [[nodiscard]] std::string_view notes(std::size_t i) const;

    /// The index of the entry `id`, which began at `start`, if it is here.
    [[nodiscard]] std::optional<std::size_t> find(Instant start, const PersistentID& id) const;
    [[nodiscard]] bool holdsAnyOf(const IDs& ids) const;

    void setNotes(std::size_t i, std::string notes);
    /// A copy without `ids` and with `added`; what is here already and is added is among `ids`.
    [[nodiscard]] TimesheetPiece edited(const IDs& ids, std::vector<Ref<TimeEntry>> added) const;

 private:
    void copy(const TimesheetPiece& other, std::size_t i);

    std::vector<TimesheetEntry> entries_;
    std::vector<std::size_t> noteEnds_;
    std::string notes_;  ///< of all entries as they were read, one after another
    std::unordered_map<std::size_t, std::string> laterNotes_;
};

/// Reads what a timesheet's filter admits, whatever its search, in pieces: a month or a year is
/// one, and of more years each is some weeks, so that the newest can show while the others are
/// read.
///
/// The pieces in their order, newest first, hold the entries in the order of `entries()`,
/// each once. The last piece holds those that began before the period and reach into it.
class TimesheetReader {
 public:
    using Entries = std::vector<Ref<TimeEntry>>;

    /// Looks only at how far back the library goes. Throws StoreError, as do all reads below.
    TimesheetReader(UnitOfWork& context, TimesheetFilter filter, Instant now);

    /// At least two.
    [[nodiscard]] std::size_t pieceCount() const noexcept { return bounds_.size(); }
    /// The piece that an entry of this start belongs to.
    [[nodiscard]] std::size_t pieceOf(Instant start) const;

    /// Whether each piece covers the same time as that of `other`.
    [[nodiscard]] bool hasPiecesOf(const TimesheetReader& other) const noexcept {
        return bounds_ == other.bounds_;
    }

    /// Whether an entry passes all but the search, running ones up to `now`.
    [[nodiscard]] bool admits(const TimeEntry& entry, Instant now) const {
        return filter_.admits(entry, now);
    }

    /// Reads the piece `i`, which is not the last one.
    [[nodiscard]] std::shared_ptr<TimesheetPiece> read(std::size_t i) const;
    /// The entries of the last piece that end in the time of piece `i`, or that run when it is the
    /// first, in any order.
    [[nodiscard]] Entries readBegunBefore(std::size_t i) const;

    /// All that pass, the search included, newest start first.
    [[nodiscard]] Entries entries() const;
    /// Hands out the same, oldest start first, without making an object for each; see
    /// UnitOfWork::forEach. Throws what `visit` throws.
    void forEach(const std::function<void(const TimeEntry&)>& visit) const;

 private:
    [[nodiscard]] std::optional<Predicate<TimeEntry>> narrowed(
        Predicate<TimeEntry> predicate) const;
    [[nodiscard]] std::optional<Predicate<TimeEntry>> begunWithin(Instant from, Instant to) const;
    [[nodiscard]] Entries begunBefore(Instant from, std::optional<Instant> to) const;
    void addBegunBefore(const Predicate<TimeEntry>& reaching, Entries& entries) const;

    UnitOfWork& context_;
    TimesheetFilter filter_;
    Instant now_;
    std::vector<Ref<Project>> clientProjects_;
    bool mayBeginBefore_ = true;   ///< an entry of the library began before the period
    std::vector<Instant> bounds_;  ///< where the pieces but the last begin and end, newest first
};

/// The order of the entries of a timesheet: newest start first.
[[nodiscard]] inline bool precedes(const TimesheetEntry& a, const TimesheetEntry& b) {
    return std::tie(b.start, b.id) < std::tie(a.start, a.id);
}

}  // namespace elmworth
