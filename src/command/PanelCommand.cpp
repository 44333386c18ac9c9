// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"

namespace elmworth {

/// The panel is the application's: there is nothing to do on a library.
void addPanelCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "panel", "Opens the panel of the application, which is started when none runs");
    command.whenGiven([&syntax] { syntax.opensPanel = true; });
}

}  // namespace elmworth
