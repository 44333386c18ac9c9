// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QColor>
#include <QFont>
#include <QPointF>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QRectF>
#include <QString>
#include <QtQmlIntegration>
#include <optional>

#include "livelist/LiveListModel.h"
#include "screens/timesheet/DailyChartGeometry.h"
#include "screens/timesheet/DailyChartModel.h"

namespace elmworth {

/// Draws the columns of a chart with its lines and labels, and finds what is under the pointer. One
/// item that paints, because a month of hundreds of items would not be there within a frame.
class DailyChartPlot : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(elmworth::DailyChartModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /// The colours of the labels, of the lines, and of what lies below.
    Q_PROPERTY(QColor ink MEMBER ink_ NOTIFY colorsChanged FINAL)
    Q_PROPERTY(QColor line MEMBER line_ NOTIFY colorsChanged FINAL)
    Q_PROPERTY(QColor ground MEMBER ground_ NOTIFY colorsChanged FINAL)
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged FINAL)
    /// Where the pointer is; outside the item for nowhere.
    Q_PROPERTY(QPointF pointer READ pointer WRITE setPointer NOTIFY pointerChanged FINAL)
    /// The column that the keyboard stands on; -1 for none.
    Q_PROPERTY(int column READ column WRITE setColumn NOTIFY columnChanged FINAL)

    /// The area of the columns, and the width of one.
    Q_PROPERTY(QRectF area READ area NOTIFY areaChanged FINAL)
    Q_PROPERTY(double columnWidth READ columnWidth NOTIFY areaChanged FINAL)

    /// What is said of the bar under the pointer, or else of the keyboard's column: the day, the
    /// lines with the roles of `DailyChartCallout`, and what it stands beside.
    Q_PROPERTY(bool hasCallout READ hasCallout NOTIFY calloutChanged FINAL)
    Q_PROPERTY(QString calloutTitle READ calloutTitle NOTIFY calloutChanged FINAL)
    Q_PROPERTY(QAbstractItemModel* calloutLines READ calloutLines CONSTANT FINAL)
    Q_PROPERTY(QRectF calloutAnchor READ calloutAnchor NOTIFY calloutChanged FINAL)

 public:
    explicit DailyChartPlot(QQuickItem* parent = nullptr);

    [[nodiscard]] DailyChartModel* model() const { return model_; }
    [[nodiscard]] const QFont& font() const { return font_; }
    [[nodiscard]] const QPointF& pointer() const { return pointer_; }
    [[nodiscard]] int column() const { return column_; }
    [[nodiscard]] QRectF area() const { return geometry_.plot(); }
    [[nodiscard]] double columnWidth() const { return geometry_.columnWidth(); }
    [[nodiscard]] bool hasCallout() const { return hasCallout_; }
    [[nodiscard]] const QString& calloutTitle() const { return calloutTitle_; }
    [[nodiscard]] QAbstractItemModel* calloutLines() { return &calloutLines_; }
    [[nodiscard]] const QRectF& calloutAnchor() const { return calloutAnchor_; }

    void setModel(DailyChartModel* model);
    void setFont(const QFont& font);
    void setPointer(const QPointF& pointer);
    void setColumn(int column);

    void paint(QPainter* painter) override;

 Q_SIGNALS:
    void modelChanged();
    void colorsChanged();
    void fontChanged();
    void pointerChanged();
    void columnChanged();
    void areaChanged();
    void calloutChanged();

 protected:
    void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
    void arrange();
    void callOut();
    void callOut(const QString& title, std::vector<DailyChartCallout> lines, const QRectF& anchor);
    void hideCallout();
    [[nodiscard]] bool hasColumn() const;
    void paintHours(QPainter& painter) const;
    void paintDays(QPainter& painter) const;
    void paintBars(QPainter& painter) const;

    QPointer<DailyChartModel> model_;
    QColor ink_;
    QColor line_;
    QColor ground_;
    QFont font_;
    QPointF pointer_{-1, -1};
    int column_ = -1;
    DailyChartGeometry geometry_;
    std::optional<std::size_t> barUnderPointer_;
    bool hasCallout_ = false;
    QString calloutTitle_;
    LiveListModel<DailyChartCallout> calloutLines_;
    QRectF calloutAnchor_;
};

}  // namespace elmworth
