// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ProjectSectionModel.h"

#include <algorithm>

#include "platform/LocalizedSearch.h"
#include "platform/Text.h"
#include "records/Client.h"
#include "theme/HexColor.h"

namespace elmworth {

namespace {

constexpr std::size_t shortcuts = 6;

QString hintOf(int shortcut) {
    if (shortcut == 0) return {};
    return QStringLiteral("Ctrl+%1").arg(shortcut);
}

constexpr std::size_t rowsShown = 6;

Query<Project> listedByName() {
    return {
        .predicate = key<&Project::isArchived>() == false,
        .sortBy = {sortedBy<&Project::name>(SortOrder::forward, SortComparison::localizedStandard)},
    };
}

bool hasText(const Project& project, const std::string& text) {
    if (containsLocalized(project.name.get(), text)) return true;
    const auto& client = project.client.get();
    return client && containsLocalized(client->name.get(), text);
}

std::vector<ProjectStartRow> rowsOf(const std::vector<Ref<Project>>& projects,
                                    const Ref<Project>& running) {
    std::vector<ProjectStartRow> rows;
    rows.reserve(projects.size());
    for (const auto& project : projects) {
        rows.push_back(ProjectStartRow::of(*project, rows.size(), project == running));
    }
    return rows;
}

}  // namespace

ProjectStartRow ProjectStartRow::of(const Project& project, std::size_t position, bool isRunning) {
    ProjectStartRow row;
    row.id = project.id();
    row.name = QString::fromStdString(project.name);
    if (const auto& client = project.client.get())
        row.client = QString::fromStdString(client->name);
    row.projectColor = colorFromHex(QString::fromStdString(project.colorHex));
    row.isRunning = isRunning;
    row.shortcut = position < shortcuts ? static_cast<int>(position) + 1 : 0;
    row.hint = hintOf(row.shortcut);
    const auto start = QStringLiteral("Start %1").arg(row.name);
    row.status = isRunning ? QStringLiteral("Running") : QString();
    row.image = isRunning ? QString() : QStringLiteral("play");
    row.help = isRunning ? QStringLiteral("Already running") : start;
    row.accessibilityLabel = isRunning ? start + QStringLiteral(", running") : start;
    return row;
}

ProjectSectionModel::ProjectSectionModel(const AppServices& services)
    : services_(services), projects_(services.context, listedByName(), nullptr) {
    update();
}

Ref<Project> ProjectSectionModel::runningProject() const {
    const auto& entry = services_.timer.running();
    return entry ? entry->project.get() : nullptr;
}

bool ProjectSectionModel::isSearchShown() const noexcept {
    return projectCount_ > rowsShown;
}

const std::vector<Ref<Project>>& ProjectSectionModel::projects() const noexcept {
    return projects_.records();
}

void ProjectSectionModel::update() {
    quickStart_ = services_.timer.recentProjects(rowsShown + 1);
    std::erase(quickStart_, runningProject());
    if (quickStart_.size() > rowsShown) quickStart_.resize(rowsShown);
    countProjects();
    if (isSearchShown() || search_.isEmpty()) {
        showRows();
    } else {
        setSearch({});  // else the hidden field would still filter
    }
}

void ProjectSectionModel::countProjects() {
    const std::size_t count = projects().size();
    if (count == projectCount_) return;
    projectCount_ = count;
    Q_EMIT projectsChanged();
}

void ProjectSectionModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    Q_EMIT searchChanged();
    showRows();
}

std::vector<Ref<Project>> ProjectSectionModel::found(const std::string& query) const {
    std::vector<Ref<Project>> matches;
    std::copy_if(projects().begin(), projects().end(), std::back_inserter(matches),
                 [&](const auto& project) { return hasText(*project, query); });
    return matches;
}

std::vector<ProjectStartRow> ProjectSectionModel::quickStartRows() const {
    return rowsOf(quickStart_, runningProject());
}

std::vector<ProjectStartRow> ProjectSectionModel::allRows() const {
    return rowsOf(projects(), runningProject());
}

QString ProjectSectionModel::quickStartTitle() const {
    return services_.timer.running() ? QStringLiteral("Switch to")
                                     : QStringLiteral("Start tracking");
}

void ProjectSectionModel::showRows() {
    const std::string search = search_.toStdString();
    const std::string query(trimmedWhitespace(search));
    rows_.setRows(query.empty() ? quickStartRows() : rowsOf(found(query), runningProject()));
    auto title = query.empty() ? quickStartTitle() : QStringLiteral("Results");
    const bool hasNoMatches = !query.empty() && rows().empty();
    if (title == title_ && hasNoMatches == hasNoMatches_) return;
    title_ = std::move(title);
    hasNoMatches_ = hasNoMatches;
    Q_EMIT titleChanged();
}

void ProjectSectionModel::start(int row) {
    if (row < 0 || row >= rows_.rowCount()) return;
    startProject(rows()[static_cast<std::size_t>(row)].id);
}

void ProjectSectionModel::startProject(PersistentID id) {
    const auto found = std::find_if(projects().begin(), projects().end(),
                                    [&](const auto& project) { return project->id() == id; });
    if (found == projects().end() || *found == runningProject()) return;
    services_.timer.start(*found);
    setSearch({});
}

void ProjectSectionModel::startFirstFound() {
    const std::string search = search_.toStdString();
    if (trimmedWhitespace(search).empty()) return;
    const auto first = std::ranges::find(rows(), false, &ProjectStartRow::isRunning);
    if (first != rows().end()) startProject(first->id);
}

}  // namespace elmworth
