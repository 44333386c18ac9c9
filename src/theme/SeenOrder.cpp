// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/SeenOrder.h"

#include <algorithm>
#include <tuple>

namespace elmworth {

namespace {

bool standsBefore(const QQuickItem* a, const QQuickItem* b) {
    return std::tuple(a->y(), a->x()) < std::tuple(b->y(), b->x());
}

}  // namespace

void SeenOrder::setContent(QQuickItem* content) {
    if (content_) content_->disconnect(this);
    content_ = content;
    if (content_) connect(content_, &QQuickItem::windowChanged, this, &SeenOrder::follow);
    follow(content_ ? content_->window() : nullptr);
    Q_EMIT contentChanged();
}

void SeenOrder::follow(QQuickWindow* window) {
    disconnect(frames_);
    // By then the lines have their places.
    if (window) frames_ = connect(window, &QQuickWindow::afterAnimating, this, &SeenOrder::arrange);
}

/// Costs nothing while they are in order.
void SeenOrder::arrange() const {
    if (!content_) return;
    QList<QQuickItem*> lines = content_->childItems();
    lines.removeIf([](const QQuickItem* item) { return !item->isVisible(); });
    if (std::is_sorted(lines.begin(), lines.end(), standsBefore)) return;
    std::stable_sort(lines.begin(), lines.end(), standsBefore);
    for (qsizetype i = 1; i < lines.size(); ++i) lines[i]->stackAfter(lines[i - 1]);
}

}  // namespace elmworth
