// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicesModel.h"

namespace elmworth {

InvoicesModel::InvoicesModel(const AppServices& services, Confirmation& confirmation,
                             NewInvoiceModel& newInvoice)
    : services_(services), confirmation_(confirmation), newInvoice_(newInvoice) {}

}  // namespace elmworth
