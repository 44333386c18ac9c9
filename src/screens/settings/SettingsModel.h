// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/settings/BusinessSettings.h"
#include "screens/settings/DataExchange.h"
#include "screens/settings/GeneralSettings.h"
#include "screens/settings/InvoiceSettings.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// The settings window: its tabs, what it asks, and what it could not keep.
class SettingsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    Q_PROPERTY(elmworth::BusinessSettings* business READ business CONSTANT FINAL)
    Q_PROPERTY(elmworth::InvoiceSettings* invoices READ invoices CONSTANT FINAL)
    Q_PROPERTY(elmworth::GeneralSettings* general READ general CONSTANT FINAL)
    Q_PROPERTY(elmworth::DataExchange* exchange READ exchange CONSTANT FINAL)
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    /// Why the last change was not kept, as a sentence; empty when it was.
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged FINAL)

 public:
    explicit SettingsModel(const SettingsServices& services)
        : business_(services, keeper_),
          invoices_(services.app.profiles, keeper_),
          general_(services, keeper_),
          exchange_(services, confirmation_) {
        connect(&keeper_, &SettingsKeeper::problemChanged, this, &SettingsModel::problemChanged);
    }

    [[nodiscard]] BusinessSettings* business() { return &business_; }
    [[nodiscard]] InvoiceSettings* invoices() { return &invoices_; }
    [[nodiscard]] GeneralSettings* general() { return &general_; }
    [[nodiscard]] DataExchange* exchange() { return &exchange_; }
    [[nodiscard]] Confirmation* confirmation() { return &confirmation_; }
    [[nodiscard]] const QString& problem() const { return keeper_.problem(); }

    /// Shows what there is, whatever was typed: for a window that opens.
    Q_INVOKABLE void reload() {
        keeper_.forgetProblem();
        business_.reload();
        invoices_.reload();
        general_.reload();
    }

 Q_SIGNALS:
    void problemChanged();

 private:
    SettingsKeeper keeper_;
    Confirmation confirmation_;
    BusinessSettings business_;
    InvoiceSettings invoices_;
    GeneralSettings general_;
    DataExchange exchange_;
};

}  // namespace elmworth
