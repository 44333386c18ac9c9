// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ProjectChoicesModel.h"

#include <utility>

#include "records/Client.h"

namespace elmworth {

namespace {

Query<Project> byName() {
    return {
        .sortBy = {sortedBy<&Project::name>(SortOrder::forward, SortComparison::localizedStandard)},
    };
}

QString labelOf(const Project& project) {
    const auto name = QString::fromStdString(project.name);
    const auto& client = project.client.get();
    return client ? QString::fromStdString(client->name) + QStringLiteral(" \u2014 ") + name : name;
}

}  // namespace

ProjectChoicesModel::ProjectChoicesModel(UnitOfWork& context) : context_(context) {
    connect(this, &ChoiceModel::picked, this, [this](const PersistentID& id) {
        setChosen(id.isNil() ? nullptr : context_.recordQuietly<Project>(id));
    });
    offerProjects();
}

void ProjectChoicesModel::show(Ref<Project> chosen, const Ref<Project>& entrysOwn) {
    stop();
    setSearch({});
    chosen_ = std::move(chosen);
    entrysOwn_ = entrysOwn ? std::optional(entrysOwn->id()) : std::nullopt;
    projects_.emplace(context_, byName(), [this](const auto&) {
        if (projects_) projectsChanged();
    });
    clientObservation_ = context_.observe(Client::schema(), [this] { projectsChanged(); });
    projectsChanged();
}

void ProjectChoicesModel::stop() {
    projects_.reset();
    clientObservation_.reset();
}

void ProjectChoicesModel::setChosen(Ref<Project> project) {
    if (project == chosen_) return;
    chosen_ = std::move(project);
    offerProjects();
}

void ProjectChoicesModel::projectsChanged() {
    if (chosen_ && chosen_->isDeleted()) chosen_ = nullptr;
    offerProjects();
}

bool ProjectChoicesModel::isListed(const Project& project) const {
    return !project.isArchived || project.id() == entrysOwn_;
}

void ProjectChoicesModel::offerProjects() {
    const auto none = QStringLiteral("Choose\u2026");
    std::vector<Choice> choices{{{}, none, false}};
    if (projects_) {
        for (const auto& project : projects_->records()) {
            if (isListed(*project)) choices.push_back({project->id(), labelOf(*project), false});
        }
    }
    offer(std::move(choices), chosen_ ? chosen_->id() : PersistentID{},
          chosen_ ? labelOf(*chosen_) : none);
}

}  // namespace elmworth
