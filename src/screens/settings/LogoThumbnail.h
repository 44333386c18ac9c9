// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickPaintedItem>
#include <QtQmlIntegration>

#include "screens/settings/BusinessSettings.h"

namespace elmworth {

/// The logo as it will stand on the white of an invoice, as large as it fits.
class LogoThumbnail : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        elmworth::BusinessSettings* model READ model WRITE setModel NOTIFY modelChanged FINAL)

 public:
    explicit LogoThumbnail(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

    [[nodiscard]] BusinessSettings* model() const { return model_; }
    void setModel(BusinessSettings* model);
    void paint(QPainter* painter) override;

 Q_SIGNALS:
    void modelChanged();

 private:
    /// Takes the size of the logo, scaled down to what an item may be at most.
    void fit();

    BusinessSettings* model_ = nullptr;
};

}  // namespace elmworth
