// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/ProjectTimes.h"

#include <optional>

#include "records/TimeEntry.h"

namespace elmworth {

ProjectTimes projectTimes(UnitOfWork& context, const std::vector<Ref<Project>>& projects,
                          Instant now) {
    ProjectTimes times;
    const auto read = [&](const std::optional<Predicate<TimeEntry>>& predicate) {
        context.forEachValues<&TimeEntry::project, &TimeEntry::start, &TimeEntry::end,
                              &TimeEntry::invoice>(
            predicate, [&](const PersistentID& /*entry*/, const auto& project, Instant start,
                           const auto& end, const auto& invoice) {
                if (!project) return;
                auto& time = times[*project];
                const double seconds = secondsBetween(start, end.value_or(now));
                time.all += seconds;
                if (!end) return;
                time.tracked += seconds;
                if (!invoice) time.unbilled += seconds;
            });
    };
    // One pass reads the library as it lies there, which is quicker than to look each entry up.
    if (4 * projects.size() >= context.fetchCount<Project>()) {
        read(std::nullopt);
    } else {
        for (const auto& project : projects) read(key<&TimeEntry::project>() == project);
    }
    return times;
}

}  // namespace elmworth
