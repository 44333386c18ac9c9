// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// The entry that runs, as cards show it. All texts are finished. Only `elapsed` changes with each
/// second.
class RunningEntryModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY runningChanged FINAL)
    /// Empty without a project.
    Q_PROPERTY(QString projectName READ projectName NOTIFY runningChanged FINAL)
    /// "No project" without one.
    Q_PROPERTY(QString projectTitle READ projectTitle NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString clientName READ clientName NOTIFY runningChanged FINAL)
    /// Writing changes the entry at once, but does not save.
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString projectColor READ projectColor NOTIFY runningChanged FINAL)
    /// The same for a badge on a card, which has another colour where there is no project.
    Q_PROPERTY(QString badgeColor READ badgeColor NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY elapsedChanged FINAL)

 public:
    RunningEntryModel(UnitOfWork& context, TimerService& timer);

    [[nodiscard]] bool isRunning() const { return timer_.running() != nullptr; }
    [[nodiscard]] QString projectName() const;
    [[nodiscard]] QString projectTitle() const;
    [[nodiscard]] QString clientName() const;
    [[nodiscard]] QString notes() const;
    void setNotes(const QString& notes);
    [[nodiscard]] QString projectColor() const;
    [[nodiscard]] QString badgeColor() const;
    [[nodiscard]] QString elapsed() const;

    /// The project that the timer runs on, or null.
    [[nodiscard]] Ref<Project> project() const;

    /// Saves the notes, if the entry is still there.
    Q_INVOKABLE void saveNotes();
    /// What is typed next is another step of the history.
    Q_INVOKABLE void leaveNotes();
    /// Saves the notes, then stops the timer.
    Q_INVOKABLE void stop();

 Q_SIGNALS:
    void runningChanged();
    void elapsedChanged();

 private:
    UnitOfWork& context_;
    TimerService& timer_;
    TimerService::Observation timerObservation_;
    UnitOfWork::Observation projectObservation_;
    UnitOfWork::Observation entryObservation_;
    UnitOfWork::Observation clientObservation_;
};

}  // namespace elmworth
