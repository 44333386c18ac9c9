// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>

#include "screens/AppServices.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// The section of the clients: a card for each, with what is to be billed.
class ClientsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")

 public:
    /// Asks in `confirmation`, which outlives it.
    ClientsModel(const AppServices& services, Confirmation& confirmation);

 Q_SIGNALS:
    /// The unbilled time of `client` is to be invoiced.
    void invoiceRequested(const elmworth::PersistentID& client);

 private:
    AppServices services_;
    Confirmation& confirmation_;
};

}  // namespace elmworth
