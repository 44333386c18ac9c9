// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The cards in a window.

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <memory>

#include "screens/clients/ClientsTest.h"
#include "theme/AppAppearance.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ClientsPlugin)

namespace elmworth {
namespace {

using namespace std::chrono_literals;

constexpr const char* source = R"(
import QtQuick
import Elmworth.Clients

Window {
    id: window

    required property ClientsModel clients

    width: 806
    height: 600
    visible: true

    ClientsView {
        anchors.fill: parent
        focus: true
        model: window.clients
    }
}
)";

class ClientsView : public test::ClientsTest {
 protected:
    ClientsView() {
        loadEmbeddedFonts();
        AppAppearance::instance().setReducedMotion(true);
        model.setShown(false);  // the view is to say when it shows
    }
    void addClients(int count) {
        for (int i = 0; i < count; ++i) timer.library.addClient("Client " + std::to_string(i + 1));
        context().save();
    }
    void show() {
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("clients"), QVariant::fromValue(&model)}})));
        if (window_ == nullptr) ADD_FAILURE() << component.errorString().toStdString();
        settle();
    }
    void settle() {
        timer.library.runLoop.turn();
        QCoreApplication::processEvents();
        window_->grabWindow();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QQuickItem* grid() const { return gridIn(window_->contentItem()); }
    [[nodiscard]] static QQuickItem* gridIn(QQuickItem* item) {
        if (item->inherits("QQuickGridView")) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = gridIn(child)) return found;
        }
        return nullptr;
    }
    void takeKeyboard() {
        QMetaObject::invokeMethod(grid(), "takeKeyboard",
                                  Q_ARG(int, static_cast<int>(Qt::TabFocusReason)));
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window_.get(), static_cast<Qt::Key>(key), modifiers);
    }
    [[nodiscard]] int current() { return model.selection()->currentRow(); }
    /// How many cards have asked the library since the last call.
    [[nodiscard]] std::size_t cardsRead() {
        const auto all = statements();
        return static_cast<std::size_t>(std::ranges::count_if(all, [](const auto& sql) {
            return sql.find("FROM \"Invoice\"") != std::string::npos;
        }));
    }

    /// The rows of the cards that there are for assistive technology, in the order of reading.
    [[nodiscard]] std::vector<int> cardsToReadOut() const {
        std::vector<int> rows;
        for (const auto* item :
             grid()->property("contentItem").value<QQuickItem*>()->childItems()) {
            const auto row = item->property("index");
            if (item->isVisible() && row.isValid()) rows.push_back(row.toInt());
        }
        return rows;
    }

    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
};

TEST_F(ClientsView, readsTheCardsThatShowAndNoOthers) {
    addClients(2000);
    (void)cardsRead();
    show();
    EXPECT_TRUE(model.isShown());
    const auto atFirst = cardsRead();
    EXPECT_GE(atFirst, 4U);
    EXPECT_LE(atFirst, 16U);
    settle();
    EXPECT_EQ(cardsRead(), 0U) << "once";
    model.setSearch(QStringLiteral("client 1"));
    settle();
    EXPECT_LE(cardsRead(), 16U);
}

TEST_F(ClientsView, isReadOutAsItIsSeenAfterASearchAndAfterScrolling) {
    addClients(60);
    show();
    const auto expectAsSeen = [&](std::size_t fewest, std::size_t most) {
        const auto read = cardsToReadOut();
        EXPECT_TRUE(std::ranges::is_sorted(read));
        EXPECT_EQ(std::ranges::adjacent_find(read), read.end()) << "each once";
        EXPECT_GE(read.size(), fewest);
        EXPECT_LE(read.size(), most);
    };
    expectAsSeen(4, 16);
    for (const char* typed : {"client 4", "client 44", "", "9", "client"}) {
        search(typed);
        settle();
        expectAsSeen(std::min<std::size_t>(4, model.cards().size()),
                     std::min<std::size_t>(16, model.cards().size()));
    }
    for (const double y : {900.0, 300.0, 2000.0, 0.0}) {
        grid()->setProperty("contentY", y);
        settle();
        expectAsSeen(4, 16);
    }
}

