// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "livelist/LiveListModel.h"
#include "platform/DateFormatter.h"
#include "screens/timesheet/DailyStacks.h"

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

/// A label under a column.
struct DayMark {
    std::size_t column = 0;
    QString label;  ///< "Mon", or "14" in a longer period

    friend bool operator==(const DayMark&, const DayMark&) = default;
};

/// The hours of a timesheet by day and project, as a chart shows them: all texts are finished, in
/// the locale and time zone of the moment. Names too long to be read at a glance are cut.
class DailyChartModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")
    /// One row for each day. The roles are the properties of `DailyChartColumn`.
    Q_PROPERTY(QAbstractItemModel* columns READ columnsModel CONSTANT FINAL)
    /// All that is drawn, as text.
    Q_PROPERTY(QString description READ description NOTIFY changed FINAL)
    /// The projects of the legend, as text.
    Q_PROPERTY(QString legendText READ legendText NOTIFY changed FINAL)

 public:
    using QObject::QObject;

    /// Shows the hours of `entries` on the days of `range`, running ones up to `now`. For periods
    /// of some weeks: there is a column for each day.
    void show(std::span<const TimesheetEntry> entries, const DateInterval& range, Instant now,
              const Calendar& calendar);

    [[nodiscard]] const DailyStacks& stacks() const noexcept { return stacks_; }
    [[nodiscard]] const std::vector<DayMark>& dayMarks() const noexcept { return dayMarks_; }
    /// The labels and the colours of the series, in their order.
    [[nodiscard]] const QStringList& labels() const noexcept { return labels_; }
    [[nodiscard]] const std::vector<QColor>& colors() const noexcept { return colors_; }

    [[nodiscard]] QAbstractItemModel* columnsModel() noexcept { return &columns_; }
    [[nodiscard]] const std::vector<DailyChartColumn>& columns() const { return columns_.rows(); }
    [[nodiscard]] QString description() const;
    [[nodiscard]] QString legendText() const;

    /// "Monday, Mar 2".
    [[nodiscard]] QString dayText(std::size_t column) const;
    /// What is said of one bar, by its position in `stacks`.
    [[nodiscard]] std::vector<DailyChartCallout> calloutOfBar(std::size_t bar) const;
    /// What is said of a day: its bars from the top down, the last of very many summed up.
    [[nodiscard]] std::vector<DailyChartCallout> calloutOfColumn(std::size_t column) const;

 Q_SIGNALS:
    void changed();

 private:
    struct Formatters {
        std::string zoneID;
        Locale locale;
        DateFormatter day;
        DateFormatter weekday;
        DateFormatter shortWeekday;
        DateFormatter dayOfMonth;
    };

    void readFormats(const Calendar& calendar);
    void readSeries();
    void placeDayMarks(const DateInterval& range);
    [[nodiscard]] std::vector<DailyChartColumn> columnTexts() const;
    [[nodiscard]] QString columnName(std::size_t column) const;
    [[nodiscard]] QString barText(const StackedBar& bar) const;
    [[nodiscard]] QString spokenLabel(const StackedBar& bar) const;
    [[nodiscard]] DailyChartCallout callout(const StackedBar& bar, std::size_t line) const;

    std::optional<Formatters> formatters_;
    DailyStacks stacks_;
    std::vector<DayMark> dayMarks_;
    QStringList labels_;
    std::vector<QColor> colors_;
    LiveListModel<DailyChartColumn> columns_;
};

}  // namespace elmworth
