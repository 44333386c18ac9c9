// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "invoicing/InvoiceFiles.h"
#include "platform/DesktopFiles.h"
#include "platform/MoneyFormat.h"
#include "records/Invoice.h"
#include "screens/AppServices.h"

namespace elmworth {

/// The ways on which invoices leave the program. All of it outlives the models.
struct InvoiceOutlets {
    InvoicePainter& painter;
    DesktopFiles& files;
};

/// How the screens write dates and amounts.
[[nodiscard]] inline InvoiceFormats screenFormats(const AppServices& services) {
    return {services.locale, currentMoneyLocale(), services.calendar().zoneID()};
}

/// The name of the invoice's client, empty without one.
[[nodiscard]] std::string clientName(const Invoice& invoice);

}  // namespace elmworth
