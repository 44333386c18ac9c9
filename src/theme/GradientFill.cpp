// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/GradientFill.h"

#include <QColor>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

namespace elmworth {

void GradientFill::setColors(const QVariantList& colors) {
    if (colors_ == colors) return;
    colors_ = colors;
    update();
    Q_EMIT colorsChanged();
}

void GradientFill::setRadius(double radius) {
    if (radius_ == radius) return;
    radius_ = radius;
    update();
    Q_EMIT radiusChanged();
}

void GradientFill::setScrim(double scrim) {
    if (scrim_ == scrim) return;
    scrim_ = scrim;
    update();
    Q_EMIT scrimChanged();
}

void GradientFill::setHorizontal(bool horizontal) {
    if (horizontal_ == horizontal) return;
    horizontal_ = horizontal;
    update();
    Q_EMIT horizontalChanged();
}

QBrush GradientFill::gradient() const {
    if (colors_.size() == 1) return colors_.first().value<QColor>();
    const QRectF area = boundingRect();
    QLinearGradient gradient(area.topLeft(), horizontal_ ? area.topRight() : area.bottomRight());
    for (qsizetype i = 0; i < colors_.size(); ++i) {
        gradient.setColorAt(static_cast<double>(i) / static_cast<double>(colors_.size() - 1),
                            colors_[i].value<QColor>());
    }
    return gradient;
}

void GradientFill::paint(QPainter* painter) {
    if (colors_.isEmpty()) return;
    const QRectF area = boundingRect();
    const double corner = std::min({radius_, area.width() / 2, area.height() / 2});
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(gradient());
    painter->drawRoundedRect(area, corner, corner);
    if (scrim_ <= 0) return;
    painter->setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(scrim_)));
    painter->drawRoundedRect(area, corner, corner);
}

}  // namespace elmworth
