// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"

namespace elmworth {

void addInvoiceCommand(CommandSyntax& syntax) {
    auto invoice =
        syntax.program.subcommand("invoice", "Makes, shows, changes and prints invoices");
    invoice.requireSubcommand();
    addInvoiceListCommand(syntax, invoice);
    addInvoicePreviewCommand(syntax, invoice);
    addInvoiceCreateCommand(syntax, invoice);
    addInvoiceShowCommand(syntax, invoice);
    addInvoicePDFCommand(syntax, invoice);
    addInvoiceSetCommand(syntax, invoice);
    addInvoiceEmailCommand(syntax, invoice);
    addInvoiceMarkCommand(syntax, invoice);
    addInvoiceRenameCommand(syntax, invoice);
    addInvoiceDeleteCommand(syntax, invoice);
}

void addNumber(SubcommandSyntax command, std::string& number) {
    command.option("NUMBER", number, "The invoice's number, such as INV-2026-001").required();
}

}  // namespace elmworth
