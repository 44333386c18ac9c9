// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/DateTimeInput.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::iso;
using test::rowName;

/// A field over an instant in a time zone, and how often it told of changes.
struct Typed {
    Typed(const char* localeName, const char* zone, const char* start)
        : locale(localeName),
          input([this, zone] { return Calendar(locale, zone); }, [start] { return at(start); },
                locale) {
        QObject::connect(&input, &DateTimeInput::changed, [this] { ++changes; });
    }
    void type(DateTextField* field, const char* text) {
        field->edit(QString::fromUtf8(text));
        field->finish();
    }
    [[nodiscard]] std::string day() { return input.day()->text().toStdString(); }
    [[nodiscard]] std::string time() { return input.time()->text().toStdString(); }
    [[nodiscard]] std::string value() const { return iso(input.value()); }

    Locale locale;
    int changes = 0;
    DateTimeInput input;
};

struct ChangeRow {
    const char* name;
    const char* zone;
    const char* start;
    const char* day;   ///< typed; empty for nothing
    const char* time;  ///< typed then; empty for nothing
    const char* value;
    const char* shownTime;
};

void PrintTo(const ChangeRow& row, std::ostream* out) {
    *out << row.name;
}

class DateTimeInputTyped : public testing::TestWithParam<ChangeRow> {};

TEST_P(DateTimeInputTyped, showsTheInstantThatItMeans) {
    const auto& row = GetParam();
    Typed typed("de_DE", row.zone, row.start);
    if (*row.day != '\0') typed.type(typed.input.day(), row.day);
    if (*row.time != '\0') typed.type(typed.input.time(), row.time);
    EXPECT_EQ(typed.value(), row.value);
    EXPECT_EQ(typed.time(), row.shownTime);
    EXPECT_TRUE(typed.input.isValid());
}

INSTANTIATE_TEST_SUITE_P(
    Row, DateTimeInputTyped,
    testing::ValuesIn(std::vector<ChangeRow>{
        {"Day", "UTC", "2026-03-02T09:30Z", "5.3.2026", "", "2026-03-05T09:30:00Z", "09:30"},
        {"Time", "UTC", "2026-03-02T09:30Z", "", "10:15", "2026-03-02T10:15:00Z", "10:15"},
        {"Both", "UTC", "2026-03-02T09:30Z", "5.3.", "1015", "2026-03-05T10:15:00Z", "10:15"},
        {"SecondsStayOnAnotherDay", "UTC", "2026-03-02T09:30:37Z", "5.3.", "",
         "2026-03-05T09:30:37Z", "09:30"},
        {"SecondsStayWhenTheTimeReadsAsBefore", "UTC", "2026-03-02T09:30:37Z", "", "9.30",
         "2026-03-02T09:30:37Z", "09:30"},
        {"AnotherTimeIsAWholeMinute", "UTC", "2026-03-02T09:30:37Z", "", "9:31",
         "2026-03-02T09:31:00Z", "09:31"},
        {"SkippedTimeInBerlin", "Europe/Berlin", "2026-03-29T09:00+02:00", "", "2:30",
         "2026-03-29T01:00:00Z", "03:00"},
        {"DayThatSkipsTheTimeInBerlin", "Europe/Berlin", "2026-03-28T02:30+01:00", "29.3.", "",
         "2026-03-29T01:00:00Z", "03:00"},
        {"SkippedTimeInNewYork", "America/New_York", "2026-03-08T09:00-04:00", "", "2:30",
         "2026-03-08T07:00:00Z", "03:00"},
        {"RepeatedTimeIsTheFirst", "Europe/Berlin", "2026-10-25T09:00+01:00", "", "2:30",
         "2026-10-25T00:30:00Z", "02:30"},
        {"SecondOfTheRepeatedTimesStays", "Europe/Berlin", "2026-10-25T02:30+01:00", "", "230",
         "2026-10-25T01:30:00Z", "02:30"},
        {"MidnightThatIsSkipped", "America/Santiago", "2026-09-06T09:00-03:00", "", "0:00",
         "2026-09-06T04:00:00Z", "01:00"},
    }),
    rowName);

