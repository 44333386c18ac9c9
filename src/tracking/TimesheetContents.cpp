// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetContents.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace elmworth {

namespace {

/// Bounds a turn that finds few entries in many pieces, as of a client with little time.
constexpr int piecesOfTurn = 12;
/// Above this, following single changes is no cheaper than a reload.
constexpr std::size_t mostFollowed = 100;

bool differOnlyInSearch(TimesheetFilter a, const TimesheetFilter& b) {
    a.search = b.search;
    return a == b;
}

}  // namespace

TimesheetContents::TimesheetContents(UnitOfWork& context, RunLoop& runLoop, Clock now,
                                     std::function<Calendar()> calendar, Handlers handlers,
                                     std::size_t entriesOfTurn)
    : context_(context),
      runLoop_(runLoop),
      now_(std::move(now)),
      calendar_(std::move(calendar)),
      handlers_(std::move(handlers)),
      entriesOfTurn_(entriesOfTurn) {}

void TimesheetContents::setFilter(TimesheetFilter filter) {
    const bool hasRead = reader_ && differOnlyInSearch(filter_, filter);
    filter_ = std::move(filter);
    if (hasRead) return showAnew();
    begin(false);
}

void TimesheetContents::reload() {
    begin(true);
}

void TimesheetContents::begin(bool keepsFormer) {
    next_.reset();
    toRead_.clear();
    begunBefore_.clear();
    try {
        TimesheetReader reader(context_, filter_, now_());
        readsAgain_ = keepsFormer && reader_ && reader.hasPiecesOf(*reader_);
        reader_.emplace(std::move(reader));
    } catch (const StoreError&) {
        reader_.reset();
        pieces_.clear();
        return showAnew();
    }
    if (!readsAgain_) pieces_.assign(reader_->pieceCount(), nullptr);
    for (std::size_t i = reader_->pieceCount() - 1; i-- > 0;) toRead_.push_back(i);
    readTurn();
    readsAgain_ ? show() : showAnew();
}

void TimesheetContents::readTurn() {
    std::size_t entries = 0;
    for (int count = 0; count < piecesOfTurn && entries < entriesOfTurn_; ++count) {
        if (toRead_.empty()) break;
        const std::size_t piece = toRead_.back();
        readNext();
        entries += pieces_[piece]->size();
    }
    readOn();
}

void TimesheetContents::readNext() {
    const std::size_t position = toRead_.back();
    toRead_.pop_back();
    auto piece = std::make_shared<TimesheetPiece>();
    try {
        piece = reader_->read(position);
        auto begunBefore = reader_->readBegunBefore(position);
        std::move(begunBefore.begin(), begunBefore.end(), std::back_inserter(begunBefore_));
    } catch (const StoreError&) {
        // A piece that can't be read counts as empty.
    }
    place(position, piece);
    if (toRead_.empty()) placeBegunBefore();
}

/// Checks all again: some may have changed since they were read, or were read twice.
void TimesheetContents::placeBegunBefore() {
    auto entries = std::exchange(begunBefore_, {});
    const std::size_t position = pieces_.size() - 1;
    const Instant now = now_();
    std::erase_if(entries, [&](const auto& entry) {
        return entry->isDeleted() || !reader_->admits(*entry, now) ||
               reader_->pieceOf(entry->start) != position;
    });
    std::sort(entries.begin(), entries.end());
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    place(position,
          std::make_shared<TimesheetPiece>(TimesheetPiece().edited({}, std::move(entries))));
}

void TimesheetContents::readOn() {
    next_.reset();
    if (toRead_.empty()) return;
    next_ = runLoop_.post([this] {
        context_.deliverChanges();  // followed before more is read
        readTurn();
        show();
    });
}

void TimesheetContents::place(std::size_t position, const Piece& piece) {
    const auto former = std::exchange(pieces_[position], piece);
    if (readsAgain_) takeFromOthers(*piece, former.get());
}

