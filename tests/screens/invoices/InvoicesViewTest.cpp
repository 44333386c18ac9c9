// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The section in a window: what it reads and keeps while it shows, and what the keys do.

#include <gmock/gmock.h>

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>

#include "screens/invoices/InvoicesTest.h"
#include "support/WindowPicture.h"
#include "theme/AppAppearance.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth {
namespace {

using test::utf8;
using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* source = R"(
import QtQuick
import QtQuick.Controls.Basic
import Elmworth.Invoices

ApplicationWindow {
    id: window

    required property InvoicesModel invoices

    width: 806
    height: 600
    visible: true

    InvoicesView {
        anchors.fill: parent
        focus: true
        model: window.invoices
    }
}
)";

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg) warnings << message;
}

class InvoicesView : public test::InvoicesTest {
 protected:
    InvoicesView() {
        loadEmbeddedFonts();
        AppAppearance::instance().setReducedMotion(true);
        QAccessible::setActive(true);
        model.setShown(false);  // the view is to say when it shows
        warnings.clear();
        usual_ = qInstallMessageHandler(&collect);
    }
    ~InvoicesView() override {
        window_.reset();
        qInstallMessageHandler(usual_);
        EXPECT_EQ(utf8(warnings.join(u'\n')), "");
    }

    void addMany(int count) {
        for (int i = 1; i <= count; ++i) {
            timer.library.addInvoice("INV-" + std::to_string(1000 + i), acme())->issueDate =
                test::at("2026-01-01T12:00Z") + std::chrono::minutes(i);
        }
        save();
    }
    void show() {
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("invoices"), QVariant::fromValue(&model)}})));
        if (!window_) FAIL() << component.errorString().toStdString();
        window_->requestActivate();
        settle();
    }
    void settle() {
        turn();
        QCoreApplication::processEvents();
        test::pictureOf(*window_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window_.get(), static_cast<Qt::Key>(key), modifiers);
        settle();
    }
    void click(const QQuickItem& item, Qt::MouseButton button = Qt::LeftButton) {
        const QPointF middle(item.width() / 2, item.height() / 2);
        QTest::mouseClick(window_.get(), button, {}, item.mapToScene(middle).toPoint());
        settle();
    }
    void takeKeyboard() {
        QMetaObject::invokeMethod(viewIn(window_->contentItem()), "takeKeyboard");
        settle();
    }

    [[nodiscard]] static QQuickItem* viewIn(QQuickItem* item) {
        if (item->metaObject()->indexOfMethod("takeKeyboard()") >= 0) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = viewIn(child)) return found;
        }
        return nullptr;
    }
    /// What shows under this name for assistive technology, or null.
    [[nodiscard]] QQuickItem* named(const std::string& name,
                                    QAccessible::Role role = QAccessible::NoRole) const {
        return namedIn(QAccessible::queryAccessibleInterface(window_.get()), name, role);
    }
    [[nodiscard]] static QQuickItem* namedIn(QAccessibleInterface* from, const std::string& name,
                                             QAccessible::Role role) {
        for (int i = 0; i < from->childCount(); ++i) {
            auto* child = from->child(i);
            if (!child || child->state().invisible) continue;
            const bool isOfRole = role == QAccessible::NoRole || role == child->role();
            if (isOfRole && utf8(child->text(QAccessible::Name)).starts_with(name)) {
                return qobject_cast<QQuickItem*>(child->object());
            }
            if (auto* found = namedIn(child, name, role)) return found;
        }
        return nullptr;
    }
    [[nodiscard]] std::string focus() const {
        auto* item = QAccessible::queryAccessibleInterface(window_->activeFocusItem());
        return item ? utf8(item->text(QAccessible::Name)) : "";
    }
    /// The number of the invoice that is open; empty for none.
    [[nodiscard]] std::string open() {
        return detail().isOpen() ? detail().invoice()->number.get() : std::string();
    }
    /// The rows of the list that there are.
    [[nodiscard]] static std::size_t rowsIn(const QQuickItem* item) {
        std::size_t count = item->property("caption").isValid() && item->isVisible() ? 1 : 0;
        for (const auto* child : item->childItems()) count += rowsIn(child);
        return count;
    }

    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;

 private:
    QtMessageHandler usual_ = nullptr;
};

TEST_F(InvoicesView, leadsOnFromNothing) {
    show();
    EXPECT_NE(named("No invoices yet"), nullptr);
    EXPECT_EQ(named("Select an invoice"), nullptr);
    takeKeyboard();
    EXPECT_EQ(focus(), "New Invoice");
    press(Qt::Key_Return);
    EXPECT_TRUE(newInvoice.isOpen());
}

TEST_F(InvoicesView, makesTheRowsThatShowAndNoOthers) {
    addMany(500);
    show();
    EXPECT_EQ(model.rows().rowCount(), 500);
    EXPECT_GE(rowsIn(window_->contentItem()), 4U);
    EXPECT_LE(rowsIn(window_->contentItem()), 20U);
}

