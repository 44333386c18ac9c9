// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/AppServices.h"
#include "screens/panel/AwayPromptModel.h"
#include "screens/panel/BudgetChipModel.h"
#include "screens/panel/LongRunningWarningModel.h"

namespace elmworth {

/// The running timer: what it runs on, for how long, and what is to be said about it.
class RunningCardModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    /// The tint of the card.
    Q_PROPERTY(QColor color READ color NOTIFY changed FINAL)
    Q_PROPERTY(QString projectName READ projectName NOTIFY changed FINAL)
    /// Empty without a client.
    Q_PROPERTY(QString clientName READ clientName NOTIFY changed FINAL)
    /// Hours, minutes and seconds, "1:05:09".
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY elapsedChanged FINAL)
    /// The notes of the running entry. Writing changes the entry at once but does not save.
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY notesChanged FINAL)
    Q_PROPERTY(elmworth::BudgetChipModel* budget READ budget CONSTANT FINAL)
    Q_PROPERTY(elmworth::LongRunningWarningModel* warning READ warning CONSTANT FINAL)
    Q_PROPERTY(elmworth::AwayPromptModel* away READ away CONSTANT FINAL)

 public:
    explicit RunningCardModel(const AppServices& services);

    [[nodiscard]] bool isShown() const noexcept { return look_.isShown; }
    [[nodiscard]] const QColor& color() const noexcept { return look_.color; }
    [[nodiscard]] const QString& projectName() const noexcept { return look_.projectName; }
    [[nodiscard]] const QString& clientName() const noexcept { return look_.clientName; }
    [[nodiscard]] const QString& elapsed() const noexcept { return elapsed_; }
    [[nodiscard]] const QString& notes() const noexcept { return notes_; }
    [[nodiscard]] BudgetChipModel* budget() noexcept { return &budget_; }
    [[nodiscard]] LongRunningWarningModel* warning() noexcept { return &warning_; }
    [[nodiscard]] AwayPromptModel* away() noexcept { return &away_; }

    void setNotes(const QString& notes);
    /// True while others are told of typed notes, which change nothing else here.
    [[nodiscard]] bool isTyping() const noexcept { return isTyping_; }

    /// Saves the notes.
    Q_INVOKABLE void saveNotes();
    /// What is typed next is another step of the history.
    Q_INVOKABLE void leaveNotes();
    /// Saves the notes, then stops the timer.
    Q_INVOKABLE void stop();

    /// After records or the running entry changed.
    void update();
    /// Lets the running entry's time show.
    void tick();

 Q_SIGNALS:
    void changed();
    void elapsedChanged();
    void notesChanged();

 private:
    struct Look {
        bool isShown = false;
        QColor color;
        QString projectName;
        QString clientName;

        friend bool operator==(const Look&, const Look&) = default;
    };
    [[nodiscard]] static Look lookOf(const Ref<TimeEntry>& entry);
    void showNotes(QString notes);

    const AppServices& services_;
    BudgetChipModel budget_;
    LongRunningWarningModel warning_;
    AwayPromptModel away_;
    Look look_;
    QString elapsed_;
    QString notes_;
    bool isTyping_ = false;
};

}  // namespace elmworth
