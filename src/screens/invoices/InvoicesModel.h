// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>
#include <vector>

#include "screens/invoices/InvoiceDetailModel.h"
#include "screens/invoices/InvoiceRowsModel.h"
#include "screens/invoices/InvoiceSummaryModel.h"
#include "screens/invoices/NewInvoiceModel.h"
#include "theme/Confirmation.h"
#include "theme/KeyedSelection.h"

namespace elmworth {

/// The section of the invoices: the list of them, and the one that is selected.
///
/// Follows the library and the day while it is shown. While it is not shown it does nothing, and
/// catches up when it is. The total of an invoice is computed when its row or the summary needs it.
class InvoicesModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    /// Whether somebody can see this.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged FINAL)
    /// The roles are those of `InvoiceRowsModel`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Of one invoice, also where the filter hides it.
    Q_PROPERTY(elmworth::KeyedSelection* selection READ selection CONSTANT FINAL)
    Q_PROPERTY(elmworth::InvoiceSummaryModel* summary READ summary CONSTANT FINAL)
    Q_PROPERTY(elmworth::InvoiceDetailModel* detail READ detail CONSTANT FINAL)
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    Q_PROPERTY(elmworth::NewInvoiceModel* newInvoice READ newInvoice CONSTANT FINAL)
    Q_PROPERTY(QString countText READ countText NOTIFY listed FINAL)
    /// Whether there are no invoices at all.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY listed FINAL)
    /// What is to be said where the filter leaves none; empty while it leaves some.
    Q_PROPERTY(QString noneText READ noneText NOTIFY listed FINAL)
    Q_PROPERTY(QStringList filterNames READ filterNames CONSTANT FINAL)
    Q_PROPERTY(int filter READ filter WRITE setFilter NOTIFY filterChanged FINAL)

 public:
    /// Asks in `confirmation`, and opens `newInvoice`; both outlive it.
    InvoicesModel(const AppServices& services, const InvoiceOutlets& outlets,
                  Confirmation& confirmation, NewInvoiceModel& newInvoice);

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    void setShown(bool shown);
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] const InvoiceRowsModel& rows() const noexcept { return rows_; }
    [[nodiscard]] KeyedSelection* selection() noexcept { return &selection_; }
    [[nodiscard]] InvoiceSummaryModel* summary() noexcept { return &summary_; }
    [[nodiscard]] InvoiceDetailModel* detail() noexcept { return &detail_; }
    [[nodiscard]] Confirmation* confirmation() noexcept { return &confirmation_; }
    [[nodiscard]] NewInvoiceModel* newInvoice() noexcept { return &newInvoice_; }
    [[nodiscard]] QString countText() const;
    [[nodiscard]] bool isEmpty() const noexcept { return list_.empty(); }
    [[nodiscard]] QString noneText() const;
    /// In the order of `InvoiceFilter`.
    [[nodiscard]] static QStringList filterNames();
    [[nodiscard]] int filter() const noexcept { return static_cast<int>(filter_); }
    /// Any number that is no filter does nothing.
    void setFilter(int position);

    Q_INVOKABLE void openNewInvoice();
    /// Selects `invoice`; the filter shows all again where it would hide it.
    void select(const PersistentID& invoice);

 Q_SIGNALS:
    void isShownChanged();
    void listed();
    void filterChanged();

 private:
    void followLibrary(const RecordChanges& changes);
    void refreshTouched(const RecordChanges& changes, std::unordered_set<PersistentID> outdated);
    void catchUp();
    void relist();
    void refilter();
    void refreshAll();
    void followDay();
    void selectionChanged();
    void loseGone();
    [[nodiscard]] Instant startOfToday() const;
    [[nodiscard]] std::optional<InvoiceLook> lookOf(const PersistentID& invoice);

    AppServices services_;
    Confirmation& confirmation_;
    NewInvoiceModel& newInvoice_;
    LiveInvoiceTotals totals_;
    InvoiceRowsModel rows_;
    RowSelection<PlainRows<InvoiceRow>> selection_{rows_, true};
    InvoiceSummaryModel summary_;
    InvoiceDetailModel detail_;
    InvoiceFilter filter_ = InvoiceFilter::all;
    std::vector<ListedInvoice> list_;
    Instant today_;
    bool isShown_ = false;
    bool isStale_ = true;  ///< something changed while it was not shown
    RunLoop::Handle day_;  ///< looks for another day while it is shown
    UnitOfWork::Observation libraryObservation_;
    ProfileStore::Observation profileObservation_;
};

}  // namespace elmworth
