// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "command/CommandSyntax.h"

namespace elmworth {

// The commands behind "elmworth invoice".
void addInvoiceListCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoicePreviewCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceCreateCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceShowCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoicePDFCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceSetCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceEmailCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceMarkCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceRenameCommand(CommandSyntax& syntax, SubcommandSyntax invoice);
void addInvoiceDeleteCommand(CommandSyntax& syntax, SubcommandSyntax invoice);

/// The invoice that a command is about.
void addNumber(SubcommandSyntax command, std::string& number);

}  // namespace elmworth
