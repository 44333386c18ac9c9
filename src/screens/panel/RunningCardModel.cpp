// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/RunningCardModel.h"

#include "records/Client.h"
#include "theme/HexColor.h"

namespace elmworth {

RunningCardModel::RunningCardModel(const AppServices& services)
    : services_(services), budget_(services), warning_(services), away_(services) {
    update();
}

RunningCardModel::Look RunningCardModel::lookOf(const Ref<TimeEntry>& entry) {
    if (!entry) return {};
    const auto& project = entry->project.get();
    if (!project) return {true, QColor(0xFF, 0x5B, 0x87), QStringLiteral("No project"), {}};
    const auto& client = project->client.get();
    return {true, colorFromHex(QString::fromStdString(project->colorHex)),
            QString::fromStdString(project->name),
            client ? QString::fromStdString(client->name) : QString()};
}

void RunningCardModel::update() {
    const auto& entry = services_.timer.running();
    showNotes(entry ? QString::fromStdString(entry->notes) : QString());
    budget_.update();
    away_.update();
    tick();
    const Look look = lookOf(entry);
    if (look == look_) return;
    look_ = look;
    Q_EMIT changed();
}

void RunningCardModel::tick() {
    budget_.tick();
    warning_.update();
    const auto& text = services_.timer.elapsedLongText();
    auto elapsed = text.empty() ? QStringLiteral("0:00:00") : QString::fromStdString(text);
    if (elapsed == elapsed_) return;
    elapsed_ = std::move(elapsed);
    Q_EMIT elapsedChanged();
}

void RunningCardModel::setNotes(const QString& notes) {
    services_.context.deliverChanges();  // so that what follows tells of the notes alone
    const auto entry = services_.timer.running();
    if (!entry || entry->isDeleted() || notes == notes_) return;
    services_.timer.typeNotes(notes.toStdString());
    showNotes(notes);
    isTyping_ = true;
    services_.context.deliverChanges();
    isTyping_ = false;
}

void RunningCardModel::showNotes(QString notes) {
    if (notes == notes_) return;
    notes_ = std::move(notes);
    Q_EMIT notesChanged();
}

void RunningCardModel::leaveNotes() {
    services_.timer.leaveNotes();
}

void RunningCardModel::saveNotes() {
    leaveNotes();
    services_.context.saveQuietly();
}

void RunningCardModel::stop() {
    saveNotes();
    services_.timer.stop();
}

}  // namespace elmworth