TEST_F(ClientsView, doesNothingWhileTheWindowIsHiddenAndCatchesUp) {
    addClients(3);
    show();
    window_->hide();
    EXPECT_FALSE(model.isShown());
    addClients(1);
    EXPECT_EQ(model.cards().size(), 3U);
    window_->show();
    settle();
    EXPECT_EQ(model.cards().size(), 4U);
}

TEST_F(ClientsView, movesInTwoDimensionsByTheArrows) {
    addClients(5);
    show();
    ASSERT_EQ(grid()->property("columns").toInt(), 2);
    takeKeyboard();
    press(Qt::Key_Right);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 3);
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(current(), 4);
}

TEST_F(ClientsView, editsByReturnAndDeletesByDelete) {
    addClients(2);
    show();
    takeKeyboard();
    press(Qt::Key_Return);
    EXPECT_FALSE(model.editor()->isOpen()) << "no card is current";
    press(Qt::Key_Right);
    press(Qt::Key_Delete);
    EXPECT_EQ(title(), "Delete Client 1?");
    confirmation.reject();
    press(Qt::Key_Return);
    EXPECT_TRUE(model.editor()->isOpen());
}

TEST_F(ClientsView, addsByControlNAndScrollsToTheNewCard) {
    addClients(60);
    show();
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(model.editor()->isOpen());
    model.editor()->name()->setText(QStringLiteral("Zulu"));
    model.editor()->save();
    settle();
    EXPECT_EQ(current(), 60);
    QQuickItem* card = nullptr;
    QMetaObject::invokeMethod(grid(), "itemAtIndex", Q_RETURN_ARG(QQuickItem*, card),
                              Q_ARG(int, 60));
    ASSERT_NE(card, nullptr);
    const double y = card->mapToItem(grid(), QPointF()).y();
    EXPECT_GE(y, 0);
    EXPECT_LE(y + card->height(), grid()->height());
}

TEST_F(ClientsView, isFilledByTabAndSavedByReturn) {
    show();
    press(Qt::Key_N, Qt::ControlModifier);
    settle();
    press('A');
    press(Qt::Key_Tab);
    press('B');
    for (int field = 0; field < 3; ++field) press(Qt::Key_Tab);  // address, currency, rate
    for (const char letter : {'7', '5'}) press(letter);
    EXPECT_EQ(model.editor()->rate()->text().toStdString(), "75") << "in place of 100";
    press(Qt::Key_Return);
    const auto clients = context().fetch<Client>();
    ASSERT_EQ(clients.size(), 1U);
    EXPECT_EQ(clients[0]->name.get() + clients[0]->email.get(), "ab");
    EXPECT_EQ(clients[0]->hourlyRateCents.get(), 7500);
}

TEST_F(ClientsView, isSearchedByControlFAndLeftByEscape) {
    addClients(5);
    show();
    press(Qt::Key_F, Qt::ControlModifier);
    for (const char letter : {'T', ' ', '4'}) press(letter);
    EXPECT_EQ(model.search().toStdString(), "t 4");
    EXPECT_EQ(names(), std::vector<std::string>{"Client 4"});
    press(Qt::Key_Escape);
    EXPECT_EQ(model.search().toStdString(), "");
    press(Qt::Key_Right);
    EXPECT_EQ(current(), 0) << "the cards have the keyboard";
}

TEST_F(ClientsView, editsByDoubleClickAndInvoicesByTheButton) {
    addEntry(addProject("Website", addClient("Acme Co")), 60min);
    show();
    QSignalSpy invoiced(&model, &ClientsModel::invoiceRequested);
    const QPoint corner = grid()->mapToScene(QPointF(40, 40)).toPoint();
    QTest::mouseClick(window_.get(), Qt::LeftButton, {}, corner + QPoint(0, 150));
    EXPECT_EQ(invoiced.size(), 1);
    EXPECT_EQ(current(), 0);
    QTest::mouseDClick(window_.get(), Qt::LeftButton, {}, corner);
    EXPECT_TRUE(model.editor()->isOpen());
    EXPECT_EQ(invoiced.size(), 1);
}

TEST_F(ClientsView, leadsOnFromNothing) {
    show();
    EXPECT_TRUE(model.isEmpty());
    QMetaObject::invokeMethod(window_->contentItem()->childItems().front(), "takeKeyboard");
    press(Qt::Key_Return);
    EXPECT_TRUE(model.editor()->isOpen()) << "the button has the keyboard";
}

}  // namespace
}  // namespace elmworth
