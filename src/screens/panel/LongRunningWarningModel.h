// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>

#include "screens/AppServices.h"

namespace elmworth {

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

}  // namespace elmworth
