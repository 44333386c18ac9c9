// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/RunLoop.h"
#include "tracking/TimesheetDays.h"

namespace elmworth {

/// What a timesheet shows, kept in line with its filter and with the library.
///
/// A year of entries is read at once. More is read some weeks at a time in the turns of the run
/// loop, so that a window stays responsive: the newest time shows first, and the older as it comes.
/// What has been read already shows until it is read again. A library that cannot be read counts as
/// empty.
class TimesheetContents {
 public:
    struct Handlers {
        /// Called with each new listing, within the calls below and in later turns.
        std::function<void(std::shared_ptr<const TimesheetListing>)> show;
        /// Called when the notes of a listed entry changed, and nothing else.
        std::function<void(const TimesheetPlace&)> showNotes = [](const auto&) {};
    };

    /// About `entriesOfTurn` entries are read in one turn, the first one included.
    TimesheetContents(UnitOfWork& context, RunLoop& runLoop, Clock now,
                      std::function<Calendar()> calendar, Handlers handlers,
                      std::size_t entriesOfTurn = 6'000);

    [[nodiscard]] const TimesheetFilter& filter() const noexcept { return filter_; }
    /// Shows what `filter` lets through. Another search alone reads nothing.
    void setFilter(TimesheetFilter filter);

    /// Reads all again, after the library has changed.
    void reload();

    /// Updates the listing after changes of entries alone. Few cost their pieces, many a `reload`.
    void follow(const RecordChanges& changes);

    /// Whether pieces are still to be read.
    [[nodiscard]] bool isReading() const noexcept { return next_ != nullptr; }

 private:
    using Piece = std::shared_ptr<TimesheetPiece>;

    void begin(bool keepsFormer);
    void readTurn();
    void readNext();
    void readOn();
    void placeBegunBefore();
    void place(std::size_t position, const Piece& piece);
    void takeFromOthers(const TimesheetPiece& piece, const TimesheetPiece* former);
    [[nodiscard]] TimesheetPiece::IDs followNotes(const RecordChanges::Named& changes);
    bool followNotesOf(const PersistentID& id);
    bool replaceEntries(const TimesheetPiece::IDs& ids);
    void show();
    void showAnew();

    UnitOfWork& context_;
    RunLoop& runLoop_;
    Clock now_;
    std::function<Calendar()> calendar_;
    Handlers handlers_;
    std::size_t entriesOfTurn_;
    TimesheetFilter filter_;
    std::optional<TimesheetReader> reader_;
    std::vector<Piece> pieces_;             ///< newest first; null while not read
    TimesheetReader::Entries begunBefore_;  ///< of the last piece, while it is read
    std::vector<std::size_t> toRead_;       ///< the next one stands last
    bool readsAgain_ = false;               ///< pieces to read are there as they were
    std::shared_ptr<const TimesheetListing> listing_;
    std::string zoneID_;  ///< where the days of the listing begin
    RunLoop::Handle next_;
};

}  // namespace elmworth