/// An entry whose start changed may still stand in a piece that isn't read again yet.
void TimesheetContents::takeFromOthers(const TimesheetPiece& piece, const TimesheetPiece* former) {
    TimesheetPiece::IDs ids;
    for (std::size_t i = 0; i < piece.size(); ++i) {
        const auto& entry = piece.entry(i);
        if (!former || !former->find(entry.start, entry.id)) ids.insert(entry.id);
    }
    if (ids.empty()) return;
    for (auto& other : pieces_) {
        if (!other || other.get() == &piece || !other->holdsAnyOf(ids)) continue;
        other = std::make_shared<TimesheetPiece>(other->edited(ids, {}));
    }
}

void TimesheetContents::follow(const RecordChanges& changes) {
    const auto* entries = changes.of(TimeEntry::schema());
    if (!reader_ || entries == nullptr || entries->size() > mostFollowed) return reload();
    try {
        const auto ids = followNotes(*entries);
        if (!ids.empty() && replaceEntries(ids)) show();
    } catch (const StoreError&) {
        reload();
    }
}

/// Updates the notes where nothing else changed; returns the other entries.
TimesheetPiece::IDs TimesheetContents::followNotes(const RecordChanges::Named& changes) {
    static const auto notes = std::uint32_t{1} << TimeEntry::schema().fieldIndex("notes");
    TimesheetPiece::IDs others;
    for (const auto& [id, change] : changes) {
        const bool isOfNotes = change.kind == RecordChange::Kind::changed && change.fields == notes;
        if (!isOfNotes || !followNotesOf(id)) others.insert(id);
    }
    return others;
}

/// Returns false when the search finds the entry only before or only after the change.
bool TimesheetContents::followNotesOf(const PersistentID& id) {
    const auto entry = context_.record<TimeEntry>(id);
    if (!entry) return false;
    const auto& piece = pieces_[reader_->pieceOf(entry->start)];
    const auto at = piece ? piece->find(entry->start, id) : std::nullopt;
    if (!at) return !piece || !reader_->admits(*entry, now_());  // not read yet, or not shown
    const TimesheetSearch search(filter_.search);
    const bool isListed = search.finds(piece->notes(*at), entry->project);
    if (search.finds(entry->notes.get(), entry->project) != isListed) return false;
    piece->setNotes(*at, entry->notes);
    if (isListed) handlers_.showNotes({piece.get(), static_cast<std::uint32_t>(*at)});
    return true;
}

/// Moves the entries to the pieces that they belong to now. Returns false when none of the pieces
/// that were read has changed.
bool TimesheetContents::replaceEntries(const TimesheetPiece::IDs& ids) {
    std::map<std::size_t, TimesheetReader::Entries> added;
    const Instant now = now_();
    for (const auto& id : ids) {
        auto entry = context_.record<TimeEntry>(id);
        if (!entry || !reader_->admits(*entry, now)) continue;
        const std::size_t position = reader_->pieceOf(entry->start);
        if (isReading() && position + 1 == pieces_.size()) begunBefore_.push_back(entry);
        added[position].push_back(std::move(entry));
    }
    bool isChanged = false;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        auto& piece = pieces_[i];
        if (!piece || (!added.contains(i) && !piece->holdsAnyOf(ids))) continue;
        piece = std::make_shared<TimesheetPiece>(piece->edited(ids, std::move(added[i])));
        isChanged = true;
    }
    return isChanged;
}

/// Lists the pieces that changed anew, and the others as they were.
void TimesheetContents::show() {
    const Calendar calendar = calendar_();
    if (!listing_ || listing_->pieces.size() != pieces_.size() || calendar.zoneID() != zoneID_) {
        return showAnew();
    }
    listing_ = std::make_shared<const TimesheetListing>(
        relistTimesheet(*listing_, {pieces_.begin(), pieces_.end()}, filter_.range, now_(),
                        calendar, TimesheetSearch(filter_.search)));
    handlers_.show(listing_);
}

void TimesheetContents::showAnew() {
    const Calendar calendar = calendar_();
    zoneID_ = calendar.zoneID();
    listing_ = std::make_shared<const TimesheetListing>(
        listTimesheet({pieces_.begin(), pieces_.end()}, filter_.range, now_(), calendar,
                      TimesheetSearch(filter_.search)));
    handlers_.show(listing_);
}

}  // namespace elmworth
