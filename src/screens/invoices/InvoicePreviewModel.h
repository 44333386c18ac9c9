// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "invoicing/InvoicePages.h"
#include "livelist/LiveListModel.h"
#include "records/BusinessProfile.h"

class QPainter;
class QSizeF;

namespace elmworth {

/// A page of the preview.
struct InvoicePreviewRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)  ///< "Page 1 of 3"
    Q_PROPERTY(QString text MEMBER text)    ///< what stands on it

 public:
    int id = 0;  ///< its index
    QString title;
    QString text;

    friend bool operator==(const InvoicePreviewRow&, const InvoicePreviewRow&) = default;
};

/// The pages of an invoice for the screen, as the PDF has them. InvoicePreview shows them.
class InvoicePreviewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    /// The roles are the properties of `InvoicePreviewRow`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// The height of a page as a share of its width.
    Q_PROPERTY(double pageRatio READ pageRatio NOTIFY paperChanged FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] const std::vector<InvoicePreviewRow>& rows() const noexcept {
        return rows_.rows();
    }
    [[nodiscard]] double pageRatio() const;

    /// Shows the pages of `invoice` on `paper`. Tells which pages look different now.
    void show(InvoiceRenderModel invoice, PaperSize paper);
    /// Shows no page.
    void clear();

    /// Paints the page `index` so that it is `width` wide; a page that isn't there paints nothing.
    void paint(int index, double width, QPainter& painter) const;

 Q_SIGNALS:
    void paperChanged();
    /// The page looks different than before.
    void pageChanged(int index);

 private:
    [[nodiscard]] std::vector<InvoicePreviewRow> makeRows() const;

    InvoiceRenderModel invoice_;
    PaperSize paper_ = PaperSize::letter;
    std::vector<InvoicePage> pages_;
    LiveListModel<InvoicePreviewRow> rows_;
};

}  // namespace elmworth
