// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/ListingSums.h"

#include <utility>

namespace elmworth {

TimesheetSums ListingSums::of(const TimesheetListing& listing, const DateInterval& range,
                              const std::string& search) {
    if (range != range_ || search != search_) pieces_.clear();
    range_ = range;
    search_ = search;
    TimesheetSums all(range);
    std::vector<Piece> pieces;
    pieces.reserve(listing.pieces.size());
    std::size_t begin = 0;
    for (std::size_t i = 0; i < listing.pieces.size(); ++i) {
        const std::size_t end = listing.pieceEnds[i];
        if (hasSummed(i, listing.pieces[i])) {
            pieces.push_back(std::move(pieces_[i]));
        } else {
            pieces.push_back({listing.pieces[i], TimesheetSums(range)});
            for (std::size_t k = begin; k < end; ++k) {
                pieces.back().sums.add(listing.entries[k].entry());
            }
        }
        all.add(pieces.back().sums);
        begin = end;
    }
    pieces_ = std::move(pieces);
    return all;
}

}  // namespace elmworth
