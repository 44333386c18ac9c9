// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/EntryCommandsModel.h"

#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr const char* unreadable = "The library can't be read. Nothing was changed.";
constexpr const char* projectIsGone =
    "The project was deleted meanwhile. Nothing was moved: choose another one.";

QString countOfEntries(std::size_t count) {
    return QString::fromStdString(counted(count, "entry", "entries"));
}

}  // namespace

EntryCommandsModel::EntryCommandsModel(const AppServices& services, HistoryModel& history)
    : context_(services.context),
      history_(history),
      entries_(services.context, services.history, services.timer, services.now,
               services.calendar) {}

void EntryCommandsModel::deleteEntries(const IDs& ids) {
    EntryTally tally;
    try {
        tally = entries_.deleteEntries(ids);
    } catch (const StoreError&) {
        return say(QString::fromUtf8(unreadable));
    }
    if (tally == EntryTally{}) return;
    if (tally.changed > 0) {
        history_.tellOfStep(QStringLiteral("Deleted %1.").arg(countOfEntries(tally.changed)));
    }
    tellOfBilled(tally);
    Q_EMIT deleted();
}

void EntryCommandsModel::moveEntries(const IDs& ids, const PersistentID& project) {
    try {
        const auto target = context_.record<Project>(project);
        if (!target) return say(QString::fromUtf8(projectIsGone));
        tellOfBilled(entries_.moveEntries(ids, target));
    } catch (const StoreError&) {
        say(QString::fromUtf8(unreadable));
    }
}

void EntryCommandsModel::tellOfBilled(const EntryTally& tally) {
    if (tally.billed > 0) Q_EMIT billedNotice();
}

void EntryCommandsModel::duplicateToToday(const PersistentID& id) {
    try {
        entries_.duplicateEntryToToday(context_.record<TimeEntry>(id));
    } catch (const StoreError&) {
        say(QString::fromUtf8(unreadable));
    }
}

void EntryCommandsModel::continueEntry(const PersistentID& id) {
    try {
        entries_.continueEntry(context_.record<TimeEntry>(id));
    } catch (const StoreError&) {
        say(QString::fromUtf8(unreadable));
    }
}

Ref<TimeEntry> EntryCommandsModel::entry(const PersistentID& id) {
    try {
        return context_.record<TimeEntry>(id);
    } catch (const StoreError&) {
        say(QString::fromUtf8(unreadable));
        return nullptr;
    }
}

Ref<TimeEntry> EntryCommandsModel::save(const EntryForm& form, const Ref<TimeEntry>& entry) {
    return entries_.save(form, entry);
}

void EntryCommandsModel::say(const QString& sentence) {
    history_.say(sentence);
}

}  // namespace elmworth
