// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is selected in the timesheet, and what is done to it.

#include "screens/timesheet/TimesheetModel.h"

#include "records/Client.h"

namespace elmworth {

int TimesheetModel::currentRow() const {
    return selection_.current() ? rows_.position(*selection_.current()) : -1;
}

void TimesheetModel::selectionChanged() {
    rows_.showSelection(selection_.ids());
    Q_EMIT currentRowChanged();
}

void TimesheetModel::click(int row, Qt::KeyboardModifiers modifiers) {
    const auto* line = rows_.rowAt(row);
    if (line == nullptr || line->isHead()) return;
    const auto at = static_cast<std::size_t>(row);
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        selection_.extendTo(rows_.rows(), at);
    } else if (modifiers.testFlag(Qt::ControlModifier)) {
        selection_.toggle(rows_.rows(), at);
    } else {
        selection_.select(rows_.rows(), at);
    }
    selectionChanged();
}

void TimesheetModel::moveCurrent(int entries, bool extends) {
    const auto reached = selection_.stepFrom(rows_.rows(), entries);
    if (!reached) return;
    if (extends) {
        selection_.extendTo(rows_.rows(), *reached);
    } else {
        selection_.select(rows_.rows(), *reached);
    }
    selectionChanged();
}

void TimesheetModel::selectAll() {
    selection_.selectAll(rows_.rows());
    selectionChanged();
}

void TimesheetModel::clearSelection() {
    if (selection_.ids().empty() && !selection_.current()) return;
    selection_.clear();
    selectionChanged();
}

void TimesheetModel::clearDeleted() {
    selection_.clearKeepingPlace();
    selectionChanged();
}

std::vector<PersistentID> TimesheetModel::shownSelection() const {
    std::vector<PersistentID> ids;
    if (selection_.ids().empty()) return ids;
    if (rows_.listing() == nullptr) return ids;
    const auto& current = selection_.current();
    const bool isOne = current && selection_.ids().size() == 1;
    if (isOne && selection_.ids().contains(current->entry) && currentRow() >= 0) {
        return {current->entry};
    }
    for (const auto& place : rows_.listing()->entries) {
        const auto& id = place.entry().id;
        if (selection_.ids().contains(id)) ids.push_back(id);
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
    confirmation_.tell({.icon = QStringLiteral("lock.fill"),
                        .title = QStringLiteral("Billed entries are read-only"),
                        .message = QStringLiteral(
                            "This time is on an invoice. Delete the invoice to release its entries "
                            "before editing or deleting them.")});
}

void TimesheetModel::edit(int row) {
    if (const auto entry = entryAt(row)) editor_.open(entry);
}

bool TimesheetModel::editSelected() {
    if (selection_.ids().size() != 1) return false;
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
    const auto* line = rows_.rowAt(currentRow());
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
    menuSpot_ = {rows_.rowAt(row)->id, entry->start};
    menuIDs_ = {menuEntry_};
    if (selection_.ids().contains(menuEntry_)) {
        menuIDs_.assign(selection_.ids().begin(), selection_.ids().end());
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
    if (!selection_.current()) selection_.stayAt(menuSpot_);
    commands_.deleteEntries(menuIDs_);
}

}  // namespace elmworth
