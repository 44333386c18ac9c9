// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "livelist/ListSelection.h"
#include "livelist/LiveRowModel.h"
#include "screens/AppServices.h"
#include "screens/projects/ProjectLook.h"

namespace elmworth {

/// A line of the list of projects: the head of a client's group, or a project of it.
struct ProjectsRow {
    PersistentID id;  ///< the project's, or the client's for a head
    Ref<Client> client;
    Ref<Project> project;  ///< null for a head

    [[nodiscard]] bool isHead() const noexcept { return project == nullptr; }

    /// Whether both are of the same records, whatever these hold.
    friend bool operator==(const ProjectsRow&, const ProjectsRow&) = default;
};

/// What can be selected among them: projects.
struct ProjectLines : PlainRows<ProjectsRow> {
    [[nodiscard]] static bool isSelectable(const ProjectsRow& row) { return !row.isHead(); }
};

/// The lines of the projects with finished texts, each of which is made when a view asks for it and
/// kept until what it shows has changed. A tick changes the running project's budget, and nothing
/// else.
class ProjectRowsModel final : public LiveRowModel<ProjectsRow> {
 public:
    enum Role {
        kind = Qt::UserRole + 1,  ///< "head" or "project"
        title,                    ///< the client's or the project's name
        rate,                     ///< for an hour: "$120.00/h"
        summary,                  ///< all of it in a sentence, for assistive technology
        time,                     ///< see ProjectLook, as for all that follow
        projectColor,
        isArchived,
        hasCustomRate,
        isRunning,
        hasBudget,
        budgetFraction,
        budgetLevel,  ///< a number of BudgetUse::Level
        budgetHelp,
        budgetLabel,
    };
    using IDs = std::unordered_set<PersistentID>;

    /// `times` outlives this.
    ProjectRowsModel(const AppServices& services, ProjectTimes& times);

    /// Shows `rows`, no two of the same record.
    void show(std::vector<ProjectsRow> rows) { applyDiff(std::move(rows)); }
    /// Records of these identities show something else than before: projects, or clients and with
    /// them their projects.
    void refresh(const IDs& ids);
    void refreshAll();
    /// Another project runs, or the running one began at another time.
    void refreshRunning();
    /// Lets the running project's budget grow.
    void tick();

    /// The line at `row`, or null when there is none.
    [[nodiscard]] const ProjectsRow* rowAt(int row) const;
    /// Where the line of a record stands, or -1.
    [[nodiscard]] int position(const PersistentID& id) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
    [[nodiscard]] QList<int> changedRoles(const ProjectsRow& shown,
                                          const ProjectsRow& next) const override;

 private:
    [[nodiscard]] const ProjectLook& look(const Ref<Project>& project) const;
    [[nodiscard]] std::optional<PersistentID> runningProject() const;
    [[nodiscard]] QVariant headData(const Client& client, int role) const;
    [[nodiscard]] QVariant projectData(const ProjectLook& look, int role) const;
    [[nodiscard]] QVariant budgetData(const BudgetUse& used, int role) const;
    void tellChanged(int row, const QList<int>& roles = {});

    AppServices services_;
    ProjectTimes& times_;
    mutable std::unordered_map<PersistentID, ProjectLook> looks_;  ///< of the projects asked for
    std::optional<PersistentID> running_;
    std::optional<BudgetUse> grown_;  ///< the running project's, as it was told last
};

}  // namespace elmworth
