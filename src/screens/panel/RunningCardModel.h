// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>

#include "screens/AppServices.h"
#include "screens/panel/RunningEntryModel.h"

namespace elmworth {

/// A word of warning when the running project has used most of its budget.
class BudgetChipModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    /// Whether at least 80% are used.
    Q_PROPERTY(bool isShown READ isShown NOTIFY textChanged FINAL)
    /// "85% of budget" or "Over budget"; empty when not shown.
    Q_PROPERTY(QString text READ text NOTIFY textChanged FINAL)

 public:
    explicit BudgetChipModel(const AppServices& services);

    [[nodiscard]] bool isShown() const noexcept { return !text_.isEmpty(); }
    [[nodiscard]] const QString& text() const noexcept { return text_; }

    /// Whether the panel is open. While it is not, the chip reads nothing and shows nothing.
    void setPanelOpen(bool isOpen);

    /// After records or the running entry changed: asks the library for the project's time.
    void update();
    /// Lets the running entry's time show.
    void tick();

    /// What the chip reads when `fraction` of a budget is used; empty below 0.8.
    [[nodiscard]] static QString textOf(double fraction);

 Q_SIGNALS:
    void textChanged();

 private:
    const AppServices& services_;
    bool isPanelOpen_ = false;
    std::optional<double> fraction_;  ///< at `askedAt_`; absent without a budget
    double budgetSeconds_ = 0;
    Instant askedAt_;
    QString text_;
};

/// Asks whether a timer that has run for ten hours was forgotten, and offers to end it earlier.
class LongRunningWarningModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    Q_PROPERTY(QString text READ text CONSTANT FINAL)
    /// "1 h after start (10:00 AM)" and so on, the items above "Now". Empty when not shown.
    Q_PROPERTY(QStringList choices READ choices NOTIFY changed FINAL)

 public:
    explicit LongRunningWarningModel(const AppServices& services);

    [[nodiscard]] bool isShown() const noexcept { return start_.has_value(); }
    [[nodiscard]] QString text() const;
    [[nodiscard]] const QStringList& choices() const noexcept { return choices_; }

    /// Looks at the running entry again; cheap enough for each second.
    void update();

    /// Stops the timer at the instant of `choices[choice]`. Does nothing when there is none.
    Q_INVOKABLE void stopAt(int choice);
    Q_INVOKABLE void stopNow();

 Q_SIGNALS:
    void changed();

 private:
    const AppServices& services_;
    std::optional<Instant> start_;  ///< of the entry that has run long
    QStringList choices_;
};

/// Asks whether the time that the machine slept while a timer ran counts as work.
class AwayPromptModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    /// The question, with the length of all sleeps together. Empty when not shown.
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    /// The help text of "Discard", with the time of the first sleep.
    Q_PROPERTY(QString discardHelp READ discardHelp NOTIFY changed FINAL)

 public:
    explicit AwayPromptModel(const AppServices& services);

    [[nodiscard]] bool isShown() const noexcept { return !text_.isEmpty(); }
    [[nodiscard]] const QString& text() const noexcept { return text_; }
    [[nodiscard]] const QString& discardHelp() const noexcept { return discardHelp_; }

    /// After the timer's sleeps changed.
    void update();

    Q_INVOKABLE void keep();
    Q_INVOKABLE void discard();

 Q_SIGNALS:
    void changed();

 private:
    const AppServices& services_;
    QString text_;
    QString discardHelp_;
};

/// The entry that runs, as the panel shows it: with what is to be said and asked about it. The
/// panel's model calls `update` and `tick`.
class RunningCardModel final : public elmworth::RunningEntryModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    Q_PROPERTY(elmworth::BudgetChipModel* budget READ budget CONSTANT FINAL)
    Q_PROPERTY(elmworth::LongRunningWarningModel* warning READ warning CONSTANT FINAL)
    Q_PROPERTY(elmworth::AwayPromptModel* away READ away CONSTANT FINAL)

 public:
    explicit RunningCardModel(const AppServices& services);

    [[nodiscard]] BudgetChipModel* budget() noexcept { return &budget_; }
    [[nodiscard]] LongRunningWarningModel* warning() noexcept { return &warning_; }
    [[nodiscard]] AwayPromptModel* away() noexcept { return &away_; }

    void setNotes(const QString& notes) override;
    /// True while others are told of typed notes, which change nothing else here.
    [[nodiscard]] bool isTyping() const noexcept { return isTyping_; }

    void update() override;
    void tick() override;

 private:
    BudgetChipModel budget_;
    LongRunningWarningModel warning_;
    AwayPromptModel away_;
    bool isTyping_ = false;
};

}  // namespace elmworth
