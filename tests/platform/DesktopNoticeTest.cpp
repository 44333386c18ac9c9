// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/DesktopNotice.h"

#include <gtest/gtest.h>

#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <utility>

#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::comesTrue;

constexpr uint firstNumber = 7;

/// A desktop that shows sentences, as the session bus has it. It numbers them from `firstNumber`.
class FakeNotices final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
    QStringList shown;
    QList<uint> replaced;
    QStringList actions;

 public Q_SLOTS:
    uint Notify(const QString& program, uint replaces, const QString& icon, const QString& title,
                const QString& text, const QStringList& offered, const QVariantMap& hints,
                int lasts) {
        EXPECT_EQ(program, QStringLiteral("Elmworth"));
        EXPECT_EQ(icon, QStringLiteral("org.elmworth.Elmworth"));
        EXPECT_EQ(hints.value(QStringLiteral("desktop-entry")), icon);
        EXPECT_EQ(lasts, -1);
        shown << title + QLatin1Char('|') + text;
        replaced << replaces;
        actions = offered;
        return replaces == 0 ? firstNumber : replaces;
    }

 Q_SIGNALS:
    void ActionInvoked(uint number, const QString& action);
    void ActivationToken(uint number, const QString& token);
};

class DesktopNoticeTest : public testing::Test {
 protected:
    DesktopNoticeTest() {
        desktopBus_.registerObject(
            QStringLiteral("/org/freedesktop/Notifications"), &desktop_,
            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    }
    ~DesktopNoticeTest() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
        QDBusConnection::disconnectFromBus(QStringLiteral("program"));
    }
    void beThere() { desktopBus_.registerService(QStringLiteral("org.freedesktop.Notifications")); }
    /// Shows it, and waits for the desktop's answer.
    void show(const char* title, const char* text) {
        notice_.show(QString::fromUtf8(title), QString::fromUtf8(text));
        EXPECT_TRUE(comesTrue([this] { return notice_.children().isEmpty(); }));
    }
    /// Presses what the desktop shows under `number`, and then its own sentence.
    int pressesAfter(uint number, const char* action) {
        Q_EMIT desktop_.ActionInvoked(number, QString::fromUtf8(action));
        Q_EMIT desktop_.ActionInvoked(firstNumber, QStringLiteral("default"));
        EXPECT_TRUE(comesTrue([this] { return presses_ > 0; }));
        return std::exchange(presses_, 0);
    }

    test::PrivateSessionBus bus_;
    QDBusConnection desktopBus_ = bus_.connect(QStringLiteral("desktop"));
    FakeNotices desktop_;
    int presses_ = 0;
    DesktopNotice notice_{bus_.connect(QStringLiteral("program")), [this] { ++presses_; }};
};

TEST_F(DesktopNoticeTest, textsAreShownAsTheyAreTyped) {
    beThere();
    show("Elmworth is open", "<b>%1</b> & more");
    EXPECT_EQ(desktop_.shown,
              QStringList{QStringLiteral("Elmworth is open|&lt;b&gt;%1&lt;/b&gt; &amp; more")});
    EXPECT_EQ(desktop_.actions,
              (QStringList{QStringLiteral("default"), QStringLiteral("Open Elmworth")}));
}

TEST_F(DesktopNoticeTest, theNextTakesThePlaceOfTheLast) {
    beThere();
    show("One", "");
    show("Two", "");
    EXPECT_EQ(desktop_.replaced, (QList<uint>{0, firstNumber}));
}

TEST_F(DesktopNoticeTest, aDesktopThatShowsNoneIsNotWaitedForAndTakenUpWhenItCan) {
    show("One", "");
    beThere();
    show("Two", "");
    EXPECT_EQ(desktop_.replaced, QList<uint>{0});
}

TEST_F(DesktopNoticeTest, onlyAPressOfItsOwnLeadsBack) {
    beThere();
    show("One", "");
    EXPECT_EQ(pressesAfter(firstNumber + 1, "default"), 1) << "the sentence of another program";
    EXPECT_EQ(pressesAfter(firstNumber, "close"), 1) << "another press";
}

TEST_F(DesktopNoticeTest, theLeaveToComeToTheFrontIsTakenBeforeThePress) {
    const test::ScopedEnvironment none("XDG_ACTIVATION_TOKEN", "");
    beThere();
    show("One", "");
    Q_EMIT desktop_.ActivationToken(firstNumber + 1, QStringLiteral("others"));
    EXPECT_EQ(pressesAfter(firstNumber, "close"), 1);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "");
    Q_EMIT desktop_.ActivationToken(firstNumber, QStringLiteral("ours"));
    EXPECT_EQ(pressesAfter(firstNumber, "close"), 1);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "ours");
}

}  // namespace
}  // namespace elmworth

#include "DesktopNoticeTest.moc"
