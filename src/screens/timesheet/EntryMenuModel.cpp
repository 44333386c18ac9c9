// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/EntryMenuModel.h"

#include "records/Client.h"
#include "records/Invoice.h"

namespace elmworth {

EntryMenuModel::EntryMenuModel(EntryCommandsModel& commands, EntryEditorModel& editor,
                               TimesheetSelection& selection)
    : commands_(commands), editor_(editor), selection_(selection) {
    connect(&projects_, &ChoiceModel::picked, this,
            [this] { commands_.moveEntries(ids_, *projects_.chosen()); });
}

void EntryMenuModel::open(const TimeEntry& entry, const Place& place,
                          const std::vector<Ref<Project>>& projects) {
    entry_ = entry.id();
    place_ = place;
    ids_ = {entry_};
    if (selection_.contains(entry_))
        ids_.assign(selection_.keys().begin(), selection_.keys().end());
    offersContinue_ = !entry.isRunning() && entry.project.get() != nullptr;
    offersMove_ = !entry.invoice;
    offer(projects);
    Q_EMIT changed();
}

void EntryMenuModel::offer(const std::vector<Ref<Project>>& projects) {
    std::vector<Choices<PersistentID>::Choice> choices;
    for (const auto& project : projects) {
        QString name = QString::fromStdString(project->name);
        if (const auto client = project->client.get()) {
            name += QStringLiteral(" — ") + QString::fromStdString(client->name);
        }
        choices.push_back({project->id(), name});
    }
    projects_.setChosen(std::nullopt);
    projects_.offer(std::move(choices));
}

void EntryMenuModel::edit() {
    if (const auto entry = commands_.entry(entry_)) editor_.open(entry);
}

void EntryMenuModel::continueEntry() {
    commands_.continueEntry(entry_);
}

void EntryMenuModel::duplicate() {
    commands_.duplicateToToday(entry_);
}

void EntryMenuModel::remove() {
    selection_.stayAt(place_);
    commands_.deleteEntries(ids_);
}

}  // namespace elmworth
