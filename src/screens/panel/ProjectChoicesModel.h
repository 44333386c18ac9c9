// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

#include "records/Project.h"
#include "screens/panel/ChoiceModel.h"
#include "store/LiveQuery.h"

namespace elmworth {

/// The projects that an entry can be given to, and "Choose…" for none. They follow the library
/// while they are shown; a project that is deleted is no longer chosen.
class ProjectChoicesModel final : public ChoiceModel {
    Q_OBJECT

 public:
    explicit ProjectChoicesModel(UnitOfWork& context);

    /// Shows the projects with `chosen` chosen. An archived one is among them only when it is
    /// `entrysOwn`.
    void show(Ref<Project> chosen, const Ref<Project>& entrysOwn);
    /// Follows the library no longer.
    void stop();

    [[nodiscard]] const Ref<Project>& chosen() const noexcept { return chosen_; }
    void setChosen(Ref<Project> project);

 private:
    void projectsChanged();
    void offerProjects();
    [[nodiscard]] bool isListed(const Project& project) const;

    UnitOfWork& context_;
    std::optional<LiveQuery<Project>> projects_;
    UnitOfWork::Observation clientObservation_;
    Ref<Project> chosen_;
    std::optional<PersistentID> entrysOwn_;
};

}  // namespace elmworth
