// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The item and its menu as a tray sees them, on a bus of the test's own.

#include "platform/linux/StatusNotifierItem.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QFile>
#include <memory>

#include "platform/linux/DBusMenuTypes.h"
#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"
#include "theme/fonts/Fonts.h"

namespace elmworth {
namespace {

using test::comesTrue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// A tray that items register with, and that may have a panel to show them.
class FakeTray final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

 public:
    FakeTray(QDBusConnection bus, bool hasHost) : bus_(std::move(bus)), hasHost_(hasHost) {
        bus_.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                                QDBusConnection::ExportAllProperties);
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")));
    }
    ~FakeTray() override {
        bus_.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        bus_.unregisterObject(QStringLiteral("/StatusNotifierWatcher"));
    }
    [[nodiscard]] bool hasHost() const { return hasHost_; }
    void addHost() {
        hasHost_ = true;
        Q_EMIT StatusNotifierHostRegistered();
    }

    QStringList items;

 public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service) { items.append(service); }

 Q_SIGNALS:
    void StatusNotifierHostRegistered();

 private:
    QDBusConnection bus_;
    bool hasHost_;
};

/// What the menu tells the trays.
class MenuSignals final : public QObject {
    Q_OBJECT

 public:
    QList<QDBusMessage> all;

 public Q_SLOTS:
    void note(const QDBusMessage& message) { all.append(message); }
};

class StatusNotifierItemTest : public testing::Test {
 protected:
    // One for all, as the process looks its address up once.
    static void SetUpTestSuite() {
        daemon_ = std::make_unique<test::PrivateSessionBus>();
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon_->address().toUtf8());
    }
    static void TearDownTestSuite() { daemon_.reset(); }

    StatusNotifierItemTest() {
        loadEmbeddedFonts();
        item_ = std::make_unique<StatusNotifierItem>(TrayIconStyle{
            QStringLiteral("Elmworth Icons"), QChar(0xe8b5), QChar(0xe837), tabularFontFamily()});
        item_->setEvents(
            {.activated = [this](TrayPoint place) { pressed_.push_back(place); },
             .secondaryActivated = [this](TrayPoint place) { pressed_.push_back(place); },
             .menuAboutToShow = [this] { item_->setMenu({{.text = "Stop"}}); },
             .shownChanged = [this](bool isShown) { shown_.push_back(isShown); }});
    }
    ~StatusNotifierItemTest() override {
        item_.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("tray"));
    }

    void startTray(bool hasHost = true) { tray_ = std::make_unique<FakeTray>(bus_, hasHost); }
    [[nodiscard]] bool isShown() {
        return comesTrue([this] { return item_->isShown(); });
    }
    /// The item's answer to a call of the tray's.
    [[nodiscard]] QDBusMessage call(const char* path, const char* interface, const char* method,
                                    const QVariantList& arguments) {
        auto message = QDBusMessage::createMethodCall(
            QStringLiteral("org.kde.StatusNotifierItem-%1-1")
                .arg(QCoreApplication::applicationPid()),
            QString::fromLatin1(path), QString::fromLatin1(interface), QString::fromLatin1(method));
        message.setArguments(arguments);
        const auto answer = bus_.asyncCall(message);
        EXPECT_TRUE(comesTrue([&] { return answer.isFinished(); }));
        return answer.reply();
    }
    [[nodiscard]] QVariant property(const char* name) {
        const auto answer =
            call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                 {QStringLiteral("org.kde.StatusNotifierItem"), QString::fromLatin1(name)});
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }
    [[nodiscard]] std::string textProperty(const char* name) {
        return property(name).toString().toStdString();
    }
    [[nodiscard]] QDBusMessage press(const char* method) {
        return call("/StatusNotifierItem", "org.kde.StatusNotifierItem", method, {3, 4});
    }
    [[nodiscard]] QDBusMessage callMenu(const char* method, const QVariantList& arguments) {
        return call("/MenuBar", "com.canonical.dbusmenu", method, arguments);
    }
    /// The menu, or what is below one of its items.
    [[nodiscard]] QList<MenuLayoutItem> layout(int parent = 0) {
        const auto answer = callMenu("GetLayout", {parent, -1, QStringList()});
        return qdbus_cast<MenuLayoutItem>(answer.arguments().value(1)).children;
    }

    test::TemporaryFolder folder_;
    test::ScopedEnvironment runtime_{"XDG_RUNTIME_DIR", folder_.path().string()};
    static inline std::unique_ptr<test::PrivateSessionBus> daemon_;
    QDBusConnection bus_ = daemon_->connect(QStringLiteral("tray"));
    std::unique_ptr<FakeTray> tray_;
    MenuSignals menuSignals_;
    std::unique_ptr<StatusNotifierItem> item_;
    std::vector<TrayPoint> pressed_;
    std::vector<bool> shown_;
};

