// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <functional>

namespace elmworth {

/// A sentence that the desktop shows for a while, wherever it shows such. A desktop without that
/// shows nothing, and nobody waits for it.
class DesktopNotice final : public QObject {
    Q_OBJECT

 public:
    /// Without a bus nothing is ever shown. Calls `chosen` when a person presses the sentence.
    DesktopNotice(QDBusConnection bus, std::function<void()> chosen);

    /// Shows plain texts; what was shown before goes. Markup in them stays as it is typed.
    void show(const QString& title, const QString& text);

 private Q_SLOTS:
    void actionInvoked(uint number, const QString& action);
    void tokenGiven(uint number, const QString& token);

 private:
    QDBusConnection bus_;
    std::function<void()> chosen_;
    uint number_ = 0;  ///< the desktop's, of what it showed last
};

}  // namespace elmworth
