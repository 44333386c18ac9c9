// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryService.h"

namespace elmworth {

Ref<TimeEntry> EntryService::add(const EntryForm& form) {
    if (form.project && form.project->isArchived) {
        throw Refused("“" + fullName(*form.project) +
                      "” is archived. Unarchive it to log time on it.");
    }
    if (const auto problem = form.problem(now_())) throw Refused(std::string(*problem));
    Ref<TimeEntry> entry;
    history_.perform("Add Entry", [&] { entry = form.save(nullptr, context_, timer_); });
    return entry;
}

}  // namespace elmworth
