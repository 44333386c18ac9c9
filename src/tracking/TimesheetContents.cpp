// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetContents.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace elmworth {

namespace {

bool differOnlyInSearch(TimesheetFilter a, const TimesheetFilter& b) {
    a.search = b.search;
    return a == b;
}

}  // namespace

TimesheetContents::TimesheetContents(ModelContext& context, RunLoop& runLoop, Clock now,
                                     std::function<Calendar()> calendar, Handler show,
                                     std::size_t firstEntries)
    : context_(context),
      runLoop_(runLoop),
      now_(std::move(now)),
      calendar_(std::move(calendar)),
      show_(std::move(show)),
      firstEntries_(firstEntries) {}

void TimesheetContents::setFilter(TimesheetFilter filter) {
    const bool hasRead = reader_ && differOnlyInSearch(filter_, filter);
    filter_ = std::move(filter);
    if (hasRead) return showPieces();
    begin(false);
}

void TimesheetContents::reload() {
    begin(true);
}

void TimesheetContents::begin(bool keepsFormer) {
    next_.reset();
    toRead_.clear();
    Pieces shown = former_.empty() ? pieces_ : former_;
    former_.clear();
    pieces_.clear();
    try {
        TimesheetReader reader(context_, filter_, now_());
        if (keepsFormer && reader_ && reader.hasPiecesOf(*reader_)) former_ = std::move(shown);
        reader_.emplace(std::move(reader));
    } catch (const StoreError&) {
        reader_.reset();
        return showPieces();
    }
    pieces_.resize(reader_->pieceCount());
    for (std::size_t i = pieces_.size() - 1; i-- > 0;) toRead_.push_back(i);
    toRead_.push_back(pieces_.size() - 1);  // what began before the period may reach into today
    std::size_t entries = 0;
    while (!toRead_.empty() && entries < firstEntries_) {
        const std::size_t piece = toRead_.back();
        readNext();
        entries += pieces_[piece]->size();
    }
    readOn();
    showPieces();
}

void TimesheetContents::readNext() {
    const std::size_t piece = toRead_.back();
    toRead_.pop_back();
    try {
        pieces_[piece] = reader_->read(piece);
    } catch (const StoreError&) {
        pieces_[piece] = std::make_shared<TimesheetPiece>();
    }
}

void TimesheetContents::readOn() {
    next_.reset();
    if (toRead_.empty()) {
        former_.clear();
        return;
    }
    next_ = runLoop_.post([this] {
        readNext();
        readOn();
        if (!isReading()) showPieces();
    });
}

/// An entry that was given another start may stand in a piece that is read and in a former one.
bool TimesheetContents::canShowFormer() const {
    std::unordered_set<PersistentID> added;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        if (!pieces_[i]) continue;
        for (std::size_t k = 0; k < pieces_[i]->size(); ++k) added.insert(pieces_[i]->entry(k).id);
        if (!former_[i]) return false;
        for (std::size_t k = 0; k < former_[i]->size(); ++k) added.erase(former_[i]->entry(k).id);
    }
    for (std::size_t i = 0; i < pieces_.size() && !added.empty(); ++i) {
        if (pieces_[i]) continue;
        if (!former_[i]) return false;
        for (std::size_t k = 0; k < former_[i]->size(); ++k) {
            if (added.contains(former_[i]->entry(k).id)) return false;
        }
    }
    return true;
}

void TimesheetContents::showPieces() {
    Pieces pieces = pieces_;
    if (!former_.empty()) {
        if (!canShowFormer()) return;  // all shows together when it is read
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (!pieces[i]) pieces[i] = former_[i];
        }
    }
    const TimesheetSearch search(filter_.search);
    const Calendar calendar = calendar_();
    show_(std::make_shared<const TimesheetListing>(
        listTimesheet(std::move(pieces), filter_.range, now_(), calendar, search)));
}

}  // namespace elmworth
