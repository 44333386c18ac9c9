// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/RunningEntryModel.h"

#include "records/Client.h"
#include "records/Project.h"

namespace elmworth {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

}  // namespace

RunningEntryModel::RunningEntryModel(UnitOfWork& context, TimerService& timer)
    : context_(context), timer_(timer) {
    timerObservation_ = timer_.observe([this](TimerService::Property property) {
        if (property == TimerService::Property::running) Q_EMIT runningChanged();
        if (property == TimerService::Property::elapsedLongText) Q_EMIT elapsedChanged();
    });
    const auto changed = [this] {
        if (isRunning()) Q_EMIT runningChanged();
    };
    projectObservation_ = context.observe(Project::schema(), changed);
    clientObservation_ = context.observe(Client::schema(), changed);
    entryObservation_ = context.observe(TimeEntry::schema(), changed);
}

Ref<Project> RunningEntryModel::project() const {
    const auto& entry = timer_.running();
    return entry ? entry->project.get() : nullptr;
}

QString RunningEntryModel::projectName() const {
    const auto running = project();
    return running ? text(running->name) : QString();
}

QString RunningEntryModel::projectTitle() const {
    return project() ? projectName() : QStringLiteral("No project");
}

QString RunningEntryModel::clientName() const {
    const auto running = project();
    const auto client = running ? running->client.get() : nullptr;
    return client ? text(client->name) : QString();
}

QString RunningEntryModel::notes() const {
    return timer_.running() ? text(timer_.running()->notes) : QString();
}

void RunningEntryModel::setNotes(const QString& notes) {
    timer_.typeNotes(notes.toStdString());
}

void RunningEntryModel::leaveNotes() {
    timer_.leaveNotes();
}

void RunningEntryModel::saveNotes() {
    leaveNotes();
    const auto entry = timer_.running();
    if (entry && entry->unitOfWork() != nullptr) context_.saveQuietly();
}

void RunningEntryModel::stop() {
    saveNotes();
    timer_.stop();
}

QString RunningEntryModel::badgeColor() const {
    return project() ? projectColor() : QStringLiteral("#7C6CFF");
}

QString RunningEntryModel::projectColor() const {
    const auto running = project();
    return running ? text(running->colorHex) : QStringLiteral("#FF5B87");
}

QString RunningEntryModel::elapsed() const {
    const auto& elapsedText = timer_.elapsedLongText();
    return elapsedText.empty() ? QStringLiteral("0:00:00") : text(elapsedText);
}

}  // namespace elmworth
