// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>

#include "screens/invoices/NewInvoiceTest.h"
#include "support/WindowPicture.h"
#include "theme/AppAppearance.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth {
namespace {

using test::utf8;
using testing::Contains;
using testing::Not;

constexpr const char* source = R"(
import QtQuick
import QtQuick.Controls.Basic
import Elmworth.Invoices

ApplicationWindow {
    id: window

    required property NewInvoiceModel sheet

    width: 1020
    height: 600
    visible: true

    NewInvoiceSheet { model: window.sheet }
}
)";

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg) warnings << message;
}

/// The sheet in a window as small as the program's may be.
class NewInvoiceView : public test::NewInvoiceTest {
 protected:
    NewInvoiceView() {
        loadEmbeddedFonts();
        AppAppearance::instance().setReducedMotion(true);
        QAccessible::setActive(true);
        warnings.clear();
        usual_ = qInstallMessageHandler(&collect);
        QQmlComponent component(&engine);
        component.setData(source, QUrl());
        window.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("sheet"), QVariant::fromValue(&sheet)}})));
        if (!window) warnings << component.errorString();
        window->requestActivate();
        settle();
    }
    ~NewInvoiceView() override {
        window.reset();
        qInstallMessageHandler(usual_);
        EXPECT_EQ(utf8(warnings.join(u'\n')), "");
    }

    void settle() {
        QCoreApplication::processEvents();
        test::pictureOf(*window);
        QCoreApplication::processEvents();
    }
    void open() {
        sheet.open();
        settle();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window.get(), key, modifiers);
        settle();
    }
    [[nodiscard]] std::string focus() {
        auto* item = window->activeFocusItem();
        auto* accessible = QAccessible::queryAccessibleInterface(item);
        return accessible ? utf8(accessible->text(QAccessible::Name)) : "";
    }
    void tabTo(const std::string& name) {
        for (int i = 0; i < 20 && focus() != name; ++i) press(Qt::Key_Tab);
        ASSERT_EQ(focus(), name);
    }
    /// The names of all that shows.
    [[nodiscard]] std::vector<std::string> names() {
        std::vector<std::string> found;
        collectNames(QAccessible::queryAccessibleInterface(window.get()), found);
        return found;
    }
    static void collectNames(QAccessibleInterface* item, std::vector<std::string>& found) {
        for (int i = 0; i < item->childCount(); ++i) {
            auto* child = item->child(i);
            if (!child || child->state().invisible) continue;
            found.push_back(utf8(child->text(QAccessible::Name)));
            collectNames(child, found);
        }
    }

    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;

 private:
    QtMessageHandler usual_ = nullptr;
};

TEST_F(NewInvoiceView, returnCreatesAtOnce) {
    work("2026-02-24T09:00Z");
    open();
    EXPECT_EQ(focus(), "Client");
    press(Qt::Key_Return);
    EXPECT_FALSE(sheet.isOpen());
    EXPECT_EQ(created.size(), 1U);
}

TEST_F(NewInvoiceView, returnCreatesFromEachField) {
    for (const char* field : {"Period", "From", "Through", "Tax %"}) {
        work("2026-02-24T09:00Z");
        created.clear();
        sheet.open(acme());
        settle();
        tabTo(field);
        press(Qt::Key_Return);
        EXPECT_EQ(created.size(), 1U) << field;
    }
}

TEST_F(NewInvoiceView, escapeLeavesWithoutAnInvoice) {
    work("2026-02-24T09:00Z");
    open();
    press(Qt::Key_Escape);
    EXPECT_FALSE(sheet.isOpen());
    EXPECT_TRUE(invoices().empty());
}

TEST_F(NewInvoiceView, tabGoesFromFieldToField) {
    work("2026-02-24T09:00Z");
    sheet.open(acme());
    settle();
    std::vector<std::string> order;
    for (int i = 0; i < 7; ++i) {
        order.push_back(focus());
        press(Qt::Key_Tab);
    }
    EXPECT_THAT(order, testing::ElementsAre("Client", "Period", "From", "Through", "Tax %",
                                            "Cancel", "Create Invoice"));
}

