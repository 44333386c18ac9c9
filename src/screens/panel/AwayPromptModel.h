// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/AppServices.h"

namespace elmworth {

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

}  // namespace elmworth
