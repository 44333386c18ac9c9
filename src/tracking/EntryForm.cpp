// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryForm.h"

#include <algorithm>

#include "platform/ISO8601.h"

namespace elmworth {

EntryForm EntryForm::forNewEntry(std::optional<Instant> day, Instant now, const Calendar& calendar,
                                 const TimerService& timer) {
    const Instant base = day.value_or(now);
    const Instant morning = calendar.settingTime(9, 0, 0, base).value_or(base);
    const auto recent = timer.recentProjects(1);
    EntryForm form;
    form.start = std::min(morning, now - std::chrono::hours(1));
    form.end = form.start + std::chrono::hours(1);
    if (!recent.empty()) form.project = recent.front();
    return form;
}

EntryForm EntryForm::of(const TimeEntry& entry, Instant now) {
    return {entry.project, entry.start, entry.end->value_or(now), entry.notes, entry.isRunning()};
}

std::optional<std::string_view> EntryForm::problem(Instant now) const {
    if (!project) return "Choose a project.";
    return timeProblem(now);
}

std::optional<std::string_view> EntryForm::timeProblem(Instant now) const {
    if (!hasISO8601(start) || (!wasRunning && !hasISO8601(end)))
        return "Times must lie in the years 0 to 9999.";
    if (!wasRunning && end <= start) return "End must be after start.";
    if (start > now) return "The start can't be in the future.";
    return std::nullopt;
}

Ref<TimeEntry> EntryForm::save(Ref<TimeEntry> entry, UnitOfWork& context,
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
