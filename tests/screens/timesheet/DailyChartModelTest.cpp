// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyChartModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "records/DateRangePreset.h"
#include "screens/timesheet/Listed.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::at;
using test::listed;
using test::projectNamed;

const Instant monday = at("2026-03-02T00:00Z");
const Instant noon = at("2026-03-04T12:00Z");

class DailyChart : public testing::Test {
 protected:
    void show(const std::vector<TimesheetEntry>& entries, int days,
              const Calendar& calendar = Calendar(Locale("en_US"), "UTC")) {
        const Instant last = *calendar.adding(days - 1, CalendarUnit::day, monday);
        model.show(entries, customInterval(monday, last, calendar), noon, calendar);
    }

    [[nodiscard]] std::string marks() const {
        std::string text;
        for (const auto& mark : model.dayMarks()) {
            text += std::to_string(mark.column) + mark.label.toStdString() + ' ';
        }
        return text;
    }
    [[nodiscard]] std::string nameOf(std::size_t column) const {
        return model.columns().at(column).name.toStdString();
    }
    [[nodiscard]] static std::string texts(const std::vector<DailyChartCallout>& lines) {
        std::string text;
        for (const auto& line : lines) {
            text += (line.label + u'|' + line.hours + u'\n').toStdString();
        }
        return text;
    }

    test::ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    DailyChartModel model;
    Ref<Project> web = projectNamed("Website");
    Ref<Project> app = projectNamed("App", nullptr, "#FF0000");
};

TEST_F(DailyChart, hasAColumnForEachDay) {
    show({}, 7);
    EXPECT_EQ(model.columns().size(), 7U);
    EXPECT_EQ(nameOf(1), "Tuesday: no time");
    show({}, 32);
    EXPECT_EQ(model.columns().size(), 32U);
}

TEST_F(DailyChart, ofTenDaysMarksEachDayByItsWeekday) {
    show({}, 10);
    EXPECT_EQ(marks(), "0Mon 1Tue 2Wed 3Thu 4Fri 5Sat 6Sun 7Mon 8Tue 9Wed ");
}

TEST_F(DailyChart, ofElevenDaysMarksEveryThirdDayByItsNumber) {
    show({}, 11);
    EXPECT_EQ(marks(), "02 35 68 911 ");
}

TEST_F(DailyChart, tellsADayInWords) {
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T11:00Z"),
          listed(app, "2026-03-02T11:00Z", "2026-03-02T11:30Z"),
          listed(nullptr, "2026-03-03T08:00Z", "2026-03-03T08:01Z")},
         7);
    EXPECT_EQ(nameOf(0), "Monday: App 0.5 hours, Website 3.0 hours");
    EXPECT_EQ(nameOf(1), "Tuesday: No project under 0.1 hours");
    EXPECT_TRUE(model.description().startsWith(
        QStringLiteral("Monday: App 0.5 hours, Website 3.0 hours; Tuesday: No project")));
    EXPECT_EQ(model.legendText(), QStringLiteral("Projects: App, Website, —"));
}

TEST_F(DailyChart, tellsTheDateWhereAWeekdayIsNotEnough) {
    show({}, 8);
    EXPECT_EQ(nameOf(7), "Monday, Mar 9: no time");
}

TEST_F(DailyChart, speaksTheLocaleOfTheMomentInTheCalendarsZone) {
    const test::ScopedEnvironment german("LC_ALL", "de_DE.UTF-8");
    show({}, 7, Calendar(Locale("de_DE"), "Pacific/Auckland"));
    EXPECT_EQ(marks(), "0Mo 1Di 2Mi 3Do 4Fr 5Sa 6So ");
    show({}, 7, Calendar(Locale("de_DE"), "America/New_York"));
    EXPECT_EQ(nameOf(0), "Sonntag: no time");
}

TEST_F(DailyChart, writesNumbersAsTheUserDoesWhateverTheDatesAre) {
    const test::ScopedEnvironment all("LC_ALL", std::nullopt);
    const test::ScopedEnvironment numbers("LC_NUMERIC", "de_DE.UTF-8");
    const test::ScopedEnvironment dates("LC_TIME", "en_US.UTF-8");
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T11:00Z"),
          listed(app, "2026-03-02T11:00Z", "2026-03-02T11:01Z")},
         7);
    EXPECT_EQ(nameOf(0), "Monday: App under 0,1 hours, Website 3,0 hours");
}

