// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/AppServices.h"

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

}  // namespace elmworth
