// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

#include "screens/invoices/InvoicePreviewModel.h"

namespace elmworth {

/// One page of an invoice on the screen, as wide as the item, and as sharp as the screen is. Only a
/// page that is in view is painted and keeps a picture.
class InvoicePreviewPage : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        elmworth::InvoicePreviewModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    Q_PROPERTY(int page READ page WRITE setPage NOTIFY pageChanged FINAL)  ///< from 0
    Q_PROPERTY(double corner MEMBER corner_ NOTIFY cornerChanged FINAL)    ///< its radius
    /// Whether some of it, or of what is close around it, is neither outside the window nor cut off
    /// by what it scrolls in.
    Q_PROPERTY(bool isInView READ isInView NOTIFY isInViewChanged FINAL)

 public:
    explicit InvoicePreviewPage(QQuickItem* parent = nullptr);

    [[nodiscard]] InvoicePreviewModel* model() const { return model_; }
    [[nodiscard]] int page() const noexcept { return page_; }
    [[nodiscard]] bool isInView() const noexcept { return isInView_; }
    void setModel(InvoicePreviewModel* model);
    void setPage(int page);

    void paint(QPainter* painter) override;

 Q_SIGNALS:
    void modelChanged();
    void pageChanged();
    void cornerChanged();
    void isInViewChanged();

 protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void updatePolish() override { look(); }
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
    void look();
    void repaintPage(int page);

    QPointer<InvoicePreviewModel> model_;
    QMetaObject::Connection frames_;
    int page_ = 0;
    double corner_ = 0;
    bool isInView_ = false;
};

}  // namespace elmworth
