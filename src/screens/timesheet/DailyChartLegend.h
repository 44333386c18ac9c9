// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QFont>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

#include "screens/timesheet/DailyChartModel.h"
#include "screens/timesheet/LegendLayout.h"

namespace elmworth {

/// The projects of a chart with their colours, in as many lines as its width asks for, up to three.
/// Long names are cut, and what has no room is counted.
class DailyChartLegend : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(elmworth::DailyChartModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /// The colours of the names and of what lies below.
    Q_PROPERTY(QColor ink MEMBER ink_ NOTIFY colorsChanged FINAL)
    Q_PROPERTY(QColor ground MEMBER ground_ NOTIFY colorsChanged FINAL)
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged FINAL)

 public:
    explicit DailyChartLegend(QQuickItem* parent = nullptr);

    [[nodiscard]] DailyChartModel* model() const { return model_; }
    [[nodiscard]] const QFont& font() const { return font_; }
    void setModel(DailyChartModel* model);
    void setFont(const QFont& font);

    void paint(QPainter* painter) override;

 Q_SIGNALS:
    void modelChanged();
    void colorsChanged();
    void fontChanged();

 protected:
    void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
    void arrange();
    [[nodiscard]] QString restText() const;
    void paintItem(QPainter& painter, std::size_t item) const;

    QPointer<DailyChartModel> model_;
    QColor ink_;
    QColor ground_;
    QFont font_;
    LegendLayout layout_;
};

}  // namespace elmworth
