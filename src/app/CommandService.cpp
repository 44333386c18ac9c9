// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandService.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include "app/BusAdaptors.h"
#include "app/SessionBus.h"
#include "app/TerminalProgress.h"
#include "command/CommandLine.h"
#include "platform/SystemLog.h"

namespace elmworth {

CommandService::CommandService(LibraryServices& services, InvoicePainter& painter,
                               Activation& activation)
    : services_(services), painter_(painter), activation_(activation) {
    new CommandsAdaptor(*this);     // owned by this object
    new ApplicationAdaptor(*this);  // likewise
}

void CommandService::publish(const QDBusConnection& sessionBus) {
    if (!sessionBus.isConnected()) return;
    QDBusConnection(sessionBus).registerObject(QString::fromLatin1(bus::object), this);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        sessionBus.interface()->registerService(QString::fromLatin1(bus::service),
                                                QDBusConnectionInterface::QueueService);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered) return;
    const std::string reason = reply.isValid()
                                   ? std::string("another program has the name ") + bus::service
                                   : reply.error().message().toStdString();
    writeSystemLog("Elmworth: commands do not reach this window: " + reason);
}

CommandResult CommandService::run(const std::vector<std::string>& arguments,
                                  const CommandCaller& caller) {
    const auto commandLine = parseCommandLine(arguments);
    if (commandLine.answer) return *commandLine.answer;
    if (!commandLine.action) return failedCommand("There is no command to carry out.");
    if (services_.longWork().isRunning()) {
        return failedCommand(
            "Elmworth is at work on the whole library. Try again when that is done.");
    }
    const Locale callersLocale(caller.locale);
    TerminalProgress progress(caller.terminal, caller.lifeline);
    CommandEnvironment environment{services_.context(),
                                   services_.history(),
                                   services_.timer(),
                                   services_.profiles(),
                                   services_.clock(),
                                   callersLocale,
                                   Calendar(callersLocale, caller.zone),
                                   caller.workingFolder,
                                   &painter_,
                                   progress,
                                   FileAccess::forUmask(caller.umask & 0777),
                                   caller.standardInput,
                                   Locale(caller.moneyLocale),
                                   &services_.loginItem()};
    return runCommand(commandLine, environment);
}

}  // namespace elmworth
