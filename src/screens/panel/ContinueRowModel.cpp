// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ContinueRowModel.h"

#include "records/Client.h"

namespace elmworth {

namespace {

QString titleOf(const Ref<TimeEntry>& entry) {
    if (!entry) return {};
    return QStringLiteral("Continue %1").arg(QString::fromStdString(entry->project->name));
}

QString subtitleOf(const Ref<TimeEntry>& entry) {
    if (!entry) return {};
    auto notes = QString::fromStdString(entry->notes).simplified();  // the row has one line
    if (!notes.isEmpty()) return notes;
    const auto& client = entry->project->client.get();
    return client ? QString::fromStdString(client->name) : QString();
}

}  // namespace

ContinueRowModel::ContinueRowModel(const AppServices& services) : services_(services) {
    update();
}

void ContinueRowModel::update() {
    const auto entry = services_.timer.running() ? nullptr : services_.timer.lastContinuableEntry();
    auto title = titleOf(entry);
    auto subtitle = subtitleOf(entry);
    if (title == title_ && subtitle == subtitle_) return;
    title_ = std::move(title);
    subtitle_ = std::move(subtitle);
    Q_EMIT changed();
}

void ContinueRowModel::continueEntry() {
    if (const auto entry = services_.timer.lastContinuableEntry())
        services_.timer.continueEntry(entry);
}

}  // namespace elmworth