TEST_F(StatusNotifierItemTest, tellsThatThereIsNoTrayAndIsShownByOneThatComesLaterAndAgain) {
    ASSERT_TRUE(comesTrue([this] { return !shown_.empty(); }));
    EXPECT_FALSE(item_->isShown());
    startTray();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(tray_->items.size(), 1);
    tray_.reset();
    EXPECT_TRUE(comesTrue([this] { return !item_->isShown(); }));
    startTray();
    EXPECT_TRUE(isShown());
    EXPECT_THAT(shown_, ElementsAre(false, true, false, true));
}

TEST_F(StatusNotifierItemTest, isShownOnceTheTrayHasAPanel) {
    startTray(false);
    ASSERT_TRUE(comesTrue([this] { return !tray_->items.isEmpty(); }));
    EXPECT_FALSE(item_->isShown());
    tray_->addHost();
    EXPECT_TRUE(isShown());
}

TEST_F(StatusNotifierItemTest, tellsWhatTheTimerShows) {
    startTray();
    ASSERT_TRUE(isShown());
    EXPECT_EQ(textProperty("Id"), "org.elmworth.Elmworth");
    item_->setFace({.label = "1:25 Website", .toolTip = "Website since 09:00"});
    EXPECT_EQ(textProperty("XAyatanaLabel"), "1:25 Website");
    EXPECT_EQ(textProperty("XAyatanaLabelGuide"), "0:00 Website");
    const auto toolTip = qdbus_cast<NotifierToolTip>(property("ToolTip"));
    EXPECT_EQ(toolTip.title.toStdString(), "Website since 09:00");
    const auto pictures = qdbus_cast<NotifierPixmapList>(property("IconPixmap"));
    ASSERT_THAT(pictures, Not(IsEmpty()));
    EXPECT_EQ(pictures.first().pixels.size(), 4 * pictures.first().width * pictures.first().height);
    EXPECT_EQ(textProperty("IconName"), "");
}

TEST_F(StatusNotifierItemTest, namesAFileForATrayThatReadsNoPictures) {
    ASSERT_TRUE(bus_.registerService(QStringLiteral("org.ayatana.indicator.application")));
    startTray();
    ASSERT_TRUE(comesTrue([this] { return !textProperty("IconName").empty(); }));
    EXPECT_TRUE(QFile::exists(property("IconThemePath").toString() + u'/' +
                              property("IconName").toString() + QStringLiteral(".png")));
}

TEST_F(StatusNotifierItemTest, passesOnWhereItIsPressedAndTheLeaveToComeToTheFront) {
    const test::ScopedEnvironment token("XDG_ACTIVATION_TOKEN", "");
    startTray();
    (void)call("/StatusNotifierItem", "org.kde.StatusNotifierItem", "ProvideXdgActivationToken",
               {QStringLiteral("leave")});
    (void)press("Activate");
    (void)press("SecondaryActivate");
    (void)call("/StatusNotifierItem", "org.kde.StatusNotifierItem", "XAyatanaSecondaryActivate",
               {7U});
    (void)press("ContextMenu");  // the tray shows it by itself
    EXPECT_THAT(pressed_, ElementsAre(TrayPoint{3, 4}, TrayPoint{3, 4}, TrayPoint{0, 0}));
    EXPECT_EQ(qEnvironmentVariable("XDG_ACTIVATION_TOKEN"), QStringLiteral("leave"));
}

TEST_F(StatusNotifierItemTest, aMenuGoesOverTheBusWithWhatIsBelowItsItems) {
    item_->setMenu(
        {{.text = "Switch to", .submenu = {{.text = "Website"}}}, TrayMenuItem::separator()});
    const auto items = layout();
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0].properties.value(QStringLiteral("label")), QStringLiteral("Switch to"));
    EXPECT_EQ(items[1].properties.value(QStringLiteral("type")), QStringLiteral("separator"));
    ASSERT_EQ(items[0].children.size(), 1);
    const int below = items[0].children[0].id;
    const auto label = callMenu("GetProperty", {below, QStringLiteral("label")});
    EXPECT_EQ(label.arguments().value(0).value<QDBusVariant>().variant(),
              QStringLiteral("Website"));
    const auto all =
        callMenu("GetGroupProperties", {QVariant::fromValue(QList<int>{below, 99}), QStringList()});
    EXPECT_EQ(qdbus_cast<MenuItemPropertiesList>(all.arguments().value(0)).size(), 1);
}

