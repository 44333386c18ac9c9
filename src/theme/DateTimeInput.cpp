// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/DateTimeInput.h"

#include <algorithm>
#include <utility>

namespace elmworth {

namespace {

/// The part of a second, which fields of a calendar leave out.
auto fraction(Instant instant) {
    return instant - std::chrono::floor<std::chrono::seconds>(instant);
}

bool isSameDay(const DateComponents& one, const DateComponents& other) {
    return one.year == other.year && one.month == other.month && one.day == other.day;
}

ClockTime clockTime(const DateComponents& components) {
    return {components.hour, components.minute};
}

}  // namespace

class DateTimeInput::DayField final : public DateTextField {
 public:
    DayField(DateTimeInput& owner, const Locale& locale) : owner_(owner), input_(locale) {}

 protected:
    [[nodiscard]] QString valueText() const override {
        return QString::fromStdString(input_.text(components(owner_.value_)));
    }
    [[nodiscard]] std::vector<DatePartSpan> parts() const override {
        return input_.parts(components(owner_.value_));
    }
    bool take(const QString& text) override {
        const auto settled = components(owner_.settled_);
        const auto day = input_.day(text.toStdString(), settled);
        if (!day) return owner_.misread();
        const auto value = isSameDay(*day, settled) ? owner_.settled_ : owner_.onDay(*day);
        return value ? owner_.apply(*value) : owner_.misread();
    }
    void settle() override { owner_.settled_ = owner_.value_; }
    void move(DatePart part, int steps) override {
        const auto unit = part == DatePart::year    ? CalendarUnit::year
                          : part == DatePart::month ? CalendarUnit::month
                                                    : CalendarUnit::day;
        owner_.moveTo(owner_.calendar_().adding(steps, unit, owner_.value_));
    }
    [[nodiscard]] DatePart smallestPart() const override { return DatePart::day; }
    [[nodiscard]] DatePart pagePart() const override { return DatePart::month; }
    [[nodiscard]] QString complaint() const override {
        return QStringLiteral("This is not a date. Type one like %1.").arg(valueText());
    }

 private:
    [[nodiscard]] DateComponents components(Instant instant) const {
        return owner_.calendar_().components(instant);
    }

    DateTimeInput& owner_;
    DateInput input_;
};

class DateTimeInput::TimeField final : public DateTextField {
 public:
    TimeField(DateTimeInput& owner, const Locale& locale) : owner_(owner), input_(locale) {}

 protected:
    [[nodiscard]] QString valueText() const override {
        return QString::fromStdString(input_.text(clock(owner_.value_)));
    }
    [[nodiscard]] std::vector<DatePartSpan> parts() const override {
        return input_.parts(clock(owner_.value_));
    }
    bool take(const QString& text) override {
        const auto time = input_.time(text.toStdString());
        if (!time) return owner_.misread();
        const auto value =
            *time == clock(owner_.settled_)
                ? owner_.settled_
                : owner_.calendar_().settingTime(time->hour, time->minute, 0, owner_.settled_);
        return value ? owner_.apply(*value) : owner_.misread();
    }
    void settle() override { owner_.settled_ = owner_.value_; }
    /// Hours and minutes pass as they do on a clock, so that both halves of a repeated hour are
    /// reached, and the next day is after midnight.
    void move(DatePart part, int steps) override {
        if (part == DatePart::hour) return owner_.moveTo(owner_.value_ + std::chrono::hours(steps));
        if (part == DatePart::minute)
            return owner_.moveTo(owner_.value_ + std::chrono::minutes(steps));
        const auto calendar = owner_.calendar_();
        const auto now = calendar.components(owner_.value_);
        const auto moved =
            calendar.settingTime((now.hour + 12) % 24, now.minute, now.second, owner_.value_);
        if (moved) owner_.moveTo(*moved + fraction(owner_.value_));
    }
    [[nodiscard]] DatePart smallestPart() const override { return DatePart::minute; }
    [[nodiscard]] DatePart pagePart() const override { return DatePart::hour; }
    [[nodiscard]] QString complaint() const override {
        return QStringLiteral("This is not a time. Type one like %1.").arg(valueText());
    }

 private:
    [[nodiscard]] ClockTime clock(Instant instant) const {
        return clockTime(owner_.calendar_().components(instant));
    }

    DateTimeInput& owner_;
    TimeInput input_;
};

DateTimeInput::DateTimeInput(std::function<Calendar()> calendar, Clock now, const Locale& locale)
    : calendar_(std::move(calendar)),
      now_(std::move(now)),
      locale_(locale),
      value_(now_()),
      settled_(value_) {}

DateTimeInput::~DateTimeInput() = default;

template <class Field>
DateTextField* DateTimeInput::made(std::unique_ptr<Field>& field) {
    if (!field) {
        field = std::make_unique<Field>(*this, locale_);
        connect(field.get(), &DateTextField::validityChanged, this, &DateTimeInput::changed);
    }
    return field.get();
}

DateTextField* DateTimeInput::day() {
    return made(day_);
}

DateTextField* DateTimeInput::time() {
    return made(time_);
}

MonthCalendarModel* DateTimeInput::month() {
    if (!month_) {
        month_ = std::make_unique<MonthCalendarModel>(calendar_, now_, locale_);
        connect(month_.get(), &MonthCalendarModel::chosen, this, [this] {
            if (const auto chosen = onDay(month_->chosenDay())) setValue(*chosen);
        });
    }
    return month_.get();
}

std::vector<DateTextField*> DateTimeInput::seen() const {
    std::vector<DateTextField*> fields;
    if (day_) fields.push_back(day_.get());
    if (time_) fields.push_back(time_.get());
    return fields;
}

bool DateTimeInput::isValid() const {
    return std::ranges::all_of(seen(), &DateTextField::isValid);
}

bool DateTimeInput::isTyped() const {
    return std::ranges::any_of(seen(), &DateTextField::isTyped);
}

void DateTimeInput::finish() {
    for (auto* field : seen()) field->finish();
}

void DateTimeInput::setValue(Instant value) {
    const bool isOther = value != value_;
    value_ = value;
    settled_ = value;
    for (auto* field : seen()) field->show();
    if (isOther) Q_EMIT changed();
}

void DateTimeInput::showMonth() {
    if (day_) day_->finish();
    month()->show(calendar_().components(value_));
}

/// The fields in which nobody types show what comes of it.
bool DateTimeInput::apply(Instant value) {
    if (value == value_) return true;
    value_ = value;
    for (auto* field : seen()) field->follow();
    Q_EMIT changed();
    return true;
}

/// What was typed no longer means anything: as if it had not been typed.
bool DateTimeInput::misread() {
    apply(settled_);
    return false;
}

void DateTimeInput::moveTo(std::optional<Instant> value) {
    // Beyond these years a text no longer means the day that it was written for.
    constexpr Instant first = std::chrono::sys_days(std::chrono::year(2) / 1 / 1);
    constexpr Instant last = std::chrono::sys_days(std::chrono::year(9998) / 12 / 31);
    if (!value || *value < first || *value > last) return;
    settled_ = *value;
    apply(*value);
}

/// The time of the day that stands now, on another day.
std::optional<Instant> DateTimeInput::onDay(const DateComponents& day) const {
    const auto calendar = calendar_();
    auto wanted = calendar.components(settled_);
    wanted.year = day.year;
    wanted.month = day.month;
    wanted.day = day.day;
    const auto moved = calendar.date(wanted);
    return moved ? std::optional(*moved + fraction(settled_)) : std::nullopt;
}

}  // namespace elmworth
