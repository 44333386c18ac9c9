// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/MonthCalendarModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::rowName;

/// The page of Monday, 2026-03-02.
struct Page {
    explicit Page(const char* localeName, const char* zone = "UTC",
                  const char* now = "2026-03-02T12:00Z")
        : locale(localeName),
          month([this, zone] { return Calendar(locale, zone); }, [now] { return at(now); },
                locale) {}

    [[nodiscard]] std::string marked(bool MonthDay::*mark) const {
        std::string texts;
        for (const auto& day : month.days()) {
            if (day.*mark) texts += (texts.empty() ? "" : " ") + day.text.toStdString();
        }
        return texts;
    }
    [[nodiscard]] std::string current() const { return name(month.current()); }
    [[nodiscard]] std::string name(int position) const {
        return month.days().at(static_cast<std::size_t>(position)).name.toStdString();
    }

    Locale locale;
    MonthCalendarModel month;
};

struct WordsRow {
    const char* name;
    const char* locale;
    const char* title;
    const char* weekdays;
    const char* firstDay;
};

void PrintTo(const WordsRow& row, std::ostream* out) {
    *out << row.name;
}

class MonthCalendarWords : public testing::TestWithParam<WordsRow> {};

TEST_P(MonthCalendarWords, areTheLocalesAndItsWeekBeginsTheRows) {
    const auto& row = GetParam();
    const Page page(row.locale);
    EXPECT_EQ(page.month.title().toStdString(), row.title);
    EXPECT_EQ(page.month.weekdays().join(u' ').toStdString(), row.weekdays);
    EXPECT_EQ(page.name(0), row.firstDay);
}

INSTANTIATE_TEST_SUITE_P(
    Row, MonthCalendarWords,
    testing::ValuesIn(std::vector<WordsRow>{
        {"American", "en_US", "March 2026", "Su Mo Tu We Th Fr Sa", "Sunday, March 1, 2026"},
        {"British", "en_GB", "March 2026", "Mo Tu We Th Fr Sa Su", "Monday, 23 February 2026"},
        {"German", "de_DE", "März 2026", "Mo. Di. Mi. Do. Fr. Sa. So.", "Montag, 23. Februar 2026"},
        {"Swedish", "sv_SE", "mars 2026", "må ti on to fr lö sö", "måndag 23 februari 2026"},
        {"Japanese", "ja_JP", "2026年3月", "日 月 火 水 木 金 土", "2026年3月1日日曜日"},
        {"Egyptian", "ar_EG", "مارس ٢٠٢٦", "سبت أحد إثنين ثلاثاء أربعاء خميس جمعة",
         "السبت، ٢٨ فبراير ٢٠٢٦"},
    }),
    rowName);

TEST(MonthCalendar, sixWeeksShowWithTheMonthTodayAndTheChosenDayMarked) {
    Page page("en_GB");
    page.month.show({2026, 3, 12});
    EXPECT_EQ(page.month.days().size(), 42U);
    EXPECT_EQ(page.marked(&MonthDay::isToday), "2");
    EXPECT_EQ(page.marked(&MonthDay::isChosen), "12");
    EXPECT_EQ(page.marked(&MonthDay::isCurrent), "12");
    EXPECT_EQ(page.marked(&MonthDay::isInMonth).substr(0, 5), "1 2 3");
    EXPECT_EQ(page.name(7), "Monday, 2 March 2026, today");
}

TEST(MonthCalendar, todayIsTheUsersDayAndNotTheOneInUTC) {
    const Page page("en_GB", "Asia/Kathmandu", "2026-03-02T20:00Z");
    EXPECT_EQ(page.marked(&MonthDay::isToday), "3");
}

TEST(MonthCalendar, keysMoveOverTheDaysAndLeaveTheChosenOne) {
    Page page("en_GB");
    page.month.moveByDays(-7);
    EXPECT_EQ(page.current(), "Monday, 23 February 2026");
    EXPECT_EQ(page.month.title().toStdString(), "February 2026");
    page.month.moveToWeekEnd();
    EXPECT_EQ(page.current(), "Sunday, 1 March 2026");
    page.month.moveToWeekStart();
    EXPECT_EQ(page.current(), "Monday, 23 February 2026");
    page.month.moveByMonths(13);
    EXPECT_EQ(page.current(), "Tuesday, 23 March 2027");
    page.month.moveToToday();
    EXPECT_EQ(page.current(), "Monday, 2 March 2026, today");
    EXPECT_EQ(page.month.chosenDay().day, 2);
}

TEST(MonthCalendar, aMonthWithFewerDaysHasItsLast) {
    Page page("en_GB");
    page.month.show({2026, 1, 31});
    page.month.moveByMonths(1);
    EXPECT_EQ(page.current(), "Saturday, 28 February 2026");
}

TEST(MonthCalendar, aChosenDayIsTold) {
    Page page("en_GB");
    int count = 0;
    QObject::connect(&page.month, &MonthCalendarModel::chosen, [&] { ++count; });
    page.month.choose(10);
    EXPECT_EQ(page.month.chosenDay().day, 5);
    page.month.choose(-1);
    page.month.choose(42);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(page.month.chosenDay().day, 5);
}

TEST(MonthCalendar, itsPageChangesInPlace) {
    Page page("en_GB");
    const QAbstractItemModelTester tester(page.month.daysModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int i = 0; i < 24; ++i) page.month.moveByMonths(1);
    EXPECT_EQ(page.month.title().toStdString(), "March 2028");
}

TEST(MonthCalendar, nobodyGetsBeyondTheYearsThatTextsCanName) {
    Page page("en_GB");
    page.month.moveByMonths(12 * 9000);
    EXPECT_EQ(page.month.title().toStdString(), "March 2026");
}

}  // namespace
}  // namespace elmworth
