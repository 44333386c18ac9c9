// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/panel/TrackedTotal.h"

namespace elmworth {

/// This week's time beside the goal in the setting "weeklyGoalHours", which is followed live.
class WeeklyGoalBarModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    /// Whether there is a goal: one of at least an hour.
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    /// "12:30 of 40h".
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    /// How much of the bar is filled, from 0 to 1. Follows the text.
    Q_PROPERTY(double ratio READ ratio NOTIFY changed FINAL)
    Q_PROPERTY(bool isReached READ isReached NOTIFY changed FINAL)

 public:
    explicit WeeklyGoalBarModel(const AppServices& services);

    [[nodiscard]] bool isShown() const noexcept { return goalHours_ >= 1; }
    [[nodiscard]] const QString& text() const noexcept { return text_; }
    [[nodiscard]] double ratio() const noexcept { return ratio_; }
    [[nodiscard]] bool isReached() const noexcept { return ratio_ >= 1; }

    /// After entries or the goal changed.
    void update();
    /// Lets the running entry's time show.
    void tick();

 Q_SIGNALS:
    void changed();

 private:
    const AppServices& services_;
    TrackedTotal total_;
    std::int64_t goalHours_ = 0;
    QString text_;
    double ratio_ = 0;
    Settings::Observation goalObservation_;
};

}  // namespace elmworth
