// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicePreviewPage.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGNode>

namespace elmworth {

namespace {

/// How far a page's shadow reaches; one that comes so near to the view is painted.
constexpr double surroundings = 40;

/// The part of `item` and its surroundings that can be seen, in the window's coordinates.
QRectF seenPart(const QQuickItem& item) {
    if (!item.window() || !item.isVisible()) return {};
    const QRectF place =
        item.boundingRect().adjusted(-surroundings, -surroundings, surroundings, surroundings);
    QRectF seen = item.mapRectToScene(place) & QRectF(QPointF(0, 0), QSizeF(item.window()->size()));
    for (const auto* around = item.parentItem(); around; around = around->parentItem()) {
        if (around->clip()) seen &= around->mapRectToScene(around->clipRect());
    }
    return seen;
}

/// Takes away what lies outside the rounded corners; a clip would leave steps.
void roundCorners(QPainter& painter, const QRectF& rect, double radius) {
    QPainterPath outside;
    outside.addRect(rect);
    QPainterPath inside;
    inside.addRoundedRect(rect, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outside - inside, Qt::black);
}

}  // namespace

InvoicePreviewPage::InvoicePreviewPage(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &InvoicePreviewPage::cornerChanged, this, [this] { update(); });
}

void InvoicePreviewPage::setModel(InvoicePreviewModel* model) {
    if (model_ == model) return;
    if (model_) model_->disconnect(this);
    model_ = model;
    if (model_) {
        connect(model_, &InvoicePreviewModel::pageChanged, this, &InvoicePreviewPage::repaintPage);
    }
    update();
    Q_EMIT modelChanged();
}

void InvoicePreviewPage::setPage(int page) {
    if (page_ == page) return;
    page_ = page;
    update();
    Q_EMIT pageChanged();
}

void InvoicePreviewPage::repaintPage(int page) {
    if (page == page_) update();
}

void InvoicePreviewPage::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickPaintedItem::itemChange(change, data);
    if (change != ItemSceneChange) return;
    disconnect(frames_);
    // Scrolling tells the items that are scrolled nothing: each frame looks where they are.
    if (data.window) {
        frames_ =
            connect(data.window, &QQuickWindow::afterAnimating, this, &InvoicePreviewPage::look);
        polish();
    }
}

void InvoicePreviewPage::look() {
    const bool isInView = !seenPart(*this).isEmpty();
    if (isInView == isInView_) return;
    isInView_ = isInView;
    update();
    Q_EMIT isInViewChanged();
}

QSGNode* InvoicePreviewPage::updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) {
    if (isInView_) return QQuickPaintedItem::updatePaintNode(node, data);
    delete node;
    return nullptr;
}

void InvoicePreviewPage::paint(QPainter* painter) {
    if (!model_) return;
    model_->paint(page_, width(), *painter);
    if (corner_ > 0) roundCorners(*painter, boundingRect(), corner_);
}

}  // namespace elmworth
