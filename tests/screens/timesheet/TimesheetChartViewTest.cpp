// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>

#include "records/DateRangePreset.h"
#include "screens/timesheet/DailyChartLegend.h"
#include "screens/timesheet/DailyChartPlot.h"
#include "screens/timesheet/Listed.h"
#include "screens/timesheet/StatsRowModel.h"
#include "support/ScopedEnvironment.h"
#include "support/WindowPicture.h"
#include "theme/AppAppearance.h"
#include "theme/Contrast.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)

namespace elmworth {
namespace {

using test::at;
using test::listed;
using test::moved;
using test::projectNamed;

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg) warnings << message;
}

constexpr const char* source = R"(
import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet

Window {
    id: window

    required property StatsRowModel stats
    required property DailyChartModel chart

    width: 800
    height: 420
    visible: true
    color: Theme.backgroundTop

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top }

        StatsRow { Layout.fillWidth: true; model: window.stats }
        DailyChart { Layout.fillWidth: true; model: window.chart }
    }
}
)";

/// The row and the chart in a window, over the week from March 2 in UTC.
class TimesheetChartView : public testing::Test {
 protected:
    TimesheetChartView() {
        loadEmbeddedFonts();
        AppAppearance::instance().setSetting(AppearanceSetting::dark);
        AppAppearance::instance().setReducedMotion(true);
        warnings.clear();
        usual_ = qInstallMessageHandler(&collect);
        show(7);
        QQmlComponent component(&engine);
        component.setData(source, QUrl());
        window.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("stats"), QVariant::fromValue(&stats)},
             {QStringLiteral("chart"), QVariant::fromValue(&model)}})));
        if (!window) warnings << component.errorString();
        QCoreApplication::processEvents();
    }
    ~TimesheetChartView() override {
        window.reset();
        qInstallMessageHandler(usual_);
        EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
    }

    void show(int days) {
        const auto range = customInterval(monday, moved(monday, (days - 1) * 86400.0),
                                          Calendar(Locale("en_US"), "UTC"));
        const std::vector entries{listed(web, "2026-03-02T08:00Z", "2026-03-02T11:00Z"),
                                  listed(app, "2026-03-02T11:00Z", "2026-03-02T12:00Z"),
                                  listed(web, "2026-03-04T08:00Z", "2026-03-04T10:00Z")};
        model.show(entries, range, monday, Calendar(Locale("en_US"), "UTC"));
        TimesheetSums sums(range);
        for (const auto& entry : entries) sums.add(entry);
        stats.show(std::move(sums), monday);
    }

    [[nodiscard]] DailyChartPlot& plot() const {
        return *find<DailyChartPlot>(*window->contentItem());
    }
    [[nodiscard]] QImage picture() const { return test::pictureOf(*window); }
    [[nodiscard]] QPoint inWindow(const QPointF& point) const {
        return plot().mapToScene(point).toPoint();
    }
    /// The middle of the bar in the chart.
    [[nodiscard]] QPointF middleOf(std::size_t bar) const {
        const DailyChartGeometry geometry(model.stacks(), plot().size(), plot().area().left() - 8);
        return geometry.bar(model.stacks().bars.at(bar)).center();
    }
    [[nodiscard]] std::string callout() const {
        auto text = plot().calloutTitle().toStdString();
        const auto* lines = plot().calloutLines();
        for (int i = 0; i < lines->rowCount(); ++i) {
            for (const int role : {0, 1}) {
                text += '|' + lines->data(lines->index(i, 0), Qt::UserRole + 1 + role)
                                  .toString()
                                  .toStdString();
            }
        }
        return text;
    }
    void press(Qt::Key key) { QTest::keyClick(window.get(), key); }

    template <class Item>
    [[nodiscard]] static Item* find(const QQuickItem& parent) {
        for (QQuickItem* child : parent.childItems()) {
            if (auto* item = qobject_cast<Item*>(child)) return item;
            if (auto* item = find<Item>(*child)) return item;
        }
        return nullptr;
    }

    test::ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    Instant monday = at("2026-03-02T00:00Z");
    Ref<Project> web = projectNamed("Website", nullptr, "#00FF00");
    Ref<Project> app = projectNamed("App", nullptr, "#FF0000");
    DailyChartModel model;
    StatsRowModel stats;
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;

 private:
    QtMessageHandler usual_ = nullptr;
};

TEST_F(TimesheetChartView, paintsTheBarsInTheColorsOfTheirProjects) {
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(inWindow(middleOf(0))), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(inWindow(middleOf(1))), QColor(Qt::green));
}

TEST_F(TimesheetChartView, followsTheAppearance) {
    const QPoint emptyDay = inWindow(QPointF(plot().width() - 20, 40));
    EXPECT_EQ(picture().pixelColor(emptyDay), QColor(0x0B, 0x0B, 0x0D));
    AppAppearance::instance().setSetting(AppearanceSetting::light);
    EXPECT_EQ(picture().pixelColor(emptyDay), QColor(0xF7, 0xF7, 0xF9));
}

