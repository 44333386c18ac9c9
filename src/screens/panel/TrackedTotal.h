// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/AppServices.h"

namespace elmworth {

/// The seconds tracked in the current day or week, followed from second to second without asking
/// the library each time.
class TrackedTotal {
 public:
    enum class Span { day, week };

    TrackedTotal(const AppServices& services, Span span) : services_(services), span_(span) {}

    /// Asks the library. To be called first, and after entries changed.
    void update();

    /// The total up to now. Asks the library when another day or week has begun, or the clock was
    /// set back.
    [[nodiscard]] double seconds();

 private:
    [[nodiscard]] double growth(Instant now) const;

    const AppServices& services_;
    Span span_;
    Instant askedAt_;
    Instant spanEnd_;
    double counted_ = 0;  ///< up to `askedAt_`
};

/// The time tracked today, at the head of the panel.
class TodayChipModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    /// Hours and minutes, "3:05".
    Q_PROPERTY(QString text READ text NOTIFY textChanged FINAL)

 public:
    explicit TodayChipModel(const AppServices& services);

    [[nodiscard]] const QString& text() const noexcept { return text_; }

    /// After entries changed.
    void update();
    /// Lets the running entry's time show.
    void tick();

 Q_SIGNALS:
    void textChanged();

 private:
    TrackedTotal total_;
    QString text_;
};

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
