// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryStep.h"

namespace elmworth {

namespace {

bool runs(const std::optional<EntryState>& state) {
    return state && state->isRunning();
}

std::string counted(const std::string& verb, std::size_t count) {
    return count == 1 ? verb + " Entry" : verb + ' ' + std::to_string(count) + " Entries";
}

}  // namespace

EntryState EntryState::of(const TimeEntry& entry) {
    return {entry.start, entry.end, entry.notes, entry.project.id(), entry.billedRateCents};
}

bool EntryChange::endsTimer() const noexcept {
    return runs(former) && !runs(left);
}

bool EntryChange::beginsTimer() const noexcept {
    return runs(left) && !runs(former);
}

std::string EntryStep::name() const {
    switch (action) {
        case EntryAction::add:
            return "Add Entry";
        case EntryAction::edit:
            return "Edit Entry";
        case EntryAction::move:
            return counted("Move", changes.size());
        case EntryAction::duplicate:
            return "Duplicate to Today";
        case EntryAction::remove:
            return counted("Delete", changes.size());
        case EntryAction::continueTracking:
            break;
    }
    return "Continue Tracking";
}

std::size_t EntryStep::bytes() const {
    std::size_t bytes = sizeof *this;
    for (const auto& change : changes) {
        bytes += sizeof change;
        if (change.former) bytes += change.former->notes.size();
        if (change.left) bytes += change.left->notes.size();
    }
    return bytes;
}

}  // namespace elmworth
