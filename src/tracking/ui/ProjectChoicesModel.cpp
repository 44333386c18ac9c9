// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ui/ProjectChoicesModel.h"

#include <algorithm>

#include "core/Client.h"
#include "platform/LocalizedSearch.h"

namespace elmworth {

namespace {

FetchDescriptor<Project> byName() {
    return {
        .sortBy = {sortedBy<&Project::name>(SortOrder::forward, SortComparison::localizedStandard)},
    };
}

QString labelOf(const Project& project) {
    const auto name = QString::fromStdString(project.name);
    const auto& client = project.client.get();
    return client ? QString::fromStdString(client->name) + QStringLiteral(" \u2014 ") + name : name;
}

bool holdsAll(const QString& text, const QStringList& words) {
    const std::string haystack = text.toStdString();
    return std::all_of(words.begin(), words.end(), [&](const auto& word) {
        return containsLocalized(haystack, word.toStdString());
    });
}

}  // namespace

ProjectChoicesModel::ProjectChoicesModel(ModelContext& context) : context_(context) {}

QString ProjectChoicesModel::text() const {
    return chosen_ ? labelOf(*chosen_) : QStringLiteral("Choose\u2026");
}

void ProjectChoicesModel::show(Ref<Project> chosen, const Ref<Project>& entrysOwn) {
    stop();
    search_.clear();
    Q_EMIT searchChanged();
    chosen_ = std::move(chosen);
    entrysOwn_ = entrysOwn ? std::optional(entrysOwn->persistentModelID()) : std::nullopt;
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
    showRows();
    Q_EMIT chosenChanged();
}

void ProjectChoicesModel::choose(int row) {
    if (row < 0 || row >= rows_.rowCount()) return;
    const PersistentID id = rows()[static_cast<std::size_t>(row)].id;
    auto project = id.isNil() ? nullptr : context_.record<Project>(id);
    setSearch({});
    setChosen(std::move(project));
}

void ProjectChoicesModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    Q_EMIT searchChanged();
    showRows();
}

void ProjectChoicesModel::projectsChanged() {
    if (chosen_ && chosen_->isDeleted()) chosen_ = nullptr;
    showRows();
    Q_EMIT chosenChanged();
}

bool ProjectChoicesModel::isListed(const Project& project) const {
    return !project.isArchived || project.persistentModelID() == entrysOwn_;
}

void ProjectChoicesModel::showRows() {
    const auto words = search_.simplified().split(u' ', Qt::SkipEmptyParts);
    std::vector<ProjectChoice> rows;
    if (words.isEmpty()) rows.push_back({{}, QStringLiteral("Choose\u2026"), chosen_ == nullptr});
    if (projects_) {
        for (const auto& project : projects_->records()) {
            if (!isListed(*project)) continue;
            auto label = labelOf(*project);
            if (holdsAll(label, words))
                rows.push_back(
                    {project->persistentModelID(), std::move(label), project == chosen_});
        }
    }
    rows_.setRows(std::move(rows));
    Q_EMIT rowsChanged();
}

int ProjectChoicesModel::chosenRow() const {
    const auto found = std::find_if(rows().begin(), rows().end(),
                                    [](const auto& choice) { return choice.isChosen; });
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

}  // namespace elmworth
