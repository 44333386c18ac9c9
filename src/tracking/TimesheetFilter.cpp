// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetFilter.h"

#include "platform/Text.h"

namespace elmworth {

bool TimesheetFilter::admits(const TimeEntry& entry, Instant now) const {
    if (entry.start.get() >= range.end) return false;
    if (entry.end->value_or(now) <= range.start) return false;
    if (unbilledOnly && entry.invoice) return false;
    const auto& owner = entry.project.get();
    if (project && owner != project) return false;
    if (client && !(owner && owner->client.get() == client)) return false;
    return true;
}

TimesheetSearch::TimesheetSearch(std::string_view typed)
    : isEmpty_(trimmedBlanks(typed).empty()), search_(trimmedBlanks(typed)) {}

bool TimesheetSearch::finds(std::string_view notes, const Ref<Project>& project) const {
    return isEmpty_ || isNamedSo(project) || search_.findsIn(notes);
}

bool TimesheetSearch::isNamedSo(const Ref<Project>& project) const {
    if (!project) return false;
    const auto known = projects_.find(project.get());
    if (known != projects_.end()) return known->second;
    const auto client = project->client.get();
    const bool found =
        search_.findsIn(project->name.get()) || (client && search_.findsIn(client->name.get()));
    projects_.emplace(project.get(), found);
    return found;
}

}  // namespace elmworth
