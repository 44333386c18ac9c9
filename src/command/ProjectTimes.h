// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <unordered_map>
#include <vector>

#include "platform/Instant.h"
#include "records/Project.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// The time of a project, in seconds.
struct ProjectTime {
    double tracked = 0;   ///< finished
    double unbilled = 0;  ///< finished and on no invoice
    double all = 0;       ///< with a running entry up to now
};

using ProjectTimes = std::unordered_map<PersistentID, ProjectTime>;

/// The time of `projects`, which are some of the library's, in one pass that makes no records of
/// entries. Those without any time are left out. Throws StoreError.
[[nodiscard]] ProjectTimes projectTimes(UnitOfWork& context,
                                        const std::vector<Ref<Project>>& projects, Instant now);

}  // namespace elmworth
