// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <cstddef>

#include "invoicing/InvoiceCalculator.h"
#include "invoicing/InvoiceRenderModel.h"
#include "screens/AppServices.h"

namespace elmworth {

/// What a screen says of one invoice, as finished texts.
struct InvoiceFacts {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString number MEMBER number)
    Q_PROPERTY(QString subtitle MEMBER subtitle)  ///< client and period
    Q_PROPERTY(int status MEMBER status)          ///< its position in `allInvoiceStatuses`
    Q_PROPERTY(bool isDraft MEMBER isDraft)
    Q_PROPERTY(bool isOverdue MEMBER isOverdue)
    Q_PROPERTY(QString total MEMBER total)
    Q_PROPERTY(QString totalCaption MEMBER totalCaption)
    Q_PROPERTY(QString hours MEMBER hours)
    Q_PROPERTY(QString hoursCaption MEMBER hoursCaption)
    Q_PROPERTY(QString dueDate MEMBER dueDate)
    Q_PROPERTY(QString dueCaption MEMBER dueCaption)
    Q_PROPERTY(QString nextStep MEMBER nextStep)  ///< what its button says; empty for none
    Q_PROPERTY(bool showsEntries MEMBER showsEntries)
    Q_PROPERTY(QString problem MEMBER problem)  ///< why there are no figures; empty when there are

 public:
    QString number;
    QString subtitle;
    int status = 0;
    bool isDraft = false;
    bool isOverdue = false;
    QString total;
    QString totalCaption;
    QString hours;
    QString hoursCaption;
    QString dueDate;
    QString dueCaption;
    QString nextStep;
    bool showsEntries = false;
    QString problem;
    std::size_t entryCount = 0;
};

/// The facts of `invoice`, on which there are `entryCount` entries, and whose head is that of
/// `head`. Without `totals` its figures are "—".
[[nodiscard]] InvoiceFacts factsOf(const Invoice& invoice, std::size_t entryCount,
                                   const InvoiceRenderModel& head,
                                   const InvoiceCalculator::Totals* totals,
                                   const AppServices& services);

}  // namespace elmworth
