// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDBusAbstractAdaptor>
#include <QDBusUnixFileDescriptor>
#include <QStringList>
#include <QVariantMap>

#include "app/CommandService.h"

namespace elmworth {

/// org.elmworth.Commands: commands from terminals.
class CommandsAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.elmworth.Commands")

 public:
    explicit CommandsAdaptor(CommandService& service)
        : QDBusAbstractAdaptor(&service), service_(service) {}

 public Q_SLOTS:
    /// `terminal` is the caller's standard error; `lifeline` is a pipe that is closed when the
    /// caller ends, and `standardInput` a regular file with what was written to the command.
    /// `umask` is the caller's. `library` is the lock file beside the library, which the caller has
    /// open for writing. Other programs on the bus, such as those in a sandbox, can't show that and
    /// are refused: a command can export all there is, and delete it.
    QByteArray Run(const QStringList& arguments, const QString& workingFolder,
                   const QString& locale, const QString& moneyLocale, const QString& zone,
                   const QDBusUnixFileDescriptor& terminal, const QDBusUnixFileDescriptor& lifeline,
                   const QDBusUnixFileDescriptor& standardInput,
                   const QDBusUnixFileDescriptor& library, unsigned umask, QByteArray& errors,
                   int& exitStatus);

 private:
    CommandService& service_;
};

/// org.freedesktop.Application, as far as a program without documents needs it. For all programs on
/// the bus: what it does starts and stops the timer, and shows windows in which a person decides.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
    explicit ApplicationAdaptor(CommandService& service)
        : QDBusAbstractAdaptor(&service), service_(service) {}

 public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameters,
                        const QVariantMap& platformData);

 private:
    CommandService& service_;
};

}  // namespace elmworth
