// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ProjectDeletion.h"

namespace elmworth {

bool hasInvoicedTime(const Project& project) {
    if (!project.unitOfWork()) return false;
    const PersistentID id = project.id();
    return project.unitOfWork()->fetchCount(
               Query<TimeEntry>{.predicate = key<&TimeEntry::project>() == std::optional(id) &&
                                             key<&TimeEntry::invoice>() != absent}) > 0;
}

bool deleteOrArchiveProject(const Ref<Project>& project, UnitOfWork& context, TimerService& timer) {
    const bool keeps = hasInvoicedTime(*project);
    if (keeps) {
        project->isArchived = true;
    } else {
        context.deleteRecord(project);
    }
    context.saveQuietly();
    timer.refresh();
    return !keeps;
}

}  // namespace elmworth
