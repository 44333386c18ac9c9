// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickPaintedItem>
#include <QVariantList>
#include <QtQmlIntegration>

namespace elmworth {

/// A rounded area of one colour, or of colours that run into each other. Painted, because
/// rectangles with gradients have rough corners where no graphics card draws them.
class GradientFill : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList colors READ colors WRITE setColors NOTIFY colorsChanged FINAL)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged FINAL)
    /// From 0 to 1: black over the colours, so that a white text stands out.
    Q_PROPERTY(double scrim READ scrim WRITE setScrim NOTIFY scrimChanged FINAL)
    /// From the leading to the trailing edge instead of from corner to corner.
    Q_PROPERTY(bool horizontal READ isHorizontal WRITE setHorizontal NOTIFY horizontalChanged FINAL)

 public:
    using QQuickPaintedItem::QQuickPaintedItem;

    [[nodiscard]] const QVariantList& colors() const { return colors_; }
    [[nodiscard]] double radius() const { return radius_; }
    [[nodiscard]] double scrim() const { return scrim_; }
    [[nodiscard]] bool isHorizontal() const { return horizontal_; }
    void setColors(const QVariantList& colors);
    void setRadius(double radius);
    void setScrim(double scrim);
    void setHorizontal(bool horizontal);

    void paint(QPainter* painter) override;

 Q_SIGNALS:
    void colorsChanged();
    void radiusChanged();
    void scrimChanged();
    void horizontalChanged();

 private:
    [[nodiscard]] QBrush gradient() const;

    QVariantList colors_;
    double radius_ = 0;
    double scrim_ = 0;
    bool horizontal_ = false;
};

}  // namespace elmworth
