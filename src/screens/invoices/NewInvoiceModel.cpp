// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/NewInvoiceModel.h"

namespace elmworth {

NewInvoiceModel::NewInvoiceModel(const AppServices& services) : services_(services) {}

void NewInvoiceModel::open(const Ref<Client>& /*client*/) {
    dismiss();
    show();
}

}  // namespace elmworth
