// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>

#include "screens/AppServices.h"
#include "screens/invoices/NewInvoiceModel.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// The section of the invoices: the list of them, and the one that is selected.
class InvoicesModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")

 public:
    /// Asks in `confirmation`, and opens `newInvoice`; both outlive it.
    InvoicesModel(const AppServices& services, Confirmation& confirmation,
                  NewInvoiceModel& newInvoice);

 private:
    AppServices services_;
    Confirmation& confirmation_;
    NewInvoiceModel& newInvoice_;
};

}  // namespace elmworth
