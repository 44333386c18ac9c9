// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <vector>

#include "platform/Instant.h"
#include "records/Project.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// A project with its time, in seconds.
struct ProjectSummary {
    Ref<Project> project;
    double trackedSeconds = 0;             ///< finished
    double unbilledSeconds = 0;            ///< finished and on no invoice
    std::optional<double> budgetFraction;  ///< as Project::budgetFraction
};

/// Those of `projects`, which are some of the library's, in their order: in one pass that makes no
/// records of entries. Throws StoreError.
[[nodiscard]] std::vector<ProjectSummary> projectSummaries(
    UnitOfWork& context, const std::vector<Ref<Project>>& projects, Instant now);

/// All projects by name, the archived ones too on request. Throws StoreError.
[[nodiscard]] std::vector<ProjectSummary> allProjectSummaries(UnitOfWork& context, Instant now,
                                                              bool withArchived);

}  // namespace elmworth
