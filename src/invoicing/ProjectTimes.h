// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "invoicing/UnbilledTime.h"
#include "records/Project.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// The finished time of single projects, for cards and rows: read when it is first asked for, kept,
/// and read again when it changed. Running entries never count.
///
/// What can't be read counts as none, and is tried again when it is next asked for.
class ProjectTimes {
 public:
    using Projects = std::unordered_set<PersistentID>;

    /// `changed` hears of which of the projects asked for the time or its worth may be another, at
    /// most once in a turn of the run loop and at once after a save; asking again gives the new.
    ProjectTimes(UnitOfWork& context, std::function<void(const Projects&)> changed);
    ProjectTimes(const ProjectTimes&) = delete;
    ProjectTimes& operator=(const ProjectTimes&) = delete;

    /// All of it, billed or not.
    [[nodiscard]] double trackedSeconds(const Ref<Project>& project);
    /// At the rates that hold now.
    [[nodiscard]] UnbilledTime unbilled(const Ref<Project>& project);

 private:
    struct Time {
        std::optional<double> tracked;
        std::optional<UnbilledTime> unbilled;
    };

    void follow(const RecordChanges& changes);
    void followEntries(const RecordChanges::Named& entries, Projects& touched);
    void followTracked(Projects& touched);
    void followRates(const RecordChanges& changes, Projects& touched) const;
    void touchAll(Projects& touched) const;

    UnitOfWork& context_;
    std::function<void(const Projects&)> changed_;
    std::unordered_map<PersistentID, Time> times_;             ///< of the projects asked for
    std::unordered_map<PersistentID, PersistentID> projects_;  ///< of unbilled entries read
    UnitOfWork::Observation observation_;
};

}  // namespace elmworth
