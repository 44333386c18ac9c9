// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryReversal.h"

#include <algorithm>

namespace elmworth {

namespace {

using namespace std::chrono_literals;

constexpr auto minimumLength = 1s;

/// A timer that the step began and that was stopped since has an end that the step did not leave;
/// the one that takes over gets at least a second of it.
bool isEndAsLeft(const EntryChange& change, const EntryState& current) {
    if (current.end == change.left->end) return true;
    if (!change.beginsTimer()) return false;
    return !change.former || *current.end >= *change.former->end + minimumLength;
}

/// Whether `current` has what the step left, in the fields that the step changed.
bool isAsLeft(const EntryChange& change, const std::optional<EntryState>& current) {
    const auto& former = change.former;
    const auto& left = change.left;
    if (!left || !current) return !left && !current;
    const auto holds = [&](auto EntryState::*field) {
        const bool changed = !former || (*former).*field != (*left).*field;
        return !changed || (*current).*field == (*left).*field;
    };
    const bool changedEnd = !former || former->end != left->end;
    return holds(&EntryState::start) && holds(&EntryState::notes) && holds(&EntryState::project) &&
           (!changedEnd || isEndAsLeft(change, *current));
}

/// The values that `current` gets: those of before the step in the fields that the step changed.
std::optional<EntryState> goalOf(const EntryChange& change,
                                 const std::optional<EntryState>& current) {
    const auto& former = change.former;
    const auto& left = change.left;
    if (!former || !current) return former;
    auto goal = current;
    if (former->start != left->start) goal->start = former->start;
    if (former->end != left->end) goal->end = former->end;
    if (former->notes != left->notes) goal->notes = former->notes;
    if (former->project != left->project) goal->project = former->project;
    return goal;
}

/// Whether what somebody else made of one end of the span does not go with the other end of before.
bool getsReversed(const EntryChange& change, const std::optional<EntryState>& goal) {
    return goal && goal->isReversed() &&
           (goal->start != change.former->start || goal->end != change.former->end);
}

}  // namespace

EntryReversal::EntryReversal(const EntryStep& step, UnitOfWork& context)
    : step_(step), context_(context) {
    items_.reserve(step.changes.size());
    for (const auto& change : step.changes) plan(change);
    planTimer();
    std::erase_if(items_, [](const Item& item) { return item.goal == item.current; });
    result_.changed = items_.size();
}

void EntryReversal::plan(EntryChange change) {
    forgetLostProject(change.former);
    forgetLostProject(change.left);
    auto entry = context_.record<TimeEntry>(change.id);
    auto current = entry ? std::optional(EntryState::of(*entry)) : std::nullopt;
    if (entry && entry->invoice) return leaveAlone(change, result_.billed);
    if (!isAsLeft(change, current)) return leaveAlone(change, result_.changedElsewhere);
    auto goal = goalOf(change, current);
    if (getsReversed(change, goal)) return leaveAlone(change, result_.changedElsewhere);
    items_.push_back({std::move(change), std::move(entry), std::move(current), std::move(goal)});
}

void EntryReversal::leaveAlone(const EntryChange& change, std::size_t& count) {
    ++count;
    if (change.beginsTimer()) timerWasLeftAlone_ = true;
}

void EntryReversal::forgetLostProject(std::optional<EntryState>& state) {
    if (state && state->project && !project(*state->project)) state->project.reset();
}

const Ref<Project>& EntryReversal::project(const PersistentID& id) {
    const auto found = projects_.find(id);
    if (found != projects_.end()) return found->second;
    return projects_.emplace(id, context_.record<Project>(id)).first->second;
}

// --- the timer ---------------------------------------------------------------------------------

void EntryReversal::planTimer() {
    const auto began = std::find_if(items_.begin(), items_.end(),
                                    [](const Item& item) { return item.change.beginsTimer(); });
    const Item* const stopped = began == items_.end() ? nullptr : &*began;
    bool mayRun = true;
    for (auto& item : items_) {
        if (!item.change.endsTimer()) continue;
        revive(item, stopped);
        if (!item.goal || !item.goal->isRunning()) continue;
        if (!mayRun || runsBeside(stopped)) settle(item);
        mayRun = mayRun && !item.goal->isRunning();
    }
}

void EntryReversal::revive(Item& item, const Item* stopped) {
    if (stopped) {
        item.goal->end = stopped->current->end;
    } else if (timerWasLeftAlone_) {
        item.goal = item.current;  // the timer did not come back, so nothing takes over
    } else if (wasTrackedSince()) {
        settle(item);
    }
}

/// Ends an entry that ran before the step and may not run on.
void EntryReversal::settle(Item& item) {
    item.goal->end =
        item.current ? item.current->end : std::max(step_.at, item.goal->start + minimumLength);
    result_.timerStaysStopped = true;
}

bool EntryReversal::runsBeside(const Item* stopped) const {
    const auto running = context_.fetch(
        Query<TimeEntry>{.predicate = key<&TimeEntry::end>() == absent,
                         .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)}});
    return std::any_of(running.begin(), running.end(), [&](const auto& entry) {
        return !stopped || entry->id() != stopped->change.id;
    });
}

bool EntryReversal::wasTrackedSince() const {
    const auto newest = context_.fetch(Query<TimeEntry>{
        .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)}, .fetchLimit = 1});
    return !newest.empty() && newest[0]->start.get() > step_.at;
}

// --- the records -------------------------------------------------------------------------------

EntryStep EntryReversal::carryOut(Instant now) {
    EntryStep reversed{step_.action, now, {}};
    reversed.changes.reserve(items_.size());
    for (auto& item : items_) {
        apply(item);
        reversed.changes.push_back({item.change.id, std::move(item.current), std::move(item.goal)});
    }
    return reversed;
}

void EntryReversal::apply(Item& item) {
    if (!item.goal) return context_.deleteRecord(item.entry);
    const auto& goal = *item.goal;
    auto& entry = item.entry;
    if (!entry) entry = context_.reinsert<TimeEntry>(item.change.id);
    entry->start = goal.start;
    entry->end = goal.end;
    entry->notes = goal.notes;
    entry->project = goal.project ? project(*goal.project) : nullptr;
    entry->billedRateCents = goal.billedRateCents;
    if (item.change.endsTimer() && goal.isRunning()) revived_ = entry;
}

}  // namespace elmworth
