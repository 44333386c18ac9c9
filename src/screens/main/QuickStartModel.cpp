// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/QuickStartModel.h"

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

QuickStartModel::QuickStartModel(ModelContext& context, TimerService& timer)
    : context_(context), timer_(timer) {
    timerObservation_ = timer_.observe([this](auto property) { timerChanged(property); });
    const auto changed = [this] {
        refreshProjects();
        Q_EMIT todayChanged();
    };
    projectObservation_ = context_.observe(Project::schema(), changed);
    clientObservation_ = context_.observe(Client::schema(), changed);
    entryObservation_ = context_.observe(TimeEntry::schema(), changed);
    refreshProjects();
}

void QuickStartModel::timerChanged(TimerService::Property property) {
    switch (property) {
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

QString QuickStartModel::today() const {
    return text(formatHoursMinutes(timer_.todaySeconds()));
}

QString QuickStartModel::sectionTitle() const {
    return timer_.running() ? QStringLiteral("Switch to") : QStringLiteral("Start tracking");
}

void QuickStartModel::refreshProjects() {
    const auto& entry = timer_.running();
    const Ref<Project> running = entry ? entry->project.get() : nullptr;
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

void QuickStartModel::start(int row) {
    const auto& rows = projects_.rows();
    if (row < 0 || static_cast<std::size_t>(row) >= rows.size()) return;
    const auto project = context_.record<Project>(rows[static_cast<std::size_t>(row)].id);
    if (project) timer_.start(project);
}

}  // namespace elmworth
