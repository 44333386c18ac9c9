// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryForm.h"

namespace elmworth {

std::optional<std::string_view> EntryForm::problem(Instant now) const {
    if (!project) return "Choose a project.";
    if (!wasRunning && end <= start) return "End must be after start.";
    if (start > now) return "The start can't be in the future.";
    return std::nullopt;
}

Ref<TimeEntry> EntryForm::save(Ref<TimeEntry> entry, ModelContext& context,
                               TimerService& timer) const {
    if (!entry) {
        entry = std::make_shared<TimeEntry>(start, project);
        context.insert(entry);
    }
    entry->project = project;
    entry->start = start;
    if (!wasRunning) entry->end = end;
    entry->notes = notes;
    context.saveQuietly();
    timer.refresh();
    return entry;
}

}  // namespace elmworth
