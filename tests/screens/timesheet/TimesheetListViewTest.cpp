// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <chrono>
#include <memory>

#include "screens/timesheet/TimesheetTest.h"
#include "theme/AppAppearance.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)

namespace elmworth {
namespace {

using test::at;

constexpr const char* source = R"(
import QtQuick
import Elmworth.Timesheet

Window {
    id: window

    required property TimesheetModel timesheet
    property TimesheetList list: lines

    width: 1000
    height: 700
    visible: true

    TimesheetList {
        id: lines

        anchors.fill: parent
        focus: true
        timesheet: window.timesheet
    }
}
)";

/// The list in a window, with three entries on each of thirty days.
class TimesheetListView : public test::TimesheetTest {
 protected:
    TimesheetListView() {
        loadEmbeddedFonts();
        AppAppearance::instance().setReducedMotion(true);
        defaults.setBoolean("hideGettingStarted", true);
        for (int day = 0; day < 30; ++day) {
            for (int hour : {1, 3, 5}) {
                const Instant start = at("2026-03-02T00:00Z") - std::chrono::hours(24 * day - hour);
                timer.library.addEntry(website, start, start + std::chrono::hours(1));
            }
        }
        context().save();
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("timesheet"), QVariant::fromValue(model.get())}})));
        if (window_ == nullptr) ADD_FAILURE() << component.errorString().toStdString();
        list_ = window_->property("list").value<QQuickItem*>();
        settle();
    }
    void settle() {
        turn();
        QCoreApplication::processEvents();
        window_->grabWindow();
        QCoreApplication::processEvents();
    }
    void scrollTo(double y) {
        list_->setProperty("contentY", y);
        settle();
    }
    /// The places of what shows, in the order in which it is read.
    [[nodiscard]] std::vector<double> placesAsRead() const {
        std::vector<double> places;
        for (const auto* item : list_->property("contentItem").value<QQuickItem*>()->childItems()) {
            if (item->isVisible()) places.push_back(item->y());
        }
        return places;
    }
    [[nodiscard]] QQuickItem* head() const {
        return list_->property("headerItem").value<QQuickItem*>();
    }

    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
    QQuickItem* list_ = nullptr;
};

TEST_F(TimesheetListView, isReadAsItIsSeenAfterAnotherPeriodAndAfterScrolling) {
    const auto expectInOrder = [&](const char* when) {
        const auto places = placesAsRead();
        EXPECT_GT(places.size(), 3U) << when;
        EXPECT_TRUE(std::is_sorted(places.begin(), places.end())) << when;
    };
    for (const char* period : {"This Week", "Last Month", "Today", "This Year", "Yesterday"}) {
        choosePreset(period);
        settle();
        expectInOrder(period);
    }
    choosePreset("This Year");
    for (const double y : {0.0, 1500.0, 700.0, 3000.0, 100.0}) {
        scrollTo(y);
        expectInOrder("scrolled");
    }
    add(shop, "2026-02-20T00:30Z", "2026-02-20T00:45Z");
    settle();
    expectInOrder("another one came");
}

TEST_F(TimesheetListView, opensTheMenuOfTheCurrentLineAlsoWhenItIsScrolledAway) {
    choosePreset("This Year");
    model->selection()->moveCurrent(-1);
    ASSERT_GT(model->selection()->currentRow(), 80);
    scrollTo(list_->property("originY").toDouble());
    QSignalSpy requested(list_, SIGNAL(menuRequested(int, QQuickItem*, double, double)));
    QMetaObject::invokeMethod(list_, "requestMenu");
    ASSERT_EQ(requested.size(), 1);
    EXPECT_EQ(requested[0][0].toInt(), model->selection()->currentRow());
    const auto* line = requested[0][1].value<QQuickItem*>();
    ASSERT_NE(line, nullptr);
    const double y = line->mapToItem(list_, QPointF()).y();
    EXPECT_GE(y, 0);
    EXPECT_LE(y + line->height(), list_->height());
}

TEST_F(TimesheetListView, showsWhichLineAMenuIsOpenOn) {
    model->selection()->moveCurrent(1);
    QSignalSpy requested(list_, SIGNAL(menuRequested(int, QQuickItem*, double, double)));
    QMetaObject::invokeMethod(list_, "requestMenu");
    ASSERT_EQ(requested.size(), 1);
    auto* line = requested[0][1].value<QQuickItem*>();
    ASSERT_NE(line, nullptr);
    EXPECT_FALSE(line->property("hasMenu").toBool());
    list_->setProperty("menuLine", QVariant::fromValue(line));
    EXPECT_TRUE(line->property("hasMenu").toBool());
    list_->setProperty("menuLine", QVariant::fromValue<QQuickItem*>(nullptr));
    EXPECT_FALSE(line->property("hasMenu").toBool());
}

TEST_F(TimesheetListView, movesWhenTheBannerComesAndDoesNotJump) {
    AppAppearance::instance().setReducedMotion(false);
    const double before = head()->height();
    QSignalSpy moved(head(), &QQuickItem::heightChanged);
    service().start(website);
    turn();
    QCoreApplication::processEvents();
    EXPECT_LT(head()->height(), before + 40) << "not all of it at once";
    ASSERT_TRUE(QTest::qWaitFor([&] { return head()->height() >= before + 80; }));
    EXPECT_GT(moved.size(), 1);
    AppAppearance::instance().setReducedMotion(true);
    service().stop();
    settle();
    EXPECT_EQ(head()->height(), before);
}

}  // namespace
}  // namespace elmworth
