// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartGeometry.h"

#include <algorithm>

#include "theme/Contrast.h"

namespace elmworth {

namespace {

/// Half a line of the topmost label, and the labels of the days.
constexpr double topMargin = 7;
constexpr double bottomMargin = 20;
constexpr double axisGap = 8;

constexpr double barShare = 0.62;
constexpr double widestBar = 56;
constexpr double gap = 1;
constexpr double lowestWithGap = 4;
constexpr double reach = 3;

}  // namespace

DailyChartGeometry::DailyChartGeometry(const DailyStacks& stacks, const QSizeF& size,
                                       double axisWidth)
    : stacks_(&stacks),
      plot_(axisWidth + axisGap, topMargin, std::max(0.0, size.width() - axisWidth - axisGap),
            std::max(0.0, size.height() - topMargin - bottomMargin)) {}

double DailyChartGeometry::columnWidth() const {
    const std::size_t count = stacks_ != nullptr ? stacks_->days.size() : 0;
    return count == 0 ? 0 : plot_.width() / static_cast<double>(count);
}

QRectF DailyChartGeometry::column(std::size_t position) const {
    const double width = columnWidth();
    return {plot_.left() + static_cast<double>(position) * width, plot_.top(), width,
            plot_.height()};
}

double DailyChartGeometry::y(double hours) const {
    return plot_.bottom() - plot_.height() * hours / stacks_->hourMarks.back().hours;
}

QRectF DailyChartGeometry::bar(const StackedBar& bar) const {
    const QRectF column = this->column(bar.column);
    const double width = std::min(column.width() * barShare, widestBar);
    const double bottom = y(bar.bottom);
    const double height = bottom - y(bar.top);
    const double drawn = std::max(1.0, height >= lowestWithGap ? height - gap : height);
    return {column.center().x() - width / 2, bottom - drawn, width, drawn};
}

double DailyChartGeometry::distance(const StackedBar& bar, double y) const {
    return std::max({0.0, this->y(bar.top) - y, y - this->y(bar.bottom)});
}

std::optional<std::size_t> DailyChartGeometry::barAt(const QPointF& point) const {
    if (stacks_ == nullptr || stacks_->days.empty() || columnWidth() <= 0) return std::nullopt;
    if (point.x() < plot_.left() || point.x() >= plot_.right()) return std::nullopt;
    const auto column = static_cast<std::size_t>((point.x() - plot_.left()) / columnWidth());
    const auto stack = stacks_->barsOf(column);
    const auto nearest = std::min_element(stack.begin(), stack.end(), [&](auto& a, auto& b) {
        return distance(a, point.y()) < distance(b, point.y());
    });
    if (nearest == stack.end() || distance(*nearest, point.y()) > reach) return std::nullopt;
    return static_cast<std::size_t>(&*nearest - stacks_->bars.data());
}

BarLook BarLook::of(const QColor& color, const QColor& ground) {
    const QColor outline = edge(color, ground);
    if (outline == color) return {color};
    return {color, QPen(outline, 1), 0.5};
}

}  // namespace elmworth
