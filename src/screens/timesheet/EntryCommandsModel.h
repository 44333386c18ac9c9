// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "screens/AppServices.h"
#include "screens/panel/HistoryModel.h"
#include "tracking/EntryService.h"

namespace elmworth {

/// What can be done to the entries of a timesheet, each of it a step of the history.
class EntryCommandsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")

 public:
    using IDs = std::vector<PersistentID>;

    /// Says in `history`, which outlives it, what it did and what it could not do.
    EntryCommandsModel(const AppServices& services, HistoryModel& history);

    void deleteEntries(const IDs& ids);
    /// Says so when the project was deleted meanwhile; nothing is moved then.
    void moveEntries(const IDs& ids, const PersistentID& project);
    void duplicateToToday(const PersistentID& id);
    void continueEntry(const PersistentID& id);
    /// As EntryService::save.
    Ref<TimeEntry> save(const EntryForm& form, const Ref<TimeEntry>& entry);

    /// Says what could not be done.
    void say(const QString& sentence);

    /// The entry of an identity; null when it is gone, and when it can't be read, which is said.
    [[nodiscard]] Ref<TimeEntry> entry(const PersistentID& id);

 Q_SIGNALS:
    /// Some of the entries are billed, and were left alone.
    void billedNotice();
    /// The entries are deleted, as far as they could be.
    void deleted();

 private:
    void tellOfBilled(const EntryTally& tally);

    UnitOfWork& context_;
    HistoryModel& history_;
    EntryService entries_;
};

}  // namespace elmworth
