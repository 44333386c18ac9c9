// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>
#include <vector>

#include "screens/panel/EntryEditorModel.h"
#include "screens/timesheet/EntryCommandsModel.h"
#include "screens/timesheet/TimesheetFilterModel.h"
#include "screens/timesheet/TimesheetSelection.h"

namespace elmworth {

/// What the menu of a line offers and does. Whatever changes elsewhere while it is open, it keeps
/// to the entries that it was opened for.
class EntryMenuModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")
    Q_PROPERTY(bool offersContinue READ offersContinue NOTIFY changed FINAL)
    Q_PROPERTY(bool offersMove READ offersMove NOTIFY changed FINAL)
    /// A project that is chosen gets the entries.
    Q_PROPERTY(elmworth::ChoiceModel* projects READ projects CONSTANT FINAL)

 public:
    using Place = TimesheetEntryLines::Place;

    /// All of them outlive this.
    EntryMenuModel(EntryCommandsModel& commands, EntryEditorModel& editor,
                   TimesheetSelection& selection);

    /// Readies it for the line of `entry` at `place`: it acts on the selection when that holds the
    /// line, else on the line alone. `projects` are those to move to.
    void open(const TimeEntry& entry, const Place& place,
              const std::vector<Ref<Project>>& projects);

    [[nodiscard]] bool offersContinue() const noexcept { return offersContinue_; }
    [[nodiscard]] bool offersMove() const noexcept { return offersMove_; }
    [[nodiscard]] ChoiceModel* projects() noexcept { return &projects_; }
    Q_INVOKABLE void edit();
    Q_INVOKABLE void continueEntry();
    Q_INVOKABLE void duplicate();
    Q_INVOKABLE void remove();

 Q_SIGNALS:
    void changed();

 private:
    void offer(const std::vector<Ref<Project>>& projects);

    EntryCommandsModel& commands_;
    EntryEditorModel& editor_;
    TimesheetSelection& selection_;
    Choices<PersistentID> projects_;
    PersistentID entry_;
    Place place_;
    std::vector<PersistentID> ids_;
    bool offersContinue_ = false;
    bool offersMove_ = false;
};

}  // namespace elmworth
