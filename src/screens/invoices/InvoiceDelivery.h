// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQmlIntegration>
#include <filesystem>

#include "screens/AppServices.h"
#include "screens/invoices/InvoiceOutlets.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// Lets an invoice out of the house: as a PDF, in the file manager, and as the text of an e-mail.
/// What goes wrong is said in one line, until the next time.
class InvoiceDelivery final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The invoice's model has it")
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged FINAL)
    /// For two seconds after the text of an e-mail was copied.
    Q_PROPERTY(bool isCopied READ isCopied NOTIFY isCopiedChanged FINAL)

 public:
    /// Asks in `confirmation`, which outlives it.
    InvoiceDelivery(const AppServices& services, const InvoiceOutlets& outlets,
                    Confirmation& confirmation);

    /// Is about `invoice` from now on; null for none.
    void setInvoice(Ref<Invoice> invoice);

    /// Where the save dialog begins. What is exported then is the invoice of this moment, whatever
    /// is chosen while the dialog is open.
    Q_INVOKABLE QUrl exportFile();
    /// Writes the PDF to `file` and opens it, but asks before it replaces a file.
    Q_INVOKABLE void requestExport(const QUrl& file);
    Q_INVOKABLE void copyEmailText();
    /// Shows the stored PDF, which is written anew for a draft, or where it is missing.
    Q_INVOKABLE void showPDF();

    [[nodiscard]] const QString& problem() const noexcept { return problem_; }
    [[nodiscard]] bool isCopied() const noexcept { return copied_ != nullptr; }
    /// Says `problem` in place of what was said before; empty takes that away.
    void say(const QString& problem);

 Q_SIGNALS:
    void problemChanged();
    void isCopiedChanged();

 private:
    void exportTo(const std::filesystem::path& file);
    template <class Work>
    bool attempt(const std::filesystem::path& target, const Work& work);
    [[nodiscard]] InvoiceRenderModel renderModel(const Invoice& invoice) const;
    void setCopied(RunLoop::Handle copied);
    [[nodiscard]] DesktopFiles::Failed saying(const QString& problem);

    AppServices services_;
    InvoiceOutlets outlets_;
    Confirmation& confirmation_;
    Ref<Invoice> invoice_;
    Ref<Invoice> exported_;
    QString problem_;
    RunLoop::Handle copied_;  ///< ends the notice
};

}  // namespace elmworth