TEST(DateTimeInput, whatIsUnderstoodCountsWhileItIsTyped) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    for (const char* text : {"1", "10", "10:", "10:1"})
        typed.input.time()->edit(QString::fromUtf8(text));
    EXPECT_EQ(typed.value(), "2026-03-02T09:30:00Z");  // 10:1 is none
    typed.input.time()->edit(QStringLiteral("10:15"));
    EXPECT_EQ(typed.value(), "2026-03-02T10:15:00Z");
    EXPECT_EQ(typed.time(), "10:15");
    typed.input.time()->finish();
    EXPECT_EQ(typed.time(), "10:15\u202fAM");
}

TEST(DateTimeInput, aTextThatIsNotADateStaysAndSaysSoWhenItIsFinished) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    typed.input.day()->edit(QStringLiteral("2/30/2026"));
    EXPECT_FALSE(typed.input.isValid());
    EXPECT_EQ(typed.input.day()->problem(), QString());
    typed.input.finish();
    EXPECT_EQ(typed.day(), "2/30/2026");
    EXPECT_EQ(typed.input.day()->problem().toStdString(),
              "This is not a date. Type one like 3/2/2026.");
    EXPECT_EQ(typed.value(), "2026-03-02T09:30:00Z");
    typed.type(typed.input.day(), "2/28/2026");
    EXPECT_EQ(typed.input.day()->problem(), QString());
    EXPECT_EQ(typed.value(), "2026-02-28T09:30:00Z");
}

TEST(DateTimeInput, aTextThatIsNotATimeStaysWhileTheDayChanges) {
    Typed typed("de_DE", "UTC", "2026-03-02T09:30Z");
    typed.type(typed.input.time(), "25:00");
    typed.type(typed.input.day(), "3.3.");
    EXPECT_EQ(typed.time(), "25:00");
    EXPECT_EQ(typed.input.time()->problem().toStdString(),
              "This is not a time. Type one like 09:30.");
    EXPECT_FALSE(typed.input.isValid());
}

TEST(DateTimeInput, anEmptyFieldIsNoDate) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    typed.type(typed.input.day(), "");
    EXPECT_FALSE(typed.input.isValid());
    EXPECT_EQ(typed.day(), "");
}

TEST(DateTimeInput, aValueThatIsSetReplacesWhatWasTyped) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    typed.type(typed.input.day(), "nonsense");
    typed.input.setValue(at("2026-03-04T11:00Z"));
    EXPECT_TRUE(typed.input.isValid());
    EXPECT_EQ(typed.day(), "3/4/2026");
    EXPECT_EQ(typed.input.day()->problem(), QString());
}

TEST(DateTimeInput, aDayThatTheZoneSkippedIsNoDate) {
    Typed typed("en_US", "Pacific/Apia", "2011-12-29T09:00-10:00");
    typed.type(typed.input.day(), "12/30/2011");
    EXPECT_FALSE(typed.input.isValid());
    typed.type(typed.input.day(), "12/31/2011");
    EXPECT_TRUE(typed.input.isValid());
    EXPECT_EQ(typed.value(), "2011-12-30T19:00:00Z");
}

struct StepRow {
    const char* name;
    const char* start;
    bool isTime;
    int cursor;
    int steps;
    const char* value;
    const char* marked;  ///< the part that stands selected then
};

void PrintTo(const StepRow& row, std::ostream* out) {
    *out << row.name;
}

class DateTimeInputStep : public testing::TestWithParam<StepRow> {};

TEST_P(DateTimeInputStep, movesThePartUnderTheCursor) {
    const auto& row = GetParam();
    Typed typed("en_US", "America/New_York", row.start);
    auto* field = row.isTime ? typed.input.time() : typed.input.day();
    const auto span = field->step(row.cursor, row.steps);
    EXPECT_EQ(typed.value(), row.value);
    EXPECT_EQ(field->text().mid(span.begin, span.end - span.begin).toStdString(), row.marked);
}

