// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>

namespace elmworth::test {

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
