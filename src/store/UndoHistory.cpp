// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UndoHistory.h"

#include "store/StepRule.h"

namespace elmworth {

namespace {

std::string textOf(const std::string& verb, const std::deque<UndoStep>& steps) {
    return steps.empty() ? verb : verb + ' ' + steps.back().text();
}

}  // namespace

UndoHistory::UndoHistory(UnitOfWork& context, Clock now)
    : UndoHistory(context, std::move(now), Limits{}) {}

UndoHistory::UndoHistory(UnitOfWork& context, Clock now, Limits limits)
    : context_(context), now_(std::move(now)), limits_(limits) {}

void UndoHistory::perform(const StepName& name, const Change& change) {
    if (isInStep_) return change();
    // Changes that wait from a failed save are not part of this step: a rollback must keep them.
    if (context_.hasChanges()) context_.save();
    keep(name, recorded([&] { saved(change); }));
}

void UndoHistory::performAfter(const StepName& preparationName, const Change& preparation,
                               const StepName& name, const Change& change) {
    if (isInStep_) {
        preparation();
        return change();
    }
    auto prepared = recorded(preparation);
    try {
        perform(name, change);
    } catch (...) {
        keep(preparationName, std::move(prepared));
        throw;
    }
}

void UndoHistory::performForGood(const Change& change) {
    if (isInStep_) return change();
    if (context_.hasChanges()) context_.save();
    const OutsideSteps unrecorded;
    isInStep_ = true;
    try {
        saved(change);
    } catch (...) {
        isInStep_ = false;
        throw;
    }
    isInStep_ = false;
    clear();
}

/// Runs `change` and saves, or rolls back.
void UndoHistory::saved(const Change& change) {
    try {
        change();
        context_.save();
    } catch (...) {
        context_.rollback();
        throw;
    }
}

void UndoHistory::performQuietly(const StepName& name, const Change& change) {
    if (isInStep_) return change();
    keep(name, recorded([&] {
             change();
             if (context_.hasChanges()) context_.saveQuietly();
         }));
}

UndoHistory::Records UndoHistory::recorded(const Change& change) {
    isInStep_ = true;
    context_.beginStep();
    try {
        change();
    } catch (...) {
        isInStep_ = false;
        (void)context_.endStep();
        throw;
    }
    isInStep_ = false;
    return context_.endStep();
}

void UndoHistory::type(const StepName& name, const std::string& field, const Change& change) {
    if (isInStep_) return change();
    auto records = recorded(change);
    if (!goesOn(field) || !records) return keep(name, std::move(records), field);
    append(undo_.back().records, std::move(*records));
    if (!undo_.back().records.empty()) return;
    undo_.pop_back();  // what was typed is deleted again
    observers_.notify();
}

bool UndoHistory::goesOn(const std::string& field) const noexcept {
    return redo_.empty() && !undo_.empty() && undo_.back().field == field;
}

void UndoHistory::leaveField() noexcept {
    if (!undo_.empty()) undo_.back().field.clear();
}

void UndoHistory::keep(const StepName& name, Records records, const std::string& field) {
    if (!records) return clear();  // earlier steps can't be undone past one that isn't recorded
    if (records->empty()) return;
    leaveField();
    redo_.clear();
    undo_.push_back({name, now_(), std::move(*records), field});
    forgetOldest();
    observers_.notify();
}

void UndoHistory::forgetOldest() {
    std::size_t kept = 1;
    std::size_t bytes = undo_.back().bytes();
    while (kept < undo_.size() && kept < limits_.steps) {
        bytes += undo_[undo_.size() - kept - 1].bytes();
        if (bytes > limits_.bytes) break;
        ++kept;
    }
    undo_.erase(undo_.begin(), undo_.end() - static_cast<std::ptrdiff_t>(kept));
}

UndoResult UndoHistory::undo() {
    return reverse(undo_, redo_);
}

UndoResult UndoHistory::redo() {
    return reverse(redo_, undo_);
}

UndoResult UndoHistory::reverse(Steps& from, Steps& to) {
    if (from.empty() || isInStep_) return {};
    const UndoStep step = std::move(from.back());
    from.pop_back();
    leaveField();
    const Instant now = now_();
    const bool othersWait = context_.hasChanges();
    std::optional<UndoReversal> reversal;
    Records records;
    try {
        reversal.emplace(step, context_, guard_);
        records = recorded([&] {
            reversal->apply();
            context_.saveQuietly();
        });
    } catch (...) {
        if (!othersWait) context_.rollback();
        from.push_back(step);
        throw;
    }
    if (records && !records->empty()) to.push_back({step.name, now, std::move(*records), {}});
    if (guard_) guard_->applied(*reversal);
    observers_.notify();
    return reversal->result();
}

std::string UndoHistory::undoText() const {
    return textOf("Undo", undo_);
}

std::string UndoHistory::redoText() const {
    return textOf("Redo", redo_);
}

void UndoHistory::clear() {
    undo_.clear();
    redo_.clear();
    observers_.notify();
}

}  // namespace elmworth
