// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>

#include "platform/DateFormatter.h"
#include "platform/MoneyFormat.h"
#include "screens/clients/ClientCardContent.h"

namespace elmworth {

/// A client's card as finished texts.
struct ClientCardTexts {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString contact MEMBER contact)  ///< the e-mail address, or "No email"
    Q_PROPERTY(bool hasEmail MEMBER hasEmail)
    Q_PROPERTY(QString rate MEMBER rate)                  ///< "$120.00/h"
    Q_PROPERTY(QString projectCount MEMBER projectCount)  ///< of those that are not archived
    Q_PROPERTY(QString unbilled MEMBER unbilled)          ///< "12:30"
    Q_PROPERTY(QString value MEMBER value)                ///< "$1,500.00"
    Q_PROPERTY(QString lastInvoice MEMBER lastInvoice)    ///< "INV-7 · Mar 4"; empty without one
    Q_PROPERTY(QStringList projectNames MEMBER projectNames)    ///< the first of them
    Q_PROPERTY(QStringList projectColors MEMBER projectColors)  ///< "#RRGGBB", of the same ones
    Q_PROPERTY(QString more MEMBER more)                        ///< "+2"; empty when all show
    Q_PROPERTY(QString invoiceText MEMBER invoiceText)  ///< "Invoice $1,500.00"; empty for nothing
    Q_PROPERTY(QString summary MEMBER summary)          ///< all of it in a sentence, to be read out

 public:
    static constexpr std::size_t mostProjects = 4;

    QString name;
    QString contact;
    bool hasEmail = false;
    QString rate;
    QString projectCount;
    QString unbilled;
    QString value;
    QString lastInvoice;
    QStringList projectNames;
    QStringList projectColors;
    QString more;
    QString invoiceText;
    QString summary;

    /// Amounts read as in `money`; `days` writes the day of an invoice.
    [[nodiscard]] static ClientCardTexts of(const ClientCardContent& content,
                                            const DateFormatter& days,
                                            const Locale& money = currentMoneyLocale());
};

}  // namespace elmworth
