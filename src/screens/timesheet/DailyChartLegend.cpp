// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartLegend.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "screens/timesheet/DailyChartGeometry.h"

namespace elmworth {

namespace {

/// The place of an item of `itemWidth` after `last`.
LegendPlace placeAfter(const LegendPlace& last, double itemWidth, double width, double gap) {
    const double fitting = std::min(itemWidth, width);
    const double x = last.width > 0 ? last.x + last.width + gap : 0;
    if (x + fitting <= width) return {last.row, x, fitting};
    return {last.row + 1, 0, fitting};
}

constexpr double rowHeight = 18;
constexpr double swatch = 8;
constexpr double swatchGap = 6;
constexpr double itemGap = 14;
constexpr double widestText = 175;
constexpr int mostLines = 3;

QRectF areaOf(const LegendPlace& place) {
    return {place.x, place.row * rowHeight, place.width, rowHeight};
}

}  // namespace

LegendLayout legendLayout(const std::vector<double>& widths, double width, double gap,
                          double restWidth, int mostRows) {
    LegendLayout layout;
    if (width <= 0 || widths.empty()) return layout;
    LegendPlace last;
    for (const double itemWidth : widths) {
        last = placeAfter(last, itemWidth, width, gap);
        if (last.row >= mostRows) break;
        layout.places.push_back(last);
    }
    if (layout.places.size() < widths.size()) {
        const auto restAfter = [&] {
            last = layout.places.empty() ? LegendPlace{} : layout.places.back();
            return placeAfter(last, restWidth, width, gap);
        };
        layout.rest = restAfter();
        while (layout.rest.row >= mostRows) {
            layout.places.pop_back();
            layout.rest = restAfter();
        }
    }
    layout.rows =
        std::max(layout.places.empty() ? 0 : layout.places.back().row, layout.rest.row) + 1;
    return layout;
}

DailyChartLegend::DailyChartLegend(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &DailyChartLegend::colorsChanged, this, [this] { update(); });
}

void DailyChartLegend::setModel(DailyChartModel* model) {
    if (model_ == model) return;
    if (model_) model_->disconnect(this);
    model_ = model;
    if (model_) connect(model_, &DailyChartModel::changed, this, &DailyChartLegend::arrange);
    arrange();
    Q_EMIT modelChanged();
}

void DailyChartLegend::setFont(const QFont& font) {
    if (font_ == font) return;
    font_ = font;
    arrange();
    Q_EMIT fontChanged();
}

void DailyChartLegend::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickPaintedItem::geometryChange(now, before);
    if (now.width() != before.width()) arrange();
}

void DailyChartLegend::arrange() {
    const QFontMetricsF metrics(font_);
    std::vector<double> widths;
    if (model_) {
        for (const QString& label : model_->labels()) {
            const QString shown = metrics.elidedText(label, Qt::ElideMiddle, widestText);
            widths.push_back(swatch + swatchGap + std::ceil(metrics.horizontalAdvance(shown)) + 1);
        }
    }
    const double rest = metrics.horizontalAdvance(QStringLiteral("and 999 more"));
    layout_ = legendLayout(widths, width(), itemGap, std::ceil(rest), mostLines);
    setImplicitHeight(layout_.rows * rowHeight);
    update();
}

QString DailyChartLegend::restText() const {
    const auto hidden = model_->colors().size() - layout_.places.size();
    return QStringLiteral("and %1 more").arg(hidden);
}

void DailyChartLegend::paintItem(QPainter& painter, std::size_t item) const {
    const QRectF area = areaOf(layout_.places[item]);
    const BarLook look = BarLook::of(model_->colors()[item], ground_);
    const QRectF dot(area.left(), area.center().y() - swatch / 2, swatch, swatch);
    painter.setBrush(look.fill);
    painter.setPen(look.outline);
    painter.drawEllipse(dot.adjusted(look.inset, look.inset, -look.inset, -look.inset));
    const QRectF text = area.adjusted(swatch + swatchGap, 0, 0, 0);
    const QString& label = model_->labels()[static_cast<qsizetype>(item)];
    painter.setPen(ink_);
    // Long names often differ at their ends: "…, Phase 2".
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetricsF(font_).elidedText(label, Qt::ElideMiddle, text.width()));
}

void DailyChartLegend::paint(QPainter* painter) {
    if (!model_) return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(font_);
    for (std::size_t i = 0; i < layout_.places.size(); ++i) paintItem(*painter, i);
    if (layout_.rest.width <= 0) return;
    painter->setPen(ink_);
    painter->drawText(areaOf(layout_.rest), Qt::AlignLeft | Qt::AlignVCenter, restText());
}

}  // namespace elmworth