TEST_F(StatusNotifierItemTest, anItemDoesWhatItIsForWhenItIsChosenAndCanBe) {
    int stopped = 0;
    const auto stop = [&] { ++stopped; };
    item_->setMenu(
        {{.text = "Stop", .action = stop}, {.text = "Never", .isEnabled = false, .action = stop}});
    const auto items = layout();
    const auto chosen = [&](int place, const char* event) {
        return MenuEvent{items[place].id, QString::fromLatin1(event), QDBusVariant(0), 0};
    };
    const auto asked = [&](const MenuEventList& events) {
        const auto answer = callMenu("EventGroup", {QVariant::fromValue(events)});
        return qdbus_cast<QList<int>>(answer.arguments().value(0));
    };
    EXPECT_THAT(asked({chosen(1, "clicked"),
                       chosen(0, "hovered"),
                       {99, QStringLiteral("clicked"), QDBusVariant(0), 0}}),
                ElementsAre(99));
    const auto first = chosen(0, "clicked");
    (void)callMenu("Event",
                   {first.id, first.name, QVariant::fromValue(first.data), first.timestamp});
    EXPECT_TRUE(comesTrue([&] { return stopped > 0; }));
    EXPECT_EQ(stopped, 1);
}

TEST_F(StatusNotifierItemTest, theMenuIsBroughtUpToDateBeforeItShows) {
    EXPECT_EQ(callMenu("AboutToShow", {0}).arguments(), QVariantList{true});
    EXPECT_EQ(layout().size(), 1);
    EXPECT_EQ(callMenu("AboutToShow", {0}).arguments(), QVariantList{false});
    const auto group = callMenu("AboutToShowGroup", {QVariant::fromValue(QList<int>{0, 99})});
    EXPECT_THAT(qdbus_cast<QList<int>>(group.arguments().value(1)), ElementsAre(99));
}

TEST_F(StatusNotifierItemTest, anOpenMenuChangesInPlace) {
    item_->setMenu({{.text = "Stop", .isEnabled = false, .identity = "timer"}});
    const int id = layout().at(0).id;
    const auto heard = [&](const char* signal) {
        return bus_.connect(QString(), QStringLiteral("/MenuBar"),
                            QStringLiteral("com.canonical.dbusmenu"), QString::fromLatin1(signal),
                            &menuSignals_, SLOT(note(QDBusMessage)));
    };
    ASSERT_TRUE(heard("ItemsPropertiesUpdated") && heard("LayoutUpdated"));
    item_->setMenu({{.text = "Start", .identity = "timer"}});
    ASSERT_TRUE(comesTrue([this] { return !menuSignals_.all.isEmpty(); }));
    ASSERT_EQ(menuSignals_.all.size(), 1);
    const auto arguments = menuSignals_.all[0].arguments();
    const auto updated = qdbus_cast<MenuItemPropertiesList>(arguments.value(0));
    const auto removed = qdbus_cast<MenuItemPropertyNamesList>(arguments.value(1));
    ASSERT_EQ(updated.size(), 1);
    EXPECT_EQ(updated[0].id, id);
    EXPECT_EQ(updated[0].properties.value(QStringLiteral("label")), QStringLiteral("Start"));
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0].names, QStringList{QStringLiteral("enabled")});
    EXPECT_EQ(layout().at(0).id, id);
}

TEST_F(StatusNotifierItemTest, whatIsNotInTheMenuIsRefused) {
    const auto isRefused = [](const QDBusMessage& answer) {
        return answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs");
    };
    const MenuEventList events{{99, QStringLiteral("clicked"), QDBusVariant(0), 0}};
    EXPECT_TRUE(isRefused(callMenu("GetLayout", {99, -1, QStringList()})));
    EXPECT_TRUE(isRefused(callMenu("GetProperty", {0, QStringLiteral("none")})));
    EXPECT_TRUE(isRefused(callMenu("AboutToShow", {99})));
    EXPECT_TRUE(isRefused(callMenu("EventGroup", {QVariant::fromValue(events)})));
    EXPECT_TRUE(isRefused(callMenu(
        "Event", {99, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U})));
}

}  // namespace
}  // namespace elmworth

#include "StatusNotifierItemTest.moc"
