// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QProcess>
#include <QString>
#include <functional>

namespace elmworth::test {

/// Lets the loop turn until `condition` holds. False when it never does.
inline bool comesTrue(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(20'000);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
    }
    return true;
}

/// A message bus that nobody else is on. It ends with the object.
class PrivateSessionBus {
 public:
    PrivateSessionBus() {
        daemon_.setProcessChannelMode(QProcess::SeparateChannels);
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"),
                       QStringLiteral("--print-address")});
        while (daemon_.waitForReadyRead() && !daemon_.canReadLine()) {
        }
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    }
    PrivateSessionBus(const PrivateSessionBus&) = delete;
    PrivateSessionBus& operator=(const PrivateSessionBus&) = delete;
    ~PrivateSessionBus() {
        daemon_.terminate();
        daemon_.waitForFinished();
    }

    [[nodiscard]] const QString& address() const noexcept { return address_; }

    /// A connection of its own for each name.
    [[nodiscard]] QDBusConnection connect(const QString& name) const {
        return QDBusConnection::connectToBus(address_, name);
    }

 private:
    QProcess daemon_;
    QString address_;
};

}  // namespace elmworth::test
