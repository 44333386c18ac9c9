// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <cstdint>

namespace elmworth {

/// A day of a chart as assistive technology reads it.
struct DailyChartColumn {
    Q_GADGET
    QML_ANONYMOUS
    /// "Monday: Website 3.0 hours, App 0.5 hours".
    Q_PROPERTY(QString name MEMBER name)

 public:
    std::int64_t id = 0;  ///< the day's start
    QString name;

    friend bool operator==(const DailyChartColumn&, const DailyChartColumn&) = default;
};

}  // namespace elmworth
