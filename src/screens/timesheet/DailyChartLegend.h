// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QFont>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>
#include <cstddef>
#include <vector>

#include "screens/timesheet/DailyChartModel.h"

namespace elmworth {

/// A place in a legend.
struct LegendPlace {
    int row = 0;
    double x = 0;
    double width = 0;

    friend bool operator==(const LegendPlace&, const LegendPlace&) = default;
};

/// Where the items of a legend stand, line after line.
struct LegendLayout {
    std::vector<LegendPlace> places;  ///< of the first items; those without one are not shown
    LegendPlace rest;                 ///< of the words that count the others; no width for none
    int rows = 0;
};

/// Places items of `widths` in lines of `width`, with `gap` between them. What does not fit into
/// `mostRows` lines is left out, and the last line keeps `restWidth` for what is said of that. An
/// item wider than a line is as wide as the line.
[[nodiscard]] LegendLayout legendLayout(const std::vector<double>& widths, double width, double gap,
                                        double restWidth, int mostRows);

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
