// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceEmail.h"

namespace elmworth {

std::string emailText(const InvoiceRenderModel& model, const std::string& clientName) {
    std::string text = "Hi " + (clientName.empty() ? "there" : clientName) + ",\n\n";
    text += "Please find attached invoice " + model.number + " for " + model.total + ", due " +
            model.dueDate + ".\n";
    if (!model.paymentInstructions.empty()) {
        text += "\nPayment details:\n" + model.paymentInstructions + '\n';
    }
    text += "\nThank you!";
    if (!model.business.name.empty()) text += '\n' + model.business.name;
    return text;
}

}  // namespace elmworth
