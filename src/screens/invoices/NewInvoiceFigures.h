// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <cstdint>
#include <optional>
#include <vector>

#include "invoicing/InvoiceService.h"
#include "livelist/LiveListModel.h"
#include "screens/AppServices.h"

namespace elmworth {

/// A line that the invoice will have.
struct NewInvoiceLine {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString name MEMBER name)      ///< of the project
    Q_PROPERTY(QString detail MEMBER detail)  ///< "12.50 h × $95.00"
    Q_PROPERTY(QString amount MEMBER amount)

 public:
    int id = 0;  ///< its position
    QString name;
    QString detail;
    QString amount;

    friend bool operator==(const NewInvoiceLine&, const NewInvoiceLine&) = default;
};

/// What an invoice would come to, as text: by the functions that will compute it once it is made.
class NewInvoiceFigures : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The sheet's model has it")
    /// The roles are the properties of `NewInvoiceLine`.
    Q_PROPERTY(QAbstractItemModel* lines READ linesModel CONSTANT FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)  ///< has no lines
    Q_PROPERTY(bool hasTax READ hasTax NOTIFY changed FINAL)    ///< of a cent or more
    Q_PROPERTY(QString subtotal READ subtotal NOTIFY changed FINAL)
    Q_PROPERTY(QString tax READ tax NOTIFY changed FINAL)
    Q_PROPERTY(QString total READ total NOTIFY changed FINAL)
    Q_PROPERTY(QString entriesText READ entriesText NOTIFY changed FINAL)  ///< "12 entries"

 public:
    /// What the invoice is to be made of.
    struct Terms {
        Ref<Client> client;  ///< null for none yet
        DateInterval period;
        std::int64_t taxBasisPoints = 0;
        std::int64_t roundingMinutes = 1;

        friend bool operator==(const Terms&, const Terms&) = default;
    };

    explicit NewInvoiceFigures(AppServices services) : services_(std::move(services)) {}

    /// Shows the figures for `terms`. Those that show already are not computed again, and entries
    /// are not read again for another tax or rounding, until `libraryChanged`.
    void show(const Terms& terms);
    /// What was read from the library may be out of date.
    void libraryChanged() { isStale_ = true; }
    void clear();

    [[nodiscard]] QAbstractItemModel* linesModel() noexcept { return &lines_; }
    [[nodiscard]] const std::vector<NewInvoiceLine>& lines() const noexcept {
        return lines_.rows();
    }
    [[nodiscard]] bool isEmpty() const noexcept { return totals_.lines.empty(); }
    [[nodiscard]] bool hasTax() const noexcept { return totals_.taxCents >= 1; }
    [[nodiscard]] QString subtotal() const { return money(totals_.subtotalCents); }
    [[nodiscard]] QString tax() const { return money(totals_.taxCents); }
    [[nodiscard]] QString total() const { return money(totals_.totalCents); }
    [[nodiscard]] QString entriesText() const;
    [[nodiscard]] std::size_t entryCount() const noexcept { return entries_.size(); }
    [[nodiscard]] const InvoiceCalculator::Totals& totals() const noexcept { return totals_; }
    /// Why there are no figures, as a sentence; empty when there are.
    [[nodiscard]] const QString& problem() const noexcept { return problem_; }

 Q_SIGNALS:
    void changed();

 private:
    [[nodiscard]] InvoiceService service() const;
    void read();
    void price();
    void showLines();
    [[nodiscard]] QString money(std::int64_t cents) const;

    AppServices services_;
    std::optional<Terms> terms_;
    bool isStale_ = true;
    std::vector<Ref<TimeEntry>> entries_;
    InvoiceCalculator::Totals totals_;
    std::string currency_;
    QString problem_;
    LiveListModel<NewInvoiceLine> lines_;
};

}  // namespace elmworth