INSTANTIATE_TEST_SUITE_P(
    Row, DateTimeInputStep,
    testing::ValuesIn(std::vector<StepRow>{
        {"Month", "2026-01-31T12:00-05:00", false, 0, 1, "2026-02-28T17:00:00Z", "2"},
        {"MonthAtItsEnd", "2026-01-31T12:00-05:00", false, 1, -1, "2025-12-31T17:00:00Z", "12"},
        {"Day", "2026-01-31T12:00-05:00", false, 3, 1, "2026-02-01T17:00:00Z", "1"},
        {"DayOverTheChangeOfClocks", "2026-03-07T12:00-05:00", false, 3, 1, "2026-03-08T16:00:00Z",
         "8"},
        {"Year", "2024-02-29T12:00-05:00", false, 8, 1, "2025-02-28T17:00:00Z", "2025"},
        {"Hour", "2026-01-31T09:05:37-05:00", true, 0, 1, "2026-01-31T15:05:37Z", "10"},
        {"HourIntoTheNextDay", "2026-01-31T23:05-05:00", true, 0, 1, "2026-02-01T05:05:00Z", "12"},
        {"HourOverTheSkippedOne", "2026-03-08T01:30-05:00", true, 0, 1, "2026-03-08T07:30:00Z",
         "3"},
        {"HourIntoTheRepeatedOne", "2026-11-01T01:30-04:00", true, 0, 1, "2026-11-01T06:30:00Z",
         "1"},
        {"Minute", "2026-01-31T09:59-05:00", true, 2, 1, "2026-01-31T15:00:00Z", "00"},
        {"MinuteBack", "2026-01-31T09:00-05:00", true, 4, -1, "2026-01-31T13:59:00Z", "59"},
        {"HalfOfTheDay", "2026-01-31T09:05-05:00", true, 6, 1, "2026-02-01T02:05:00Z", "PM"},
        {"BeyondTheText", "2026-01-31T09:05-05:00", true, 99, 1, "2026-02-01T02:05:00Z", "PM"},
    }),
    rowName);

TEST(DateTimeInput, stepsOfAWholeTextAreDaysAndMinutes) {
    Typed typed("en_US", "UTC", "2026-03-31T09:30Z");
    const auto day = typed.input.day()->step(-1, 1);
    EXPECT_EQ(typed.value(), "2026-04-01T09:30:00Z");
    EXPECT_EQ(typed.day().substr(static_cast<std::size_t>(day.begin), 1), "1");
    typed.input.time()->step(-1, -2);
    EXPECT_EQ(typed.value(), "2026-04-01T09:28:00Z");
}

TEST(DateTimeInput, pagesAreMonthsAndHours) {
    Typed typed("en_US", "UTC", "2026-03-31T09:30Z");
    typed.input.day()->page(8, -1);
    EXPECT_EQ(typed.value(), "2026-02-28T09:30:00Z");
    typed.input.time()->page(3, 2);
    EXPECT_EQ(typed.value(), "2026-02-28T11:30:00Z");
}

TEST(DateTimeInput, aStepTakesUpWhatWasTyped) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    typed.input.day()->edit(QStringLiteral("4/5"));
    typed.input.day()->step(3, 1);
    EXPECT_EQ(typed.day(), "4/6/2026");
}

TEST(DateTimeInput, aTextThatIsNotADateIsNotStepped) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    typed.input.day()->edit(QStringLiteral("soon"));
    typed.input.day()->step(1, 1);
    typed.input.day()->page(1, 1);
    EXPECT_EQ(typed.day(), "soon");
    EXPECT_EQ(typed.value(), "2026-03-02T09:30:00Z");
}

TEST(DateTimeInput, stepsStayWithinTheYearsThatTextsCanName) {
    Typed typed("en_US", "UTC", "9998-12-31T09:30Z");
    typed.input.day()->step(3, 1);
    EXPECT_EQ(typed.day(), "12/31/9998");
}

TEST(DateTimeInput, aDayOfTheMonthsPageKeepsTheTime) {
    Typed typed("de_DE", "Europe/Berlin", "2026-03-02T09:30:37+01:00");
    typed.input.showMonth();
    typed.input.month()->moveByDays(27);
    typed.input.month()->choose(typed.input.month()->current());
    EXPECT_EQ(typed.value(), "2026-03-29T07:30:37Z");
    EXPECT_EQ(typed.day(), "29.03.2026");
}

TEST(DateTimeInput, onlyAChangeIsTold) {
    Typed typed("en_US", "UTC", "2026-03-02T09:30Z");
    typed.type(typed.input.time(), "930");
    typed.input.setValue(at("2026-03-02T09:30Z"));
    EXPECT_EQ(typed.changes, 0);
    typed.type(typed.input.time(), "931");
    EXPECT_EQ(typed.changes, 1);
}

}  // namespace
}  // namespace elmworth
