// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/RunningEntryModel.h"

#include <utility>

#include "records/Client.h"
#include "records/Project.h"

namespace elmworth {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

RunningEntryModel::RunningEntryModel(const AppServices& services, Follows follows)
    : services_(services) {
    if (follows == Follows::itself) observe();
    RunningEntryModel::update();
}

void RunningEntryModel::observe() {
    timerObservation_ = services_.timer.observe([this](TimerService::Property property) {
        if (property == TimerService::Property::running) update();
        if (property == TimerService::Property::elapsedLongText) tick();
    });
    libraryObservation_ = services_.context.observeAll([this](const RecordChanges& changes) {
        for (const auto* schema : {&TimeEntry::schema(), &Project::schema(), &Client::schema()}) {
            if (changes.touch(*schema)) return update();
        }
    });
}

RunningEntryModel::Look RunningEntryModel::lookOf(const Ref<TimeEntry>& entry) {
    if (!entry) return {};
    const auto& project = entry->project.get();
    if (!project) return {.isRunning = true};
    const auto& client = project->client.get();
    return {true, true, text(project->name.get()), client ? text(client->name.get()) : QString(),
            text(project->colorHex.get())};
}

QString RunningEntryModel::projectTitle() const {
    return look_.hasProject ? look_.projectName : text(NoProject::name);
}

QString RunningEntryModel::projectColor() const {
    return look_.hasProject ? look_.color : text(NoProject::runningColor);
}

QString RunningEntryModel::badgeColor() const {
    return look_.hasProject ? look_.color : text(NoProject::badgeColor);
}

void RunningEntryModel::update() {
    showNotes();
    RunningEntryModel::tick();
    Look look = lookOf(services_.timer.running());
    if (look == look_) return;
    look_ = std::move(look);
    Q_EMIT changed();
}

void RunningEntryModel::tick() {
    const auto& time = services_.timer.elapsedLongText();
    auto elapsed = time.empty() ? QStringLiteral("0:00:00") : text(time);
    if (elapsed == elapsed_) return;
    elapsed_ = std::move(elapsed);
    Q_EMIT elapsedChanged();
}

void RunningEntryModel::setNotes(const QString& notes) {
    services_.timer.typeNotes(notes.toStdString());
    showNotes();
}

void RunningEntryModel::showNotes() {
    const auto& entry = services_.timer.running();
    QString notes = entry ? text(entry->notes.get()) : QString();
    if (notes == notes_) return;
    notes_ = std::move(notes);
    Q_EMIT notesChanged();
}

void RunningEntryModel::leaveNotes() {
    services_.timer.leaveNotes();
}

void RunningEntryModel::saveNotes() {
    leaveNotes();
    const auto entry = services_.timer.running();
    if (entry && entry->unitOfWork() != nullptr) services_.context.saveQuietly();
}

void RunningEntryModel::stop() {
    saveNotes();
    services_.timer.stop();
}

}  // namespace elmworth