TEST_F(DailyChart, aDayOfAClockChangeHasOneColumn) {
    const Calendar berlin(Locale("en_US"), "Europe/Berlin");
    model.show(std::vector{listed(web, "2026-10-24T22:00Z", "2026-10-25T23:00Z")},
               {at("2026-10-18T22:00Z"), at("2026-10-25T23:00Z")}, noon, berlin);
    EXPECT_EQ(model.columns().size(), 7U);
    EXPECT_EQ(nameOf(6), "Sunday: Website 25.0 hours");
}

TEST_F(DailyChart, aBrokenColorIsDrawnInTheFallback) {
    show({listed(projectNamed("Web", nullptr, "mauve"), "2026-03-02T08:00Z", "2026-03-02T09:00Z"),
          listed(nullptr, "2026-03-02T08:00Z", "2026-03-02T09:00Z")},
         7);
    ASSERT_EQ(model.colors().size(), 2U);
    EXPECT_EQ(model.colors()[0], QColor(0x4F, 0x7C, 0xFF));
    EXPECT_EQ(model.colors()[1], QColor(0x99, 0x99, 0x99));
}

TEST_F(DailyChart, callsOutABarWithItsDay) {
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T11:00Z")}, 7);
    EXPECT_EQ(model.dayText(0), QStringLiteral("Monday, Mar 2"));
    EXPECT_EQ(texts(model.calloutOfBar(0)), "Website|3.0 hours\n");
    EXPECT_EQ(texts(model.calloutOfColumn(0)), "Website|3.0 hours\n");
    EXPECT_EQ(texts(model.calloutOfColumn(1)), "No time|\n");
}

TEST_F(DailyChart, callsOutADayFromTheTopDownAndSumsUpTheLast) {
    std::vector<TimesheetEntry> entries;
    for (const char* name : {"A", "B", "C", "D", "E", "F", "G"}) {
        entries.push_back(listed(projectNamed(name), "2026-03-02T08:00Z", "2026-03-02T09:00Z"));
    }
    show(entries, 7);
    EXPECT_EQ(
        texts(model.calloutOfColumn(0)),
        "G|1.0 hours\nF|1.0 hours\nE|1.0 hours\nD|1.0 hours\nC|1.0 hours\n2 more|2.0 hours\n");
    entries.pop_back();
    show(entries, 7);
    EXPECT_EQ(model.calloutOfColumn(0).size(), 6U);
}

TEST_F(DailyChart, cutsTheMiddleOutOfNamesOfAbsurdLength) {
    const std::string name = "Website" + std::string(100'000, 'x') + "Phase 2";
    show({listed(projectNamed(name), "2026-03-02T08:00Z", "2026-03-02T09:00Z"),
          listed(projectNamed("Two\nlines"), "2026-03-02T08:00Z", "2026-03-02T09:00Z")},
         7);
    EXPECT_EQ(model.labels()[0], QStringLiteral("Two lines"));
    const QString& label = model.labels()[1];
    EXPECT_EQ(label.size(), 80);
    EXPECT_TRUE(label.startsWith(QStringLiteral("Website")));
    EXPECT_EQ(label.count(u'…'), 1);
    EXPECT_TRUE(label.endsWith(QStringLiteral("Phase 2")));
}

TEST_F(DailyChart, cutsNoCharacterInTwo) {
    std::string name = "a";
    for (int i = 0; i < 100; ++i) name += "🎉";  // two code units each
    show({listed(projectNamed(name), "2026-03-02T08:00Z", "2026-03-02T09:00Z")}, 7);
    EXPECT_TRUE(model.labels()[0].isValidUtf16());
}

TEST_F(DailyChart, leavesTheColumnsOfDaysThatStayInPlace) {
    show({}, 7);
    const auto* columns = model.columnsModel();
    QSignalSpy removed(columns, &QAbstractItemModel::rowsRemoved);
    QSignalSpy reset(columns, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(columns, &QAbstractItemModel::rowsInserted);
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T11:00Z")}, 31);
    EXPECT_EQ(removed.size() + reset.size(), 0);
    EXPECT_EQ(inserted.size(), 1);
}

}  // namespace
}  // namespace elmworth
