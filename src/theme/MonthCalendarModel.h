// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QStringList>
#include <QtQmlIntegration>
#include <functional>

#include "livelist/LiveListModel.h"
#include "platform/Calendar.h"
#include "platform/DateFormatter.h"

namespace elmworth {

/// A day on a page of the calendar.
struct MonthDay {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)         ///< "2"
    Q_PROPERTY(QString name MEMBER name)         ///< "Monday, March 2, 2026"
    Q_PROPERTY(bool isInMonth MEMBER isInMonth)  ///< and not of the one before or after
    Q_PROPERTY(bool isToday MEMBER isToday)
    Q_PROPERTY(bool isChosen MEMBER isChosen)
    Q_PROPERTY(bool isCurrent MEMBER isCurrent)  ///< the keyboard acts on it

 public:
    int id = 0;  ///< its place on the page
    QString text;
    QString name;
    bool isInMonth = false;
    bool isToday = false;
    bool isChosen = false;
    bool isCurrent = false;

    friend bool operator==(const MonthDay&, const MonthDay&) = default;
};

/// A month of six weeks to pick a day from, in the order and the words of a locale.
class MonthCalendarModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A field's model has it")
    Q_PROPERTY(QString title READ title NOTIFY shown FINAL)  ///< "March 2026"
    /// The names over the columns, and what they are short for.
    Q_PROPERTY(QStringList weekdays READ weekdays CONSTANT FINAL)
    Q_PROPERTY(QStringList weekdayNames READ weekdayNames CONSTANT FINAL)
    /// The roles are the properties of `MonthDay`, row by row.
    Q_PROPERTY(QAbstractItemModel* days READ daysModel CONSTANT FINAL)
    /// Where in `days` the keyboard acts.
    Q_PROPERTY(int current READ current NOTIFY shown FINAL)

 public:
    MonthCalendarModel(std::function<Calendar()> calendar, Clock now, const Locale& locale);

    [[nodiscard]] QString title() const;
    [[nodiscard]] const QStringList& weekdays() const noexcept { return weekdays_; }
    [[nodiscard]] const QStringList& weekdayNames() const noexcept { return weekdayNames_; }
    [[nodiscard]] QAbstractItemModel* daysModel() noexcept { return &days_; }
    [[nodiscard]] const std::vector<MonthDay>& days() const noexcept { return days_.rows(); }
    [[nodiscard]] int current() const noexcept { return current_; }
    [[nodiscard]] DateComponents chosenDay() const;

    /// Shows the month of `chosen`, with that day marked as the one that stands now.
    void show(const DateComponents& chosen);

    Q_INVOKABLE void moveByDays(int days);
    Q_INVOKABLE void moveByMonths(int months);
    /// To the first or last day of the week.
    Q_INVOKABLE void moveToWeekStart();
    Q_INVOKABLE void moveToWeekEnd();
    Q_INVOKABLE void moveToToday();
    /// Chooses the day at `position` of `days`; any other number does nothing.
    Q_INVOKABLE void choose(int position);

 Q_SIGNALS:
    void shown();
    void chosen();

 private:
    void moveTo(std::optional<Instant> day);
    [[nodiscard]] Instant dayAt(int position) const;
    [[nodiscard]] Instant today() const;
    void showPage();

    std::function<Calendar()> userCalendar_;
    Clock now_;
    // Days of the page are their noons in UTC, where no day is skipped and all have 24 hours.
    Calendar calendar_;
    DateFormatter title_;
    DateFormatter number_;
    DateFormatter name_;
    QStringList weekdays_;
    QStringList weekdayNames_;
    Instant chosen_;
    Instant cursor_;
    Instant first_;  ///< on the page
    int current_ = 0;
    LiveListModel<MonthDay> days_;
};

}  // namespace elmworth
