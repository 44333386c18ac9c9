// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/LogoThumbnail.h"

#include <QImage>
#include <QPainter>

namespace elmworth {

namespace {

constexpr QSizeF largest{120, 36};

}  // namespace

void LogoThumbnail::setModel(BusinessSettings* model) {
    if (model == model_) return;
    if (model_) disconnect(model_, nullptr, this, nullptr);
    model_ = model;
    if (model_) connect(model_, &BusinessSettings::logoChanged, this, &LogoThumbnail::fit);
    fit();
    Q_EMIT modelChanged();
}

void LogoThumbnail::fit() {
    QSizeF size;
    if (model_ && model_->logo()) {
        size = model_->logo()->size();
        if (size.width() > largest.width() || size.height() > largest.height()) {
            size.scale(largest, Qt::KeepAspectRatio);
        }
    }
    setImplicitSize(size.width(), size.height());
    update();
}

void LogoThumbnail::paint(QPainter* painter) {
    if (!model_ || !model_->logo()) return;
    // Scaled here: a painter would leave out lines of a large one.
    const auto pixels = boundingRect().size() * painter->device()->devicePixelRatioF();
    painter->drawImage(
        boundingRect(),
        model_->logo()->scaled(pixels.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

}  // namespace elmworth