TEST_F(InvoicesView, aLargeSumStaysInItsCard) {
    const auto invoice = add("INV-1", "2026-02-01", InvoiceStatus::sent);
    const Instant start = test::at("2026-01-06T09:00Z");
    const auto entry =
        timer.library.addEntry(project("Website"), start, start + std::chrono::hours(1));
    entry->invoice = invoice;
    entry->billedRateCents = 9'999'999'999;
    save();
    show();
    const auto* sum = named("$100,000,099.99", QAccessible::StaticText);
    ASSERT_TRUE(sum);
    EXPECT_LE(sum->property("contentWidth").toReal(), sum->width());
}

TEST_F(InvoicesView, makesNoDetailBeforeOneIsSelected) {
    add("INV-1");
    show();
    EXPECT_NE(named("Select an invoice"), nullptr);
    EXPECT_EQ(named("Export PDF"), nullptr);
    click(*named("INV-1, "));
    EXPECT_EQ(named("Select an invoice"), nullptr);
    EXPECT_NE(named("Invoice INV-1"), nullptr);
}

TEST_F(InvoicesView, doesNothingWhileTheWindowIsHiddenAndCatchesUp) {
    add("INV-1");
    show();
    EXPECT_TRUE(model.isShown());
    window_->hide();
    EXPECT_FALSE(model.isShown());
    add("INV-2", "2026-02-02");
    EXPECT_THAT(numbers(), ElementsAre("INV-1"));
    window_->show();
    settle();
    EXPECT_THAT(numbers(), ElementsAre("INV-2", "INV-1"));
}

TEST_F(InvoicesView, theArrowsSelectAndReturnLeadsIntoTheInvoice) {
    addMany(60);
    show();
    takeKeyboard();
    press(Qt::Key_Down);
    EXPECT_EQ(open(), "INV-1060");
    press(Qt::Key_Down);
    EXPECT_EQ(open(), "INV-1059");
    press(Qt::Key_End);
    EXPECT_EQ(open(), "INV-1001");
    EXPECT_NE(named("INV-1001, "), nullptr) << "scrolled to";
    press(Qt::Key_Home);
    EXPECT_EQ(open(), "INV-1060");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "Export PDF…");
}

TEST_F(InvoicesView, deleteAsksAndEscapeLeavesTheSelection) {
    add("INV-1");
    show();
    takeKeyboard();
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_EQ(utf8(confirmation.title()), "Delete INV-1?");
    confirmation.reject();
    settle();
    press(Qt::Key_Escape);
    EXPECT_EQ(open(), "");
}

TEST_F(InvoicesView, aDraftIsRenamedInPlaceAndTheListHasTheKeyboardAgain) {
    add("INV-1");
    show();
    takeKeyboard();
    press(Qt::Key_Down);
    press(Qt::Key_F2);
    EXPECT_EQ(focus(), "Number");
    press('R');
    press(Qt::Key_Return);
    EXPECT_THAT(numbers(), ElementsAre("r"));
    press(Qt::Key_F2);
    press('X');
    press(Qt::Key_Escape);
    EXPECT_THAT(focus(), StartsWith("Invoices"));
}

TEST_F(InvoicesView, whatWasSentIsNotRenamedAndItsDatesCannotBeReached) {
    add("INV-1", "2026-02-20", InvoiceStatus::sent);
    show();
    takeKeyboard();
    press(Qt::Key_Down);
    press(Qt::Key_F2);
    EXPECT_FALSE(detail().isRenaming());
    for (const char* day : {"Issued", "Due"}) {
        auto* field = named(day, QAccessible::EditableText);
        ASSERT_NE(field, nullptr) << day;
        EXPECT_FALSE(field->isEnabled()) << day;
    }
}

TEST_F(InvoicesView, aMenuOpensOnTheRowThatWasClicked) {
    add("INV-1");
    add("INV-2", "2026-02-02");
    show();
    click(*named("INV-1, "), Qt::RightButton);
    EXPECT_EQ(open(), "INV-1");
    EXPECT_NE(named("Show PDF in Files"), nullptr);
    press(Qt::Key_Escape);
    EXPECT_EQ(named("Show PDF in Files"), nullptr);
    EXPECT_THAT(focus(), StartsWith("Invoices"));
}

TEST_F(InvoicesView, aMenuIsWalkedFromEitherEnd) {
    add("INV-1");
    show();
    takeKeyboard();
    press(Qt::Key_Down);
    press(Qt::Key_Menu);
    press(Qt::Key_Up);
    EXPECT_EQ(focus(), "Delete Invoice…");
    press(Qt::Key_Escape);
    press(Qt::Key_Menu);
    press(Qt::Key_Down);
    EXPECT_EQ(focus(), "Export PDF…");
}

TEST_F(InvoicesView, anotherInvoiceBeginsAtItsTop) {
    add("INV-1");
    add("INV-2", "2026-02-02");
    show();
    click(*named("INV-1, "));
    auto* page = named("Invoice INV-1")->property("view").value<QQuickItem*>();
    ASSERT_NE(page, nullptr);
    page->setProperty("contentY", 300);
    click(*named("INV-2, "));
    EXPECT_EQ(page->property("contentY").toReal(), 0);
}

}  // namespace
}  // namespace elmworth
