// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectSummary.h"

#include <unordered_map>

#include "records/TimeEntry.h"

namespace elmworth {

namespace {

struct ProjectTime {
    double tracked = 0;
    double unbilled = 0;
    double all = 0;  ///< with a running entry up to now
};

using ProjectTimes = std::unordered_map<PersistentID, ProjectTime>;

/// Those without any time are left out.
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

ProjectSummary summary(const Ref<Project>& project, const ProjectTime& time) {
    const auto budget = project->budgetSeconds();
    return {project, time.tracked, time.unbilled,
            budget ? std::optional(time.all / *budget) : std::nullopt};
}

}  // namespace

std::vector<ProjectSummary> projectSummaries(UnitOfWork& context,
                                             const std::vector<Ref<Project>>& projects,
                                             Instant now) {
    auto times = projectTimes(context, projects, now);
    std::vector<ProjectSummary> summaries;
    summaries.reserve(projects.size());
    for (const auto& project : projects)
        summaries.push_back(summary(project, times[project->id()]));
    return summaries;
}

std::vector<ProjectSummary> allProjectSummaries(UnitOfWork& context, Instant now,
                                                bool withArchived) {
    auto projects =
        context.fetch(Query<Project>{.sortBy = {sortedBy<&Project::name>(
                                         SortOrder::forward, SortComparison::localizedStandard)}});
    std::erase_if(projects,
                  [&](const auto& project) { return project->isArchived && !withArchived; });
    return projectSummaries(context, projects, now);
}

}  // namespace elmworth
