// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is selected in the timesheet, and what is done to it.

#include "screens/timesheet/TimesheetModel.h"

#include "records/Client.h"

namespace elmworth {

std::vector<PersistentID> TimesheetModel::shownSelection() const {
    std::vector<PersistentID> ids;
    const auto& selected = selection_.keys();
    if (selected.empty() || rows_.listing() == nullptr) return ids;
    const auto& current = selection_.current();
    const bool isOne = current && selected.size() == 1 && selected.contains(current->entry);
    if (isOne && selection_.currentRow() >= 0) return {current->entry};
    for (const auto& place : rows_.listing()->entries) {
        const auto& id = place.entry().id;
        if (selected.contains(id)) ids.push_back(id);
    }
    return ids;
}

void TimesheetModel::askToDeleteSelected() {
    const auto ids = shownSelection();
    if (ids.empty()) return;
    confirmation_.ask(
        {.icon = QStringLiteral("trash"),
         .title = ids.size() == 1 ? QStringLiteral("Delete this entry?")
                                  : QStringLiteral("Delete %1 entries?").arg(ids.size()),
         .acceptText = QStringLiteral("Delete"),
         .isDestructive = true},
        [this, ids] { commands_.deleteEntries(ids); });
}

void TimesheetModel::tellOfBilled() {
    confirmation_.tell({.icon = QStringLiteral("lock"),
                        .title = QStringLiteral("Billed entries are read-only"),
                        .message = QStringLiteral(
                            "This time is on an invoice. Delete the invoice to release its entries "
                            "before editing or deleting them.")});
}

void TimesheetModel::edit(int row) {
    if (const auto entry = entryAt(row)) editor_.open(entry);
}

bool TimesheetModel::editSelected() {
    if (selection_.keys().size() != 1) return false;
    const auto shown = shownSelection();
    const auto entry = shown.empty() ? nullptr : commands_.entry(shown.front());
    if (entry) editor_.open(entry);
    return entry != nullptr;
}

void TimesheetModel::addEntry() {
    editor_.open(nullptr);
}

void TimesheetModel::addOnDay(int row) {
    if (const auto* line = rows_.rowAt(row)) editor_.open(nullptr, line->id.day);
}

void TimesheetModel::addOnCurrentDay() {
    const auto* line = rows_.rowAt(selection_.currentRow());
    if (line == nullptr) return addEntry();
    editor_.open(nullptr, line->id.day);
}

void TimesheetModel::continueEntry(int row) {
    const auto* line = rows_.rowAt(row);
    if (line != nullptr && !line->isHead()) commands_.continueEntry(line->id.entry);
}

bool TimesheetModel::openMenu(int row) {
    const auto entry = entryAt(row);
    if (!entry) return false;
    menuEntry_ = entry->id();
    menuPlace_ = {rows_.rowAt(row)->id, entry->start};
    menuIDs_ = {menuEntry_};
    if (selection_.contains(menuEntry_)) {
        menuIDs_.assign(selection_.keys().begin(), selection_.keys().end());
    }
    menuOffersContinue_ = !entry->isRunning() && entry->project.get() != nullptr;
    menuOffersMove_ = !entry->invoice;
    offerMenuProjects();
    Q_EMIT menuChanged();
    return true;
}

void TimesheetModel::offerMenuProjects() {
    std::vector<Choices<PersistentID>::Choice> choices;
    for (const auto& project : filter_.currentProjects()) {
        QString name = QString::fromStdString(project->name);
        if (const auto client = project->client.get()) {
            name += QStringLiteral(" — ") + QString::fromStdString(client->name);
        }
        choices.push_back({project->id(), name});
    }
    menuProjects_.setChosen(std::nullopt);
    menuProjects_.offer(std::move(choices));
}

void TimesheetModel::menuEdit() {
    if (const auto entry = commands_.entry(menuEntry_)) editor_.open(entry);
}

void TimesheetModel::menuContinue() {
    commands_.continueEntry(menuEntry_);
}

void TimesheetModel::menuDuplicate() {
    commands_.duplicateToToday(menuEntry_);
}

void TimesheetModel::menuDelete() {
    selection_.stayAt(menuPlace_);
    commands_.deleteEntries(menuIDs_);
}

}  // namespace elmworth
