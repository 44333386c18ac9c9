// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "command/CommandSyntax.h"

namespace elmworth {

// The commands behind "elmworth invoice".
void addInvoiceListCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoicePreviewCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceCreateCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceShowCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoicePDFCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceSetCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceEmailCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceMarkCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceRenameCommand(CommandSyntax& syntax, CLI::App* invoice);
void addInvoiceDeleteCommand(CommandSyntax& syntax, CLI::App* invoice);

/// The invoice that a command is about.
void addNumber(CLI::App* command, std::string& number);

}  // namespace elmworth
