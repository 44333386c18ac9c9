// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/ProjectsModel.h"

#include <QRandomGenerator>
#include <unordered_map>

#include "platform/LocalizedSearch.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

/// Fewer are looked through at a glance.
constexpr std::size_t searchedFrom = 7;

bool isFound(const Project& project, const LocalizedSearch& wanted) {
    if (wanted.findsIn(project.name.get())) return true;
    const auto& client = project.client.get();
    return client && wanted.findsIn(client->name.get());
}

}  // namespace

std::size_t drawRandom(std::size_t count) {
    return QRandomGenerator::global()->bounded(static_cast<quint32>(count));
}

ProjectsModel::ProjectsModel(const AppServices& services, Confirmation& confirmation,
                             ProjectEditorModel::Draw draw)
    : services_(services),
      confirmation_(confirmation),
      service_(services.context, services.history, TimerCalls::of(services.timer)),
      editor_(services, std::move(draw)),
      times_(services.context,
             [this](const auto& projects) {
                 if (isShown_) rows_.refresh(projects);
             }),
      rows_(services, times_) {
    observe();
}

void ProjectsModel::observe() {
    connect(&editor_, &ProjectEditorModel::added, this, &ProjectsModel::reveal);
    libraryObservation_ = services_.context.observeAll(
        [this](const RecordChanges& changes) { followLibrary(changes); });
    timerObservation_ = services_.timer.observe([this](TimerService::Property property) {
        if (!isShown_) return;
        if (property == TimerService::Property::running) rows_.refreshRunning();
        if (property == TimerService::Property::elapsedLongText) rows_.tick();
    });
}

void ProjectsModel::setShown(bool shown) {
    if (shown == isShown_) return;
    isShown_ = shown;
    if (isShown_) catchUp();
    Q_EMIT isShownChanged();
}

void ProjectsModel::catchUp() {
    if (std::exchange(isStale_, false)) {
        read();
        list();
    }
    // What runs has gone on meanwhile.
    rows_.refreshAll();
}

void ProjectsModel::followLibrary(const RecordChanges& changes) {
    const bool isRelisted = changes.touch(Project::schema()) || changes.touch(Client::schema());
    if (!isShown_) {
        isStale_ = isStale_ || isRelisted;
        return;
    }
    // The running entry may have begun at another time.
    if (changes.touch(TimeEntry::schema())) rows_.refreshRunning();
    if (!isRelisted) return;
    read();
    list();
    ProjectRowsModel::IDs ids;
    for (const auto* schema : {&Project::schema(), &Client::schema()}) {
        if (!changes.touch(*schema)) continue;
        const auto* changed = changes.of(*schema);
        if (changed == nullptr) return rows_.refreshAll();
        for (const auto& [id, change] : *changed) ids.insert(id);
    }
    rows_.refresh(ids);
}

void ProjectsModel::read() {
    clients_ = services_.context.fetchQuietly(byName<Client>());
    projects_ = services_.context.fetchQuietly(byName<Project>());
    isRead_ = true;
}

void ProjectsModel::list() {
    auto visible = matches();
    hiddenCount_ = 0;
    if (!showsArchived_) {
        hiddenCount_ =
            std::erase_if(visible, [](const auto& project) { return project->isArchived.get(); });
    }
    visibleCount_ = visible.size();
    rows_.show(grouped(visible));
    selection_.rowsChanged();
    Q_EMIT listed();
}

std::vector<Ref<Project>> ProjectsModel::matches() const {
    const std::string search = search_.toStdString();
    const std::string wanted(trimmedBlanks(search));
    if (wanted.empty()) return projects_;
    const LocalizedSearch finder(wanted);
    std::vector<Ref<Project>> found;
    std::copy_if(projects_.begin(), projects_.end(), std::back_inserter(found),
                 [&](const auto& project) { return isFound(*project, finder); });
    return found;
}

/// One without a client stands nowhere.
std::vector<ProjectsRow> ProjectsModel::grouped(const std::vector<Ref<Project>>& visible) const {
    std::unordered_map<PersistentID, std::vector<Ref<Project>>> byClient;
    for (const auto& project : visible) {
        if (const auto client = project->client.id()) byClient[*client].push_back(project);
    }
    std::vector<ProjectsRow> rows;
    rows.reserve(visible.size() + clients_.size());
    for (const auto& client : clients_) {
        const auto group = byClient.find(client->id());
        if (group == byClient.end()) continue;
        rows.push_back({client->id(), client, nullptr});
        for (const auto& project : group->second) rows.push_back({project->id(), client, project});
    }
    return rows;
}

void ProjectsModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    list();
}

void ProjectsModel::setShowsArchived(bool shows) {
    if (shows == showsArchived_) return;
    showsArchived_ = shows;
    list();
}

QString ProjectsModel::subtitle() const {
    return showsArchived_ ? QStringLiteral("%1 total").arg(visibleCount_)
                          : QStringLiteral("%1 active").arg(visibleCount_);
}

bool ProjectsModel::offersSearch() const {
    return projects_.size() >= searchedFrom || !search_.isEmpty();
}

bool ProjectsModel::hasNoMatches() const noexcept {
    return canAdd() && !projects_.empty() && visibleCount_ == 0;
}

QString ProjectsModel::emptyMessage() const {
    return QStringLiteral("Create a project to start tracking time against it from the %1.")
        .arg(isTrayShown_ ? QStringLiteral("system tray") : QStringLiteral("panel"));
}

void ProjectsModel::setTrayShown(bool isShown) {
    isTrayShown_ = isShown;
    Q_EMIT emptyMessageChanged();
}

QString ProjectsModel::noMatchesText() const {
    return QStringLiteral("No projects match “%1”.").arg(search_);
}

bool ProjectsModel::hidesArchived() const {
    return hiddenCount_ > 0;
}

/// A search that doesn't find the new project is over.
void ProjectsModel::reveal(const PersistentID& project) {
    if (rows_.position(project) < 0) setSearch({});
    const int row = rows_.position(project);
    if (row < 0) return;
    selection_.click(row);
    Q_EMIT revealRequested(row);
}

}  // namespace elmworth
