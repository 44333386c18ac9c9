// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace elmworth {

/// A line of what is said of a day beside a chart.
struct DailyChartCallout {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString hours MEMBER hours)
    Q_PROPERTY(QColor swatch MEMBER swatch)    ///< transparent for a line without a project
    Q_PROPERTY(QColor outline MEMBER outline)  ///< differs from a swatch that is hard to see

 public:
    int id = 0;  ///< position of the line
    QString label;
    QString hours;
    QColor swatch = Qt::transparent;
    QColor outline = Qt::transparent;

    friend bool operator==(const DailyChartCallout&, const DailyChartCallout&) = default;
};

}  // namespace elmworth
