// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "invoicing/InvoiceList.h"
#include "invoicing/LiveInvoiceTotals.h"
#include "screens/AppServices.h"

namespace elmworth {

/// What is owed: the sums of the invoices that are sent, and of those of them that are overdue. The
/// time of many is read in steps of the run loop.
class InvoiceSummaryModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The section's model has it")
    Q_PROPERTY(QString outstanding READ outstanding NOTIFY changed FINAL)
    Q_PROPERTY(QString overdue READ overdue NOTIFY changed FINAL)
    Q_PROPERTY(bool hasOverdue READ hasOverdue NOTIFY changed FINAL)
    /// What a sum leaves out; empty when it leaves out nothing.
    Q_PROPERTY(QString outstandingNote READ outstandingNote NOTIFY changed FINAL)

 public:
    /// Asks `totals`, which outlives it.
    InvoiceSummaryModel(const AppServices& services, LiveInvoiceTotals& totals);

    /// Sums up those of `invoices` that are sent, on the day that begins at `today`.
    void show(const std::vector<ListedInvoice>& invoices, Instant today);
    /// Sums up the same ones again, as totals or currencies are others now.
    void refresh();

    [[nodiscard]] const QString& outstanding() const noexcept { return shown_.outstanding; }
    [[nodiscard]] const QString& overdue() const noexcept { return shown_.overdue; }
    [[nodiscard]] bool hasOverdue() const noexcept { return shown_.hasOverdue; }
    [[nodiscard]] const QString& outstandingNote() const noexcept { return shown_.note; }

 Q_SIGNALS:
    void changed();

 private:
    struct Sent {
        Ref<Invoice> invoice;
        bool isOverdue = false;
    };
    struct Shown {
        QString outstanding = QStringLiteral("…");
        QString overdue = QStringLiteral("…");
        QString note{};
        bool hasOverdue = false;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    [[nodiscard]] bool readSome();
    [[nodiscard]] Shown summedUp();

    AppServices services_;
    LiveInvoiceTotals& totals_;
    std::vector<Sent> sent_;
    Shown shown_;
    RunLoop::Handle next_;
};

}  // namespace elmworth
