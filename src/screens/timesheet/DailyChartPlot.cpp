// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartPlot.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "screens/timesheet/DailyChartGeometry.h"

namespace elmworth {

namespace {

constexpr double corner = 4;
constexpr double labelHeight = 16;
/// Of what the pointer is not on, while it is on a bar.
constexpr double receded = 0.4;

double axisWidth(const DailyStacks& stacks, const QFont& font) {
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (const auto& mark : stacks.hourMarks) {
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdString(mark.label)));
    }
    return std::ceil(widest);
}

}  // namespace

DailyChartPlot::DailyChartPlot(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &DailyChartPlot::colorsChanged, this, [this] { update(); });
}

void DailyChartPlot::setModel(DailyChartModel* model) {
    if (model_ == model) return;
    if (model_) model_->disconnect(this);
    model_ = model;
    if (model_) {
        connect(model_, &DailyChartModel::changed, this, &DailyChartPlot::arrange);
        connect(model_, &QObject::destroyed, this, &DailyChartPlot::arrange);
    }
    arrange();
    Q_EMIT modelChanged();
}

void DailyChartPlot::setFont(const QFont& font) {
    if (font_ == font) return;
    font_ = font;
    arrange();
    Q_EMIT fontChanged();
}

void DailyChartPlot::setPointer(const QPointF& pointer) {
    if (pointer_ == pointer) return;
    pointer_ = pointer;
    callOut();
    Q_EMIT pointerChanged();
}

void DailyChartPlot::setColumn(int column) {
    if (column_ == column) return;
    column_ = column;
    callOut();
    Q_EMIT columnChanged();
}

void DailyChartPlot::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickPaintedItem::geometryChange(now, before);
    if (now.size() != before.size()) arrange();
}

void DailyChartPlot::arrange() {
    geometry_ =
        model_ ? DailyChartGeometry(model_->stacks(), size(), axisWidth(model_->stacks(), font_))
               : DailyChartGeometry();
    callOut();
    update();
    Q_EMIT areaChanged();
}

bool DailyChartPlot::hasColumn() const {
    return model_ && column_ >= 0 &&
           static_cast<std::size_t>(column_) < model_->stacks().days.size();
}

void DailyChartPlot::callOut() {
    const auto bar = geometry_.barAt(pointer_);
    if (bar != barUnderPointer_) update();
    barUnderPointer_ = bar;
    if (bar) {
        const auto& segment = model_->stacks().bars[*bar];
        callOut(model_->dayText(segment.column), model_->calloutOfBar(*bar),
                geometry_.bar(segment));
    } else if (hasColumn()) {
        const auto column = static_cast<std::size_t>(column_);
        callOut(model_->dayText(column), model_->calloutOfColumn(column), geometry_.column(column));
    } else {
        hideCallout();
    }
}

void DailyChartPlot::callOut(const QString& title, std::vector<DailyChartCallout> lines,
                             const QRectF& anchor) {
    for (auto& line : lines) {
        const BarLook look = BarLook::of(line.swatch, ground_);
        line.outline = look.inset > 0 ? look.outline.color() : line.swatch;
    }
    const bool isSame = title == calloutTitle_ && lines == calloutLines_.rows();
    if (hasCallout_ && isSame && anchor == calloutAnchor_) return;
    hasCallout_ = true;
    calloutTitle_ = title;
    calloutAnchor_ = anchor;
    calloutLines_.setRows(std::move(lines));
    Q_EMIT calloutChanged();
}

/// Keeps the texts, which may fade away.
void DailyChartPlot::hideCallout() {
    if (!hasCallout_) return;
    hasCallout_ = false;
    Q_EMIT calloutChanged();
}

void DailyChartPlot::paint(QPainter* painter) {
    if (!model_ || model_->stacks().days.empty()) return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(font_);
    paintHours(*painter);
    paintDays(*painter);
    paintBars(*painter);
}

void DailyChartPlot::paintHours(QPainter& painter) const {
    const QRectF plot = geometry_.plot();
    for (const auto& mark : model_->stacks().hourMarks) {
        const double y = geometry_.y(mark.hours);
        painter.fillRect(QRectF(plot.left(), std::round(y), plot.width(), 1), line_);
        painter.setPen(ink_);
        painter.drawText(QRectF(0, y - labelHeight / 2, plot.left() - 8, labelHeight),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                         QString::fromStdString(mark.label));
    }
}

void DailyChartPlot::paintDays(QPainter& painter) const {
    painter.setPen(ink_);
    for (const auto& mark : model_->dayMarks()) {
        const QRectF column = geometry_.column(mark.column);
        painter.drawText(QRectF(column.left(), column.bottom() + 4, column.width(), labelHeight),
                         Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip, mark.label);
    }
}

void DailyChartPlot::paintBars(QPainter& painter) const {
    const auto& bars = model_->stacks().bars;
    std::vector<BarLook> looks;
    for (const QColor& color : model_->colors()) looks.push_back(BarLook::of(color, ground_));
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const BarLook& look = looks[bars[i].series];
        const QRectF bar = geometry_.bar(bars[i]);
        const double inset = bar.height() > 2 * look.inset ? look.inset : 0;
        const double radius = std::min({corner, bar.width() / 2, bar.height() / 2});
        painter.setOpacity(!barUnderPointer_ || barUnderPointer_ == i ? 1 : receded);
        painter.setBrush(look.fill);
        painter.setPen(look.outline);
        painter.drawRoundedRect(bar.adjusted(inset, inset, -inset, -inset), radius, radius);
    }
    painter.setOpacity(1);
}

}  // namespace elmworth
