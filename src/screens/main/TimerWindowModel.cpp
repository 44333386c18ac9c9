// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/TimerWindowModel.h"

#include "core/Client.h"
#include "core/Project.h"
#include "tracking/DurationFormat.h"

namespace elmworth {

namespace {

constexpr std::size_t rowsShown = 6;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

ProjectRowsModel::Row makeRow(const Project& project) {
    const auto& client = project.client.get();
    return {project.persistentModelID(), text(project.name),
            client ? text(client->name) : QString(), text(project.colorHex)};
}

}  // namespace

TimerWindowModel::TimerWindowModel(ModelContext& context, TimerService& timer)
    : context_(context), timer_(timer) {
    timerObservation_ = timer_.observe([this](auto property) { timerChanged(property); });
    const auto changed = [this] {
        refreshProjects();
        Q_EMIT runningChanged();
        Q_EMIT todayChanged();
    };
    projectObservation_ = context_.observe(Project::schema(), changed);
    clientObservation_ = context_.observe(Client::schema(), changed);
    entryObservation_ = context_.observe(TimeEntry::schema(), changed);
    refreshProjects();
}

void TimerWindowModel::timerChanged(TimerService::Property property) {
    switch (property) {
        case TimerService::Property::elapsedLongText:
            Q_EMIT elapsedChanged();
            break;
        case TimerService::Property::elapsedText:
            Q_EMIT todayChanged();
            break;
        case TimerService::Property::running:
            refreshProjects();
            Q_EMIT runningChanged();
            break;
        default:
            break;
    }
}

Ref<Project> TimerWindowModel::runningProject() const {
    const auto& entry = timer_.running();
    return entry ? entry->project.get() : nullptr;
}

QString TimerWindowModel::projectName() const {
    const auto project = runningProject();
    return project ? text(project->name) : QStringLiteral("No project");
}

QString TimerWindowModel::clientName() const {
    const auto project = runningProject();
    return project && project->client ? text(project->client->name) : QString();
}

QString TimerWindowModel::notes() const {
    return timer_.running() ? text(timer_.running()->notes) : QString();
}

QString TimerWindowModel::projectColor() const {
    const auto project = runningProject();
    return project ? text(project->colorHex) : QStringLiteral("#FF5B87");
}

QString TimerWindowModel::elapsed() const {
    const auto& elapsedText = timer_.elapsedLongText();
    return elapsedText.empty() ? QStringLiteral("0:00:00") : text(elapsedText);
}

QString TimerWindowModel::today() const {
    return text(formatHoursMinutes(timer_.todaySeconds()));
}

QString TimerWindowModel::sectionTitle() const {
    return isRunning() ? QStringLiteral("Switch to") : QStringLiteral("Start tracking");
}

void TimerWindowModel::refreshProjects() {
    const auto running = runningProject();
    std::vector<ProjectRowsModel::Row> rows;
    const auto recent = timer_.recentProjects(rowsShown + 1);
    for (const auto& project : recent) {
        if (project != running && rows.size() < rowsShown) rows.push_back(makeRow(*project));
    }
    projects_.setRows(rows);
    if (hasProjects_ == !recent.empty()) return;
    hasProjects_ = !recent.empty();
    Q_EMIT projectsChanged();
}

void TimerWindowModel::start(int row) {
    const auto& rows = projects_.rows();
    if (row < 0 || static_cast<std::size_t>(row) >= rows.size()) return;
    const auto project = context_.record<Project>(rows[static_cast<std::size_t>(row)].id);
    if (project) timer_.start(project);
}

void TimerWindowModel::stop() {
    timer_.stop();
}

}  // namespace elmworth