TEST_F(TimesheetChartView, hasLegibleLabelsInBothAppearances) {
    for (const auto appearance : {AppearanceSetting::dark, AppearanceSetting::light}) {
        AppAppearance::instance().setSetting(appearance);
        const auto color = [&](const QQuickItem& item, const char* name) {
            return item.property(name).value<QColor>();
        };
        const auto& legend = *find<DailyChartLegend>(*window->contentItem());
        for (const QQuickItem* item :
             {static_cast<const QQuickItem*>(&plot()), static_cast<const QQuickItem*>(&legend)}) {
            const QColor ground = color(*item, "ground");
            EXPECT_GE(contrastRatio(composed(color(*item, "ink"), ground), ground), textContrast);
        }
    }
}

TEST_F(TimesheetChartView, saysWhatTheBarUnderThePointerIs) {
    EXPECT_FALSE(plot().hasCallout());
    QTest::mouseMove(window.get(), inWindow(middleOf(1)));
    EXPECT_EQ(callout(), "Monday, Mar 2|Website|3.0 hours");
    QTest::mouseMove(window.get(), inWindow(middleOf(0)));
    EXPECT_EQ(callout(), "Monday, Mar 2|App|1.0 hours");
    QTest::mouseMove(window.get(), QPoint(5, 5));
    EXPECT_FALSE(plot().hasCallout());
}

TEST_F(TimesheetChartView, theArrowKeysMoveOverTheDays) {
    press(Qt::Key_Tab);
    EXPECT_EQ(callout(), "Monday, Mar 2|Website|3.0 hours|App|1.0 hours");
    press(Qt::Key_Right);
    EXPECT_EQ(callout(), "Tuesday, Mar 3|No time|");
    press(Qt::Key_End);
    press(Qt::Key_Right);
    EXPECT_EQ(plot().column(), 6);
    press(Qt::Key_Left);
    EXPECT_EQ(plot().column(), 5);
    press(Qt::Key_Home);
    press(Qt::Key_Left);
    EXPECT_EQ(plot().column(), 0);
}

TEST_F(TimesheetChartView, theKeyboardStaysInTheChartWhenItsDayGoes) {
    show(31);
    press(Qt::Key_Tab);
    press(Qt::Key_End);
    EXPECT_EQ(plot().column(), 30);
    show(7);
    EXPECT_EQ(plot().column(), 6);
    press(Qt::Key_Left);
    EXPECT_EQ(callout(), "Saturday, Mar 7|No time|");
}

TEST_F(TimesheetChartView, theCalloutFollowsAChangeUnderThePointer) {
    QTest::mouseMove(window.get(), inWindow(middleOf(1)));
    model.show({}, {monday, monday + std::chrono::days(7)}, monday,
               Calendar(Locale("en_US"), "UTC"));
    EXPECT_FALSE(plot().hasCallout());
}

/// All names below `item` with the given role.
QStringList namesBelow(QAccessibleInterface* item, QAccessible::Role role) {
    QStringList names;
    for (int i = 0; i < item->childCount(); ++i) {
        auto* child = item->child(i);
        if (child->role() == role) names << child->text(QAccessible::Name);
        names << namesBelow(child, role);
    }
    return names;
}

TEST_F(TimesheetChartView, isReadAsText) {
    QAccessible::setActive(true);
    auto* root = QAccessible::queryAccessibleInterface(window.get());
    EXPECT_EQ(namesBelow(root, QAccessible::Chart), QStringList{QStringLiteral("Hours by day")});
    const auto days = namesBelow(root, QAccessible::ListItem);
    ASSERT_EQ(days.size(), 7);
    EXPECT_EQ(days[0], QStringLiteral("Monday: App 1.0 hours, Website 3.0 hours"));
    EXPECT_EQ(days[1], QStringLiteral("Tuesday: no time"));
    EXPECT_TRUE(namesBelow(root, QAccessible::StaticText)
                    .contains(QStringLiteral("Projects: App, Website")));
    EXPECT_EQ(namesBelow(root, QAccessible::Grouping),
              (QStringList{QStringLiteral("Tracked"), QStringLiteral("Billable value"),
                           QStringLiteral("Unbilled")}));
}

TEST_F(TimesheetChartView, isAsHighAsToldWithOneLineOfNames) {
    EXPECT_EQ(plot().parentItem()->height(), 150);
    EXPECT_EQ(plot().height(), 150 - 8 - 18);
}

TEST_F(TimesheetChartView, keepsItsLayoutWithThirtyLongNames) {
    std::vector<TimesheetEntry> entries;
    for (int i = 0; i < 30; ++i) {
        entries.push_back(listed(projectNamed(std::string(200, 'x') + std::to_string(i)),
                                 "2026-03-02T08:00Z", "2026-03-02T09:00Z"));
    }
    model.show(entries, {monday, monday + std::chrono::days(7)}, monday,
               Calendar(Locale("en_US"), "UTC"));
    EXPECT_FALSE(picture().isNull());
    const auto& legend = *find<DailyChartLegend>(*window->contentItem());
    EXPECT_EQ(legend.height(), 3 * 18) << "of three lines";
    EXPECT_EQ(plot().parentItem()->height(), 150) << "whatever its legend needs";
    EXPECT_EQ(legend.y() + legend.height(), 150);
    EXPECT_LE(plot().parentItem()->width(), 800);
}

}  // namespace
}  // namespace elmworth
