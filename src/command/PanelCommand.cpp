// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"

namespace elmworth {

namespace {

/// The windows are the application's: there is nothing to do on a library.
void addOpening(CommandSyntax& syntax, const std::string& action, const std::string& help) {
    auto command = syntax.program.subcommand(action, help);
    command.whenGiven([&syntax, action] { syntax.opens = action; });
}

}  // namespace

void addPanelCommand(CommandSyntax& syntax) {
    addOpening(syntax, "panel",
               "Opens the panel of the application, which is started when none runs");
}

void addNewInvoiceCommand(CommandSyntax& syntax) {
    addOpening(
        syntax, "new-invoice",
        "Opens the sheet for a new invoice in the application, which is started when none runs");
}

}  // namespace elmworth
