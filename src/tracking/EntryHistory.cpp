// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryHistory.h"

#include "tracking/EntryReversal.h"

namespace elmworth {

namespace {

std::optional<EntryState> stateOf(const Ref<TimeEntry>& entry) {
    return !entry || entry->isDeleted() ? std::nullopt : std::optional(EntryState::of(*entry));
}

std::string textOf(const std::string& verb, const std::deque<EntryStep>& steps) {
    return steps.empty() ? verb : verb + ' ' + steps.back().name();
}

/// Entries and their states before a change. Holding them makes looking them up again cheap.
class Snapshot {
 public:
    Snapshot(std::span<const PersistentID> ids, UnitOfWork& context) {
        entries_.reserve(ids.size());
        for (const auto& id : ids) {
            auto entry = context.record<TimeEntry>(id);
            auto state = stateOf(entry);
            if (entry) entries_.emplace_back(std::move(entry), std::move(state));
        }
    }

    [[nodiscard]] std::vector<EntryChange> changes(const Ref<TimeEntry>& made) && {
        std::vector<EntryChange> changes;
        for (auto& [entry, former] : entries_) {
            auto left = stateOf(entry);
            if (left == former) continue;
            changes.push_back({entry->id(), std::move(former), std::move(left)});
        }
        if (made) changes.push_back({made->id(), std::nullopt, stateOf(made)});
        return changes;
    }

 private:
    std::vector<std::pair<Ref<TimeEntry>, std::optional<EntryState>>> entries_;
};

}  // namespace

EntryHistory::EntryHistory(UnitOfWork& context, TimerService& timer, Clock now)
    : EntryHistory(context, timer, std::move(now), Limits{}) {}

EntryHistory::EntryHistory(UnitOfWork& context, TimerService& timer, Clock now, Limits limits)
    : context_(context), timer_(timer), now_(std::move(now)), limits_(limits) {}

Ref<TimeEntry> EntryHistory::perform(EntryAction action, std::span<const PersistentID> touched,
                                     const std::function<Ref<TimeEntry>()>& change) {
    Snapshot before(touched, context_);
    auto made = change();
    auto changes = std::move(before).changes(made);
    if (!changes.empty()) keep({action, now_(), std::move(changes)});
    return made;
}

void EntryHistory::keep(EntryStep step) {
    redo_.clear();
    undo_.push_back(std::move(step));
    std::size_t kept = 1;
    std::size_t bytes = undo_.back().bytes();
    while (kept < undo_.size() && kept < limits_.steps) {
        bytes += undo_[undo_.size() - kept - 1].bytes();
        if (bytes > limits_.bytes) break;
        ++kept;
    }
    undo_.erase(undo_.begin(), undo_.end() - static_cast<std::ptrdiff_t>(kept));
    notify();
}

UndoResult EntryHistory::undo() {
    return reverse(undo_, redo_);
}

UndoResult EntryHistory::redo() {
    return reverse(redo_, undo_);
}

UndoResult EntryHistory::reverse(Steps& from, Steps& to) {
    if (from.empty()) return {};
    EntryReversal reversal(from.back(), context_);
    auto reversed = reversal.carryOut(now_());
    from.pop_back();
    if (!reversed.changes.empty()) to.push_back(std::move(reversed));
    context_.saveQuietly();
    timer_.refresh();
    if (reversal.revived()) timer_.resume(reversal.revived());
    notify();
    return reversal.result();
}

std::string EntryHistory::undoText() const {
    return textOf("Undo", undo_);
}

std::string EntryHistory::redoText() const {
    return textOf("Redo", redo_);
}

void EntryHistory::clear() {
    undo_.clear();
    redo_.clear();
    notify();
}

EntryHistory::Observation EntryHistory::observe(std::function<void()> changed) {
    auto observer = std::make_shared<Observer>(std::move(changed));
    observers_.push_back(observer);
    return observer;
}

void EntryHistory::notify() {
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    const auto observers = observers_;
    for (const auto& weak : observers) {
        if (const auto observer = weak.lock()) (*observer)();
    }
}

}  // namespace elmworth
