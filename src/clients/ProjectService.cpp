// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectService.h"

#include "records/Client.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

void requireMovable(const Project& project) {
    if (hasInvoicedTime(project))
        throw Refused("Projects with invoiced time stay with their client.");
}

}  // namespace

bool hasInvoicedTime(const Project& project) {
    if (!project.unitOfWork()) return false;
    const PersistentID id = project.id();
    return project.unitOfWork()->fetchCount(
               Query<TimeEntry>{.predicate = key<&TimeEntry::project>() == std::optional(id) &&
                                             key<&TimeEntry::invoice>() != absent}) > 0;
}

ProjectService::ProjectService(UnitOfWork& context, UndoHistory& history, TimerCalls timer)
    : context_(context), history_(history), timer_(std::move(timer)) {}

Ref<Project> ProjectService::add(const ProjectForm& form) {
    auto project = std::make_shared<Project>(form.name, form.client);
    form.apply(*project);
    add(project);
    return project;
}

void ProjectService::add(const Ref<Project>& project) {
    perform("Add " + project->name.get(), [&] { context_.insert(project); });
}

void ProjectService::edit(const Ref<Project>& project, const ProjectForm& form) {
    if (form.client != project->client.get()) requireMovable(*project);
    edit(project, [&](Project& edited) { form.apply(edited); });
}

void ProjectService::edit(const Ref<Project>& project,
                          const std::function<void(Project&)>& change) {
    perform("Edit " + project->name.get(), [&] { change(*project); });
}

void ProjectService::move(const Ref<Project>& project, const Ref<Client>& client) {
    requireMovable(*project);
    perform("Move " + project->name.get(), [&] { project->client = client; });
}

void ProjectService::setArchived(const Ref<Project>& project, bool isArchived) {
    perform((isArchived ? "Archive " : "Unarchive ") + project->name.get(),
            [&] { project->isArchived = isArchived; });
}

bool ProjectService::remove(const Ref<Project>& project) {
    if (hasInvoicedTime(*project)) {
        setArchived(project, true);
        return false;
    }
    perform("Delete " + project->name.get(), [&] { context_.deleteRecord(project); });
    return true;
}

void ProjectService::perform(const std::string& name, const std::function<void()>& change) {
    history_.perform(name, change);
    timer_.refresh();
}

}  // namespace elmworth
