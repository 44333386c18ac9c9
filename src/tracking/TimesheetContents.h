// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/RunLoop.h"
#include "tracking/TimesheetDays.h"

namespace elmworth {

/// What a timesheet shows, kept in line with its filter and with the library.
///
/// About a year of entries is read at once. More is read piece by piece in the next turns of the
/// run loop, so that a window stays responsive: the newest time shows first and the rest when it is
/// all there. After a change the newest piece is looked at again at once, and the others likewise;
/// what was read before shows meanwhile. A library that cannot be read counts as empty.
class TimesheetContents {
 public:
    using Handler = std::function<void(std::shared_ptr<const TimesheetListing>)>;

    /// `show` is called with each new listing, within the calls below and in later turns. At least
    /// `firstEntries` entries are read before anything shows.
    TimesheetContents(ModelContext& context, RunLoop& runLoop, Clock now,
                      std::function<Calendar()> calendar, Handler show,
                      std::size_t firstEntries = 5'000);

    [[nodiscard]] const TimesheetFilter& filter() const noexcept { return filter_; }
    /// Shows what `filter` lets through. Another search alone reads nothing.
    void setFilter(TimesheetFilter filter);

    /// Reads all again, after the library has changed.
    void reload();

    /// Whether pieces are still to be read.
    [[nodiscard]] bool isReading() const noexcept { return next_ != nullptr; }

 private:
    using Pieces = std::vector<std::shared_ptr<const TimesheetPiece>>;

    void begin(bool keepsFormer);
    void readNext();
    void readOn();
    void showPieces();
    [[nodiscard]] bool canShowFormer() const;

    ModelContext& context_;
    RunLoop& runLoop_;
    Clock now_;
    std::function<Calendar()> calendar_;
    Handler show_;
    std::size_t firstEntries_;
    TimesheetFilter filter_;
    std::optional<TimesheetReader> reader_;
    Pieces pieces_;                    ///< newest first; null while not read
    Pieces former_;                    ///< as they were before a change, or empty
    std::vector<std::size_t> toRead_;  ///< the next one stands last
    RunLoop::Handle next_;
};

}  // namespace elmworth
