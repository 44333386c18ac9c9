// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is done to projects.

#include "screens/projects/ChangeAttempt.h"
#include "screens/projects/ProjectsModel.h"

namespace elmworth {

namespace {

QString name(const Ref<Project>& project) {
    return QString::fromStdString(project->name);
}

QString deletionMessage(std::size_t entries) {
    return entries == 1 ? QStringLiteral("This deletes its 1 time entry.")
                        : QStringLiteral("This deletes its %1 time entries.").arg(entries);
}

}  // namespace

Ref<Project> ProjectsModel::projectAt(int row) const {
    const auto* line = rows_.rowAt(row);
    return line != nullptr ? line->project : nullptr;
}

void ProjectsModel::add() {
    if (canAdd()) editor_.open(nullptr);
}

void ProjectsModel::goToClients() {
    services_.defaults.setString("mainSection", "Clients");
}

void ProjectsModel::edit(int row) {
    if (const auto project = projectAt(row)) editor_.open(project);
}

void ProjectsModel::start(int row) {
    const auto project = projectAt(row);
    if (project && !project->isArchived) services_.timer.start(project);
}

void ProjectsModel::toggleTimer(int row) {
    const auto project = projectAt(row);
    const auto& running = services_.timer.running();
    const bool runs = project && running && running->project.id() == project->id();
    if (runs) return services_.timer.stop();
    start(row);
}

void ProjectsModel::askToDelete(int row) {
    if (const auto project = projectAt(row)) askToDelete(project->id());
}

/// What was agreed to holds: what was to be archived is never deleted.
void ProjectsModel::askToDelete(const PersistentID& id) {
    const QString problem = attempt([this, &id] {
        const auto project = services_.context.record<Project>(id);
        if (!project) return;
        Confirmation::Question question{.icon = QStringLiteral("trash"),
                                        .title = QStringLiteral("Delete %1?").arg(name(project)),
                                        .isDestructive = true};
        if (hasInvoicedTime(*project)) {
            question.message = QStringLiteral(
                "It has invoiced time, so it will be archived instead of deleted to keep your "
                "invoices intact.");
            question.acceptText = QStringLiteral("Archive Project");
            return confirmation_.ask(std::move(question), [this, id] { archive(id, true); });
        }
        question.message = deletionMessage(services_.context.fetchCount(
            Query<TimeEntry>{.predicate = key<&TimeEntry::project>() == project}));
        question.acceptText = QStringLiteral("Delete Project");
        confirmation_.ask(std::move(question), [this, id] { remove(id); });
    });
    if (!problem.isEmpty()) Q_EMIT failed(problem);
}

/// A project that is gone meanwhile needs nothing.
void ProjectsModel::remove(const PersistentID& id) {
    QString done;
    const QString problem = attempt([&] {
        const auto project = services_.context.record<Project>(id);
        if (!project) return;
        const QString what = name(project);
        done = service_.remove(project) ? QStringLiteral("Deleted %1.").arg(what)
                                        : QStringLiteral("Archived %1.").arg(what);
    });
    if (!problem.isEmpty()) return Q_EMIT failed(problem);
    if (!done.isEmpty()) Q_EMIT removed(done);
}

void ProjectsModel::archive(const PersistentID& id, bool isArchived) {
    QString done;
    const QString problem = attempt([&] {
        const auto project = services_.context.record<Project>(id);
        if (!project || project->isArchived == isArchived) return;
        service_.setArchived(project, isArchived);
        if (isArchived && !showsArchived_) done = QStringLiteral("Archived %1.").arg(name(project));
    });
    if (!problem.isEmpty()) return Q_EMIT failed(problem);
    if (!done.isEmpty()) Q_EMIT removed(done);
}

bool ProjectsModel::openMenu(int row) {
    const auto project = projectAt(row);
    if (!project) return false;
    menuProject_ = project->id();
    menuUnarchives_ = project->isArchived;
    Q_EMIT menuChanged();
    return true;
}

void ProjectsModel::menuEdit() {
    const QString problem = attempt([this] {
        if (const auto project = services_.context.record<Project>(menuProject_)) {
            editor_.open(project);
        }
    });
    if (!problem.isEmpty()) Q_EMIT failed(problem);
}

void ProjectsModel::menuArchive() {
    archive(menuProject_, !menuUnarchives_);
}

void ProjectsModel::menuDelete() {
    askToDelete(menuProject_);
}

}  // namespace elmworth
