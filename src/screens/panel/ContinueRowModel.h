// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/AppServices.h"

namespace elmworth {

/// Offers to go on with the last finished entry while nothing runs.
class ContinueRowModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    /// "Continue Website".
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    /// The entry's notes in one line, else the client's name, else nothing.
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed FINAL)

 public:
    explicit ContinueRowModel(const AppServices& services);

    [[nodiscard]] bool isShown() const noexcept { return !title_.isEmpty(); }
    [[nodiscard]] const QString& title() const noexcept { return title_; }
    [[nodiscard]] const QString& subtitle() const noexcept { return subtitle_; }

    /// Continues the entry that is the last one by now.
    Q_INVOKABLE void continueEntry();

    /// After records or the running entry changed.
    void update();

 Q_SIGNALS:
    void changed();

 private:
    const AppServices& services_;
    QString title_;
    QString subtitle_;
};

}  // namespace elmworth
