// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <string>
#include <vector>

#include "app/Activation.h"
#include "app/LibraryServices.h"
#include "command/CommandEnvironment.h"
#include "command/CommandLine.h"

class QDBusConnection;

namespace elmworth {

/// Who hands a command over: relative paths are meant from `workingFolder`, dates read as in
/// `locale` and `zone`, amounts as in `moneyLocale`.
struct CommandCaller {
    std::string workingFolder;
    std::string locale;
    std::string moneyLocale;
    std::string zone;
    int terminal = -1;  ///< where to tell how far long work is; ignored unless it is a terminal
    int lifeline = -1;  ///< a pipe that is closed when the caller ends; long work then stops
    int standardInput = -1;  ///< a regular file with what was written to the command
    unsigned umask = 0077;   ///< the caller's, for the files that it names
};

/// The running application's object on the session bus: carries out commands that processes in
/// terminals hand over, and comes to the front when it is started again.
class CommandService final : public QObject {
    Q_OBJECT

 public:
    CommandService(LibraryServices& services, InvoicePainter& painter, Activation& activation);

    /// Answers on the session bus under the service's name from now on. While another process has
    /// the name, which the system log is told, this one waits for it. Does nothing without a bus.
    ///
    /// Only for the process that has the person's library: whoever has the name is given the
    /// commands for that library.
    void publish(const QDBusConnection& sessionBus);

    /// Carries out the command `arguments` for `caller`.
    [[nodiscard]] CommandResult run(const std::vector<std::string>& arguments,
                                    const CommandCaller& caller);
    [[nodiscard]] Activation& activation() noexcept { return activation_; }

 private:
    LibraryServices& services_;
    InvoicePainter& painter_;
    Activation& activation_;
};

}  // namespace elmworth
