// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/panel/TrackedTotal.h"

namespace elmworth {

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

}  // namespace elmworth
