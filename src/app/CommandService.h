// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <string>
#include <vector>

#include "app/LibraryServices.h"
#include "command/CommandEnvironment.h"
#include "command/CommandLine.h"

namespace elmworth {

/// The running application's object on the session bus: carries out commands that processes in
/// terminals hand over, and comes to the front when it is started again.
class CommandService final : public QObject {
    Q_OBJECT

 public:
    CommandService(LibraryServices& services, InvoicePainter& painter,
                   std::function<void()> activate);

    /// Takes the service's name on the session bus. False without a bus, or when another process
    /// has the name.
    bool publish();

    /// Carries out the command `arguments`; relative paths are meant from `workingFolder`, dates
    /// and amounts read as in `locale` and `zone`.
    [[nodiscard]] CommandResult run(const std::vector<std::string>& arguments,
                                    const std::string& workingFolder, const std::string& locale,
                                    const std::string& zone);
    void activate() { activate_(); }

 private:
    LibraryServices& services_;
    InvoicePainter& painter_;
    std::function<void()> activate_;
};

}  // namespace elmworth
