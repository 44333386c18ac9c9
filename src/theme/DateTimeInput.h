// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Calendar.h"
#include "platform/TimeInput.h"
#include "theme/DateTextField.h"
#include "theme/MonthCalendarModel.h"

namespace elmworth {

/// An instant that is typed or picked as a day and a time of the user's calendar. Whoever needs a
/// day alone leaves the time out of sight.
///
/// A day that is chosen keeps the time of the day; a time that a change of clocks skips on it
/// becomes the next valid one. A time that is typed is a whole minute; one that reads as before
/// changes nothing, so that seconds stay.
class DateTimeInput final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    Q_PROPERTY(elmworth::DateTextField* day READ day CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTextField* time READ time CONSTANT FINAL)
    Q_PROPERTY(elmworth::MonthCalendarModel* month READ month CONSTANT FINAL)

 public:
    /// `calendar` gives the user's current calendar at each call. The value is `now()` at first.
    DateTimeInput(std::function<Calendar()> calendar, Clock now,
                  const Locale& locale = Locale::current());
    ~DateTimeInput() override;

    // Made when they are first asked for: most inputs of a window are not seen.
    [[nodiscard]] DateTextField* day();
    [[nodiscard]] DateTextField* time();
    [[nodiscard]] MonthCalendarModel* month();

    /// What was last understood.
    [[nodiscard]] Instant value() const noexcept { return value_; }
    /// Shows `value` in both fields, in place of what was typed there.
    void setValue(Instant value);
    /// Whether both fields have texts that are understood.
    [[nodiscard]] bool isValid() const;
    /// Whether a field shows what somebody typed, and not the value.
    [[nodiscard]] bool isTyped() const;
    /// Somebody is done typing, in either field.
    void finish();

    /// Lets `month` show the day that stands now.
    Q_INVOKABLE void showMonth();

 Q_SIGNALS:
    /// The value, or whether it is valid, is another one now.
    void changed();

 private:
    class DayField;
    class TimeField;

    bool apply(Instant value);
    bool misread();
    void moveTo(std::optional<Instant> value);
    template <class Field>
    [[nodiscard]] DateTextField* made(std::unique_ptr<Field>& field);
    /// The fields that somebody has seen.
    [[nodiscard]] std::vector<DateTextField*> seen() const;
    [[nodiscard]] std::optional<Instant> onDay(const DateComponents& day) const;

    std::function<Calendar()> calendar_;
    Clock now_;
    Locale locale_;
    Instant value_;
    Instant settled_;  ///< the value before somebody began to type
    std::unique_ptr<MonthCalendarModel> month_;
    std::unique_ptr<DayField> day_;
    std::unique_ptr<TimeField> time_;
};

}  // namespace elmworth
