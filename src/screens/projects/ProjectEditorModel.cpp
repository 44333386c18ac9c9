// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/ProjectEditorModel.h"

#include "platform/MoneyFormat.h"
#include "platform/Text.h"
#include "screens/projects/ChangeAttempt.h"
#include "theme/HexColor.h"

namespace elmworth {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// What can't be read counts as invoiced: the save says it again, and can.
bool staysWithClient(const Project& project) {
    try {
        return hasInvoicedTime(project);
    } catch (const StoreError&) {
        return true;
    }
}

}  // namespace

ProjectEditorModel::ProjectEditorModel(const AppServices& services, Draw draw)
    : services_(services),
      draw_(std::move(draw)),
      projects_(services.context, services.history, TimerCalls::of(services.timer)),
      project_(services.context),
      clients_(services.context, {.none = {}, .label = [](const Client& client) {
                                      return text(client.name.get());
                                  }}) {
    for (auto* field : {&name_, &rate_, &budget_}) {
        connect(field, &FormText::changed, this, [this] { fieldsChanged(); });
    }
    connect(&clients_, &ChoiceModel::changed, this, [this] { fieldsChanged(); });
}

void ProjectEditorModel::open(Ref<Project> project) {
    dismiss();
    added_ = nullptr;
    project_.open(std::move(project), [this] { recordsChanged(); }, {&TimeEntry::schema()});
    clients_.follow();
    load(project_ ? ProjectForm::of(*project_) : newForm());
    lockClient();
    show();
}

ProjectForm ProjectEditorModel::newForm() const {
    const auto& clients = clients_.records();
    const std::size_t color = draw_(projectColors.size());
    return {.client = clients.empty() ? nullptr : clients.front(),
            .colorHex = projectColors.at(color % projectColors.size())};
}

void ProjectEditorModel::load(const ProjectForm& form) {
    name_.load(text(form.name));
    clients_.setRecord(form.client);
    knownClient_ = form.client;
    overridesRate_.load(form.overridesRate);
    rate_.load(text(form.rateText));
    budget_.load(text(form.budgetText));
    color_.load(form.colorHex);
    isArchived_.load(form.isArchived);
}

void ProjectEditorModel::follow(const ProjectForm& fresh) {
    name_.follow(text(fresh.name));
    const auto former = std::exchange(knownClient_, fresh.client);
    if (clients_.record() == former && fresh.client != former) clients_.setRecord(fresh.client);
    overridesRate_.follow(fresh.overridesRate);
    rate_.follow(text(fresh.rateText));
    budget_.follow(text(fresh.budgetText));
    color_.follow(fresh.colorHex);
    isArchived_.follow(fresh.isArchived);
}

void ProjectEditorModel::catchUp() {
    if (project_.loseDeleted()) {
        isClientLocked_ = false;
    } else if (project_) {
        follow(ProjectForm::of(*project_));
        lockClient();
    }
}

/// Time that was invoiced meanwhile takes a client back that was chosen here.
void ProjectEditorModel::lockClient() {
    isClientLocked_ = project_ && staysWithClient(*project_);
    if (isClientLocked_ && clients_.record() != project_->client.get()) {
        clients_.setRecord(project_->client);
    }
}

ProjectForm ProjectEditorModel::form() const {
    return {.name = name_.text().toStdString(),
            .client = clients_.record(),
            .overridesRate = overridesRate_.value(),
            .rateText = rate_.text().toStdString(),
            .colorHex = color_.value(),
            .isArchived = isArchived_.value(),
            .budgetText = budget_.text().toStdString()};
}

QString ProjectEditorModel::title() const {
    return project_ ? QStringLiteral("Edit Project") : QStringLiteral("New Project");
}

QString ProjectEditorModel::subtitle() const {
    return clients_.isSet() ? QStringLiteral("for ") + clients_.title() : QString();
}

QString ProjectEditorModel::notice() const {
    return project_.wasLost() ? lostText(QStringLiteral("project")) : QString();
}

/// A name that was not begun yet is no mistake.
QString ProjectEditorModel::problem() const {
    if (!clients_.isSet()) return QStringLiteral("Choose a client.");
    if (!name_.isTouched()) return {};
    return text(parseName(oneLine(name_.text().toStdString())).problem());
}

QString ProjectEditorModel::clientLock() const {
    return isClientLocked_ ? QStringLiteral("Projects with invoiced time stay with their client.")
                           : QString();
}

void ProjectEditorModel::setOverridesRate(bool overrides) {
    if (overrides == overridesRate()) return;
    overridesRate_.set(overrides);
    fieldsChanged();
}

QString ProjectEditorModel::rateProblemText() const {
    return overridesRate() ? text(rateProblem(rate_.text().toStdString())) : QString();
}

QString ProjectEditorModel::clientRate() const {
    const auto& client = clients_.record();
    return client ? text(formatCents(client->hourlyRateCents, client->currencyCode.get()))
                  : QString();
}

QString ProjectEditorModel::budgetProblemText() const {
    return text(budgetProblem(budget_.text().toStdString()));
}

QStringList ProjectEditorModel::palette() {
    QStringList colors;
    for (const auto* color : projectColors) colors.append(QString::fromLatin1(color));
    return colors;
}

int ProjectEditorModel::colorRow() const {
    const auto chosen = colorFromHex(colorHex());
    for (std::size_t i = 0; i < projectColors.size(); ++i) {
        if (colorFromHex(QString::fromLatin1(projectColors.at(i))) == chosen) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void ProjectEditorModel::chooseColor(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= projectColors.size()) return;
    color_.set(projectColors.at(static_cast<std::size_t>(row)));
    fieldsChanged();
}

void ProjectEditorModel::setArchived(bool isArchived) {
    if (isArchived == this->isArchived()) return;
    isArchived_.set(isArchived);
    fieldsChanged();
}

QString ProjectEditorModel::carryOut() {
    return attempt([this] {
        if (project_) {
            projects_.edit(project_.get(), form());
        } else {
            added_ = projects_.add(form());
        }
    });
}

void ProjectEditorModel::rest() {
    project_.close();
    clients_.stop();
    if (const auto project = std::exchange(added_, nullptr)) Q_EMIT added(project->id());
}

}  // namespace elmworth
