// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QtQmlIntegration>

#include "records/Client.h"
#include "screens/AppServices.h"
#include "theme/FormSheetModel.h"

namespace elmworth {

/// The sheet that makes an invoice of unbilled time.
class NewInvoiceModel final : public elmworth::FormSheetModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")

 public:
    explicit NewInvoiceModel(const AppServices& services);

    /// Opens the sheet for `client`; null lets the person choose.
    void open(const Ref<Client>& client = nullptr);

    [[nodiscard]] QString title() const override { return QStringLiteral("New Invoice"); }

 Q_SIGNALS:
    /// An invoice was made and saved.
    void created(const elmworth::PersistentID& invoice);

 private:
    [[nodiscard]] bool isComplete() const override { return false; }
    [[nodiscard]] QString carryOut() override { return {}; }

    AppServices services_;
};

}  // namespace elmworth
