// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandService.h"

#include <QDBusConnection>

#include "app/BusAdaptors.h"
#include "app/SessionBus.h"
#include "app/TerminalProgress.h"
#include "command/CommandLine.h"

namespace elmworth {

CommandService::CommandService(LibraryServices& services, InvoicePainter& painter,
                               Activation& activation)
    : services_(services), painter_(painter), activation_(activation) {
    new CommandsAdaptor(*this);     // owned by this object
    new ApplicationAdaptor(*this);  // likewise
}

bool CommandService::publish() {
    auto sessionBus = QDBusConnection::sessionBus();
    return sessionBus.isConnected() &&
           sessionBus.registerObject(QString::fromLatin1(bus::object), this) &&
           sessionBus.registerService(QString::fromLatin1(bus::service));
}

CommandResult CommandService::run(const std::vector<std::string>& arguments,
                                  const CommandCaller& caller) {
    const auto commandLine = parseCommandLine(arguments);
    if (commandLine.answer) return *commandLine.answer;
    if (!commandLine.action) return failedCommand("There is no command to carry out.");
    const Locale callersLocale(caller.locale);
    TerminalProgress progress(caller.terminal, caller.lifeline);
    CommandEnvironment environment{
        services_.context(),  services_.timer(), services_.profiles(),
        services_.clock(),    callersLocale,     Calendar(callersLocale, caller.zone),
        caller.workingFolder, &painter_,         progress};
    return runCommand(commandLine, environment);
}

}  // namespace elmworth
