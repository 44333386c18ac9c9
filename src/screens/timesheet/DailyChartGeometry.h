// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QBrush>
#include <QColor>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>

#include "screens/timesheet/DailyStacks.h"

namespace elmworth {

/// Where the parts of a chart lie in an area of some size, in pixels from its top left corner. The
/// hours stand to the left of the columns, the days below them.
class DailyChartGeometry {
 public:
    DailyChartGeometry() = default;
    /// `axisWidth` is the room for the longest label of the hours. `stacks` outlives this.
    DailyChartGeometry(const DailyStacks& stacks, const QSizeF& size, double axisWidth);

    /// What the columns share.
    [[nodiscard]] QRectF plot() const { return plot_; }
    /// The width of a column with the space round its bars.
    [[nodiscard]] double columnWidth() const;
    /// A column from the chart's top to its ground.
    [[nodiscard]] QRectF column(std::size_t position) const;
    /// A bar, at least one pixel high, with a thin gap to the one above it.
    [[nodiscard]] QRectF bar(const StackedBar& bar) const;
    /// The height of `hours` above the ground, from the top.
    [[nodiscard]] double y(double hours) const;
    /// The position of the bar under `point`, or of the nearest one of its column within some
    /// pixels, so that thin ones can be hit.
    [[nodiscard]] std::optional<std::size_t> barAt(const QPointF& point) const;

 private:
    [[nodiscard]] double distance(const StackedBar& bar, double y) const;

    const DailyStacks* stacks_ = nullptr;
    QRectF plot_;
};

/// How a project's colour is painted.
struct BarLook {
    QBrush fill;
    QPen outline = Qt::NoPen;
    double inset = 0;  ///< half the outline's width

    /// `color` as it is on `ground`. One that would be taken for the ground gets an outline that
    /// is not.
    [[nodiscard]] static BarLook of(const QColor& color, const QColor& ground);
};

}  // namespace elmworth
