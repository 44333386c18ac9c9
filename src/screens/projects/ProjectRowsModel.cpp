// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/ProjectRowsModel.h"

namespace elmworth {

ProjectRowsModel::ProjectRowsModel(const AppServices& services, ProjectTimes& times)
    : services_(services), times_(times) {}

std::optional<PersistentID> ProjectRowsModel::runningProject() const {
    const auto& entry = services_.timer.running();
    return entry ? entry->project.id() : std::nullopt;
}

void ProjectRowsModel::refresh(const IDs& ids) {
    std::erase_if(looks_, [&](const auto& known) { return ids.contains(known.first); });
    for (std::size_t i = 0; i < rows().size(); ++i) {
        const auto& row = rows()[i];
        const bool isOfChangedClient = ids.contains(row.client->id());
        if (!isOfChangedClient && !ids.contains(row.id)) continue;
        looks_.erase(row.id);
        tellChanged(static_cast<int>(i));
    }
}

void ProjectRowsModel::refreshAll() {
    looks_.clear();
    running_ = runningProject();
    grown_.reset();
    if (rows().empty()) return;
    Q_EMIT dataChanged(index(0), index(static_cast<int>(rows().size()) - 1));
}

void ProjectRowsModel::refreshRunning() {
    IDs ids;
    if (running_) ids.insert(*running_);
    running_ = runningProject();
    if (running_) ids.insert(*running_);
    grown_.reset();
    refresh(ids);
}

void ProjectRowsModel::tick() {
    const int row = running_ ? position(*running_) : -1;
    const auto known = row < 0 ? looks_.end() : looks_.find(*running_);
    if (known == looks_.end() || !known->second.budget) return;
    const auto used = known->second.budgetAt(services_.now());
    if (grown_ && grown_->looksLike(*used)) return;
    grown_ = used;
    tellChanged(row, {budgetFraction, budgetLevel, budgetHelp, budgetLabel, summary});
}

void ProjectRowsModel::tellChanged(int row, const QList<int>& roles) {
    Q_EMIT dataChanged(index(row), index(row), roles);
}

const ProjectsRow* ProjectRowsModel::rowAt(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < rows().size() ? &rows()[at] : nullptr;
}

int ProjectRowsModel::position(const PersistentID& id) const {
    const auto at = ProjectLines::find(id, rows());
    return at ? static_cast<int>(*at) : -1;
}

const ProjectLook& ProjectRowsModel::look(const Ref<Project>& project) const {
    const PersistentID id = project->id();
    const auto known = looks_.find(id);
    if (known != looks_.end()) return known->second;
    return looks_
        .emplace(id, ProjectLook::of(project, times_, runningProject() == id, services_.now()))
        .first->second;
}

QVariant ProjectRowsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows()[static_cast<std::size_t>(index.row())];
    return row.isHead() ? headData(*row.client, role) : projectData(look(row.project), role);
}

QVariant ProjectRowsModel::headData(const Client& client, int role) const {
    switch (role) {
        case kind:
            return QStringLiteral("head");
        case title:
            return QString::fromStdString(client.name);
        case rate:
            return hourlyRateText(client.hourlyRateCents, client.currencyCode);
        case summary:
            return QStringLiteral("%1, %2").arg(headData(client, title).toString(),
                                                headData(client, rate).toString());
        default:
            return {};
    }
}

QVariant ProjectRowsModel::projectData(const ProjectLook& look, int role) const {
    switch (role) {
        case kind:
            return QStringLiteral("project");
        case title:
            return look.name;
        case rate:
            return look.rate;
        case summary:
            return look.summary(services_.now());
        case time:
            return look.time;
        case projectColor:
            return look.color;
        case isArchived:
            return look.isArchived;
        case hasCustomRate:
            return look.hasCustomRate;
        case isRunning:
            return look.isRunning;
        case hasBudget:
            return look.budget.has_value();
        default:
            return budgetData(look.budgetAt(services_.now()).value_or(BudgetUse{}), role);
    }
}

QVariant ProjectRowsModel::budgetData(const BudgetUse& used, int role) const {
    switch (role) {
        case budgetFraction:
            return used.fraction;
        case budgetLevel:
            return static_cast<int>(used.level());
        case budgetHelp:
            return used.help();
        case budgetLabel:
            return used.label();
        default:
            return {};
    }
}

QHash<int, QByteArray> ProjectRowsModel::roleNames() const {
    return {{kind, "kind"},
            {title, "title"},
            {rate, "rate"},
            {summary, "summary"},
            {time, "time"},
            {projectColor, "projectColor"},
            {isArchived, "isArchived"},
            {hasCustomRate, "hasCustomRate"},
            {isRunning, "isRunning"},
            {hasBudget, "hasBudget"},
            {budgetFraction, "budgetFraction"},
            {budgetLevel, "budgetLevel"},
            {budgetHelp, "budgetHelp"},
            {budgetLabel, "budgetLabel"}};
}

QList<int> ProjectRowsModel::changedRoles(const ProjectsRow& /*shown*/,
                                          const ProjectsRow& /*next*/) const {
    return roleNames().keys();
}

}  // namespace elmworth
