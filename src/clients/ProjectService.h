// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

#include "clients/ProjectForm.h"
#include "clients/TimerCalls.h"
#include "store/UndoHistory.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Whether any entry of `project` is on an invoice. Throws StoreError.
[[nodiscard]] bool hasInvoicedTime(const Project& project);

/// What a person does to projects. Each change is a named step of `history`, saved or not done at
/// all: throws Refused with the sentence to show, or StoreError. The timer is refreshed after it.
class ProjectService {
 public:
    ProjectService(UnitOfWork& context, UndoHistory& history, TimerCalls timer);

    Ref<Project> add(const ProjectForm& form);
    /// Adds `project`, which is in no library yet.
    void add(const Ref<Project>& project);

    /// Refused where the form names another client and `hasInvoicedTime`.
    void edit(const Ref<Project>& project, const ProjectForm& form);
    /// Runs `change`, which leaves the client alone, as one step.
    void edit(const Ref<Project>& project, const std::function<void(Project&)>& change);

    /// Gives the project to another client. Refused while `hasInvoicedTime`.
    void move(const Ref<Project>& project, const Ref<Client>& client);

    void setArchived(const Ref<Project>& project, bool isArchived);

    /// Deletes `project` with its entries, or archives it while `hasInvoicedTime`. Returns whether
    /// it was deleted.
    bool remove(const Ref<Project>& project);

 private:
    void perform(const std::string& name, const std::function<void()>& change);

    UnitOfWork& context_;
    UndoHistory& history_;
    TimerCalls timer_;
};

}  // namespace elmworth
