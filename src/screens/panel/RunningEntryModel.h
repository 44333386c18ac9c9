// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/AppServices.h"

namespace elmworth {

/// The entry that runs, as cards show it. All texts are finished. Only `elapsed` changes with each
/// second.
class RunningEntryModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)
    /// Empty without a project.
    Q_PROPERTY(QString projectName READ projectName NOTIFY changed FINAL)
    /// "No project" without one.
    Q_PROPERTY(QString projectTitle READ projectTitle NOTIFY changed FINAL)
    /// Empty without a client.
    Q_PROPERTY(QString clientName READ clientName NOTIFY changed FINAL)
    Q_PROPERTY(QString projectColor READ projectColor NOTIFY changed FINAL)  ///< "#RRGGBB"
    /// The same for a badge on a card, which has another colour where there is no project.
    Q_PROPERTY(QString badgeColor READ badgeColor NOTIFY changed FINAL)
    /// Hours, minutes and seconds, "1:05:09".
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY elapsedChanged FINAL)
    /// Writing changes the entry at once, but does not save.
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY notesChanged FINAL)

 public:
    enum class Follows {
        itself,   ///< the library and the timer
        itsOwner  ///< who calls `update` and `tick`
    };
    explicit RunningEntryModel(const AppServices& services, Follows follows = Follows::itself);

    [[nodiscard]] bool isRunning() const noexcept { return look_.isRunning; }
    [[nodiscard]] const QString& projectName() const noexcept { return look_.projectName; }
    [[nodiscard]] QString projectTitle() const;
    [[nodiscard]] const QString& clientName() const noexcept { return look_.clientName; }
    [[nodiscard]] QString projectColor() const;
    [[nodiscard]] QString badgeColor() const;
    [[nodiscard]] const QString& elapsed() const noexcept { return elapsed_; }
    [[nodiscard]] const QString& notes() const noexcept { return notes_; }
    virtual void setNotes(const QString& notes);

    /// Saves the notes, if the entry is still there.
    Q_INVOKABLE void saveNotes();
    /// What is typed next is another step of the history.
    Q_INVOKABLE void leaveNotes();
    /// Saves the notes, then stops the timer.
    Q_INVOKABLE void stop();

    /// After records or the running entry changed.
    virtual void update();
    /// Lets the running entry's time show.
    virtual void tick();

 Q_SIGNALS:
    void changed();
    void elapsedChanged();
    void notesChanged();

 protected:
    [[nodiscard]] const AppServices& services() const noexcept { return services_; }

 private:
    struct Look {
        bool isRunning = false;
        bool hasProject = false;
        QString projectName;
        QString clientName;
        QString color;  ///< the project's

        friend bool operator==(const Look&, const Look&) = default;
    };
    [[nodiscard]] static Look lookOf(const Ref<TimeEntry>& entry);
    void observe();
    void showNotes();

    AppServices services_;
    Look look_;
    QString elapsed_;
    QString notes_;
    TimerService::Observation timerObservation_;
    UnitOfWork::Observation libraryObservation_;
};

}  // namespace elmworth
