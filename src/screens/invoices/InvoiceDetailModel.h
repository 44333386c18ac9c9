// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>

#include "invoicing/InvoiceService.h"
#include "invoicing/LiveInvoiceTotals.h"
#include "screens/invoices/InvoiceDatesModel.h"
#include "screens/invoices/InvoiceDelivery.h"
#include "screens/invoices/InvoiceFacts.h"
#include "screens/invoices/InvoicePreviewModel.h"

namespace elmworth {

/// The invoice that is selected: its figures, its pages, and what can be done with it. What it may
/// do depends on the status. What goes wrong is said by `delivery`.
class InvoiceDetailModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The section's model has it")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY opened FINAL)
    Q_PROPERTY(elmworth::InvoiceFacts facts READ facts NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::InvoiceDelivery* delivery READ delivery CONSTANT FINAL)
    Q_PROPERTY(elmworth::InvoiceDatesModel* dates READ dates CONSTANT FINAL)
    Q_PROPERTY(elmworth::InvoicePreviewModel* preview READ preview CONSTANT FINAL)
    Q_PROPERTY(QStringList statusNames READ statusNames CONSTANT FINAL)
    /// While the number is being changed.
    Q_PROPERTY(bool isRenaming READ isRenaming NOTIFY renamingChanged FINAL)
    Q_PROPERTY(
        QString numberDraft READ numberDraft WRITE setNumberDraft NOTIFY numberDraftChanged FINAL)
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY notesChanged FINAL)
    /// "12/600"
    Q_PROPERTY(QString notesCount READ notesCount NOTIFY notesChanged FINAL)

 public:
    /// Tells `totals` what it shows, and asks in `confirmation`; both outlive it.
    InvoiceDetailModel(const AppServices& services, const InvoiceOutlets& outlets,
                       LiveInvoiceTotals& totals, Confirmation& confirmation);

    /// Shows `invoice`; null shows nothing.
    void show(const Ref<Invoice>& invoice);
    /// Shows what became of the invoice, and of what its figures come from.
    void refresh();
    /// Shows what `changes` did to it, after which the totals `outdated` are others.
    void follow(const RecordChanges& changes, const std::unordered_set<PersistentID>& outdated);

    [[nodiscard]] bool isOpen() const noexcept { return invoice_ != nullptr; }
    [[nodiscard]] const Ref<Invoice>& invoice() const noexcept { return invoice_; }
    [[nodiscard]] const InvoiceFacts& facts() const noexcept { return facts_; }
    [[nodiscard]] InvoiceDelivery* delivery() noexcept { return &delivery_; }
    [[nodiscard]] InvoiceDatesModel* dates() noexcept { return &dates_; }
    [[nodiscard]] InvoicePreviewModel* preview() noexcept { return &preview_; }
    [[nodiscard]] static QStringList statusNames();

    /// Sets the status at that position of `statusNames`.
    Q_INVOKABLE void setStatus(int position);
    /// Marks a draft as sent, and a sent invoice as paid.
    Q_INVOKABLE void takeNextStep();
    Q_INVOKABLE void setShowsEntries(bool shows);

    [[nodiscard]] bool isRenaming() const noexcept { return isRenaming_; }
    [[nodiscard]] const QString& numberDraft() const noexcept { return numberDraft_; }
    void setNumberDraft(const QString& draft);
    /// Begins to change the number of a draft; does nothing for any other invoice.
    Q_INVOKABLE void beginRenaming();
    /// Takes the number that was typed. One that can't be taken is said, and gives way to the old
    /// one.
    Q_INVOKABLE void commitNumber();
    Q_INVOKABLE void endRenaming();

    [[nodiscard]] const QString& notes() const noexcept { return notes_; }
    [[nodiscard]] QString notesCount() const;
    /// Takes what is typed, as far as there is room.
    void setNotes(const QString& notes);
    Q_INVOKABLE void leaveNotes();

    Q_INVOKABLE void askToDelete();

 Q_SIGNALS:
    void opened();
    void changed();
    void renamingChanged();
    void numberDraftChanged();
    void notesChanged();
    /// A person deleted it.
    void deleted();

 private:
    [[nodiscard]] InvoiceService service() const;
    void leave();
    void attempt(const std::function<void()>& change);
    void applyStatus(InvoiceStatus status);
    void remove();
    void showPages();
    void showNotes();
    void showNotesOnPage();
    void setRenaming(bool renaming);

    AppServices services_;
    InvoiceOutlets outlets_;
    LiveInvoiceTotals& totals_;
    Confirmation& confirmation_;
    InvoiceDelivery delivery_;
    InvoiceDatesModel dates_;
    InvoicePreviewModel preview_;
    Ref<Invoice> invoice_;
    InvoiceFacts facts_;
    InvoiceRenderModel pages_;
    bool isRenaming_ = false;
    QString numberDraft_;
    QString notes_;
    bool isTyping_ = false;      ///< the notes, which were not left since
    RunLoop::Handle notesSave_;  ///< while what was typed waits for a pause
};

}  // namespace elmworth