TEST_F(NewInvoiceView, theTaxIsTypedOver) {
    work("2026-02-24T09:00Z");
    open();
    tabTo("Tax %");
    press(Qt::Key_7);
    EXPECT_EQ(utf8(sheet.tax()->text()), "7");
    EXPECT_EQ(total(), "$107.00");
}

TEST_F(NewInvoiceView, theArrowsChooseThePeriod) {
    work("2026-02-24T09:00Z");
    open();
    tabTo("Period");
    press(Qt::Key_Down);
    EXPECT_EQ(preset(), "This Month");
    choose(DateRangePreset::today);
    settle();
    press(Qt::Key_Down);
    EXPECT_EQ(preset(), "Yesterday");
}

TEST_F(NewInvoiceView, isReadAsText) {
    setProfile([](BusinessProfile& profile) { profile.name = ""; });
    acme()->taxBasisPoints = 8'25;
    work("2026-02-24T09:00Z");
    open();
    const auto all = names();
    for (const char* name :
         {"New Invoice", "Next number INV-2026-001", "Dates: Feb 22, 2026 – Feb 28, 2026",
          "Rounding: Each entry up to 6 min", "Preview", "Website, 1.00 h × $100.00, $100.00",
          "Subtotal: $100.00", "Tax: $8.25", "Total: $108.25", "1 entries",
          "Your business name is empty, so the invoice header will be blank.", "Cancel",
          "Create Invoice"}) {
        EXPECT_THAT(all, Contains(name));
    }
    EXPECT_THAT(all, Not(Contains("Open Settings")));
    sheet.offerSettings();
    settle();
    EXPECT_THAT(names(), Contains("Open Settings"));
}

TEST_F(NewInvoiceView, withoutTimeOrTaxItShowsNeitherSumsNorTax) {
    open();
    EXPECT_THAT(names(), Contains("No unbilled, finished entries for this client in this period."));
    EXPECT_THAT(names(), Not(Contains("Total: $0.00")));
    work("2026-02-24T09:00Z");
    settle();
    EXPECT_THAT(names(), Contains("Total: $100.00"));
    EXPECT_THAT(names(), Not(Contains("Tax: $0.00")));
    EXPECT_THAT(names(), Not(Contains("Subtotal: $100.00")));
}

TEST_F(NewInvoiceView, customDaysTakeThePlaceOfTheDates) {
    work("2026-02-24T09:00Z");
    sheet.open(acme());
    settle();
    EXPECT_THAT(names(), Contains("From"));
    EXPECT_THAT(names(), Contains("Through"));
    EXPECT_THAT(names(), Not(Contains(testing::StartsWith("Dates"))));
}

TEST_F(NewInvoiceView, staysInASmallWindowWithManyLinesWhichScroll) {
    setProfile([](BusinessProfile& profile) { profile.name = ""; });
    for (int i = 0; i < 40; ++i) {
        work(project(std::string(60, 'x') + std::to_string(i)), "2026-02-24T09:00Z");
    }
    sheet.open(acme());
    settle();
    tabTo("Preview");
    auto* list = window->activeFocusItem();
    EXPECT_GT(list->height(), 40);
    EXPECT_EQ(list->property("contentHeight").toDouble(), 40 * 42);
    press(Qt::Key_End);
    EXPECT_EQ(list->property("contentY").toDouble(), 40 * 42 - list->height());
    press(Qt::Key_Home);
    EXPECT_EQ(list->property("contentY").toDouble(), 0);
    const QRectF place = list->mapRectToScene(list->boundingRect());
    EXPECT_TRUE(QRectF(0, 0, 1020, 600).contains(place));
}

}  // namespace
}  // namespace elmworth
