// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "invoicing/TimesheetStatistics.h"
#include "tracking/TimesheetDays.h"

namespace elmworth {

/// The figures of a listing, summed piece by piece: a listing that differs in one piece costs that
/// piece, however many years the others are.
class ListingSums {
 public:
    /// Of what `listing` shows over `range` by the search `search`.
    [[nodiscard]] TimesheetSums of(const TimesheetListing& listing, const DateInterval& range,
                                   const std::string& search);

 private:
    struct Piece {
        std::shared_ptr<const TimesheetPiece> piece;
        TimesheetSums sums;
    };

    [[nodiscard]] bool hasSummed(std::size_t position,
                                 const std::shared_ptr<const TimesheetPiece>& piece) const {
        return position < pieces_.size() && pieces_[position].piece == piece;
    }

    std::vector<Piece> pieces_;
    DateInterval range_;
    std::string search_;
};

}  // namespace elmworth
