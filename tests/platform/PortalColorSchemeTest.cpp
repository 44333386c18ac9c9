// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/PortalColorScheme.h"

#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QObject>
#include <QTest>
#include <QThread>
#include <memory>

#include "support/PrivateSessionBus.h"

using Settings = QMap<QString, QVariantMap>;
Q_DECLARE_METATYPE(Settings)

namespace elmworth {
namespace {

using Preferences = ColorScheme::Preferences;

/// A portal with the settings of a test.
class FakePortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
    explicit FakePortal(Settings values) : settings(std::move(values)) {}
    Settings settings;

 public Q_SLOTS:
    Settings ReadAll(const QStringList& groups) {
        Settings wanted;
        for (const auto& group : groups) {
            if (settings.contains(group)) wanted[group] = settings[group];
        }
        return wanted;
    }

 Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

/// Runs portals in a thread of their own, as their process would be.
class PortalColorSchemeTest : public testing::Test {
 protected:
    PortalColorSchemeTest() {
        qDBusRegisterMetaType<Settings>();
        thread_.start();
    }
    ~PortalColorSchemeTest() override {
        stopPortal();
        thread_.quit();
        thread_.wait();
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
        QDBusConnection::disconnectFromBus(QStringLiteral("program"));
    }

    void startPortal(const Settings& settings) {
        portal_ = new FakePortal(settings);
        portalBus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), portal_,
                                  QDBusConnection::ExportAllContents);
        portal_->moveToThread(&thread_);
        portalBus_.registerService(serviceName());
    }
    void stopPortal() {
        if (portal_ == nullptr) return;
        portalBus_.unregisterService(serviceName());
        portalBus_.unregisterObject(QStringLiteral("/org/freedesktop/portal/desktop"));
        portal_->deleteLater();
        portal_ = nullptr;
    }
    void change(const QString& group, const QString& key, const QVariant& value) {
        QMetaObject::invokeMethod(
            portal_,
            [=, this] {
                portal_->settings[group][key] = value;
                Q_EMIT portal_->SettingChanged(group, key, QDBusVariant(value));
            },
            Qt::BlockingQueuedConnection);
    }

    static QString serviceName() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
    static QString appearance() { return QStringLiteral("org.freedesktop.appearance"); }
    static QString colorScheme() { return QStringLiteral("color-scheme"); }
    static Settings scheme(uint value) { return {{appearance(), {{colorScheme(), value}}}}; }
    static bool becomes(const ColorScheme& scheme, const Preferences& expected) {
        return QTest::qWaitFor([&] { return scheme.preferences() == expected; });
    }

    test::PrivateSessionBus bus_;
    QDBusConnection portalBus_ = bus_.connect(QStringLiteral("portal"));
    QDBusConnection programBus_ = bus_.connect(QStringLiteral("program"));

 private:
    QThread thread_;
    FakePortal* portal_ = nullptr;
};

TEST_F(PortalColorSchemeTest, theFirstAnswerIsThereAtOnce) {
    startPortal(scheme(1));
    EXPECT_EQ(PortalColorScheme(programBus_).preferences(), (Preferences{true, false}));
}

struct Row {
    const char* name;
    const char* group;
    const char* key;
    QVariant value;
    Preferences expected;
};

class PortalAnswer : public PortalColorSchemeTest, public testing::WithParamInterface<Row> {};

TEST_P(PortalAnswer, isUnderstood) {
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    startPortal({{text(GetParam().group), {{text(GetParam().key), GetParam().value}}}});
    EXPECT_EQ(PortalColorScheme(programBus_).preferences(), GetParam().expected);
}

constexpr const char* appearanceGroup = "org.freedesktop.appearance";
INSTANTIATE_TEST_SUITE_P(
    Rows, PortalAnswer,
    testing::Values(
        Row{"NoPreference", appearanceGroup, "color-scheme", 0U, {{}, false}},
        Row{"Dark", appearanceGroup, "color-scheme", 1U, {true, false}},
        Row{"Light", appearanceGroup, "color-scheme", 2U, {false, false}},
        Row{"UnknownScheme", appearanceGroup, "color-scheme", 7U, {{}, false}},
        Row{"NotANumber", appearanceGroup, "color-scheme", QStringLiteral("dark"), {{}, false}},
        Row{"ReducedMotion", appearanceGroup, "reduced-motion", 1U, {{}, true}},
        Row{"Gnome", "org.gnome.desktop.interface", "enable-animations", false, {{}, true}},
        Row{"GnomeMoves", "org.gnome.desktop.interface", "enable-animations", true, {{}, false}},
        Row{"Kde",
            "org.kde.kdeglobals.KDE",
            "AnimationDurationFactor",
            QStringLiteral("0"),
            {{}, true}},
        Row{"KdeNonsense",
            "org.kde.kdeglobals.KDE",
            "AnimationDurationFactor",
            QStringLiteral("fast"),
            {{}, false}},
        Row{"KdeMoves",
            "org.kde.kdeglobals.KDE",
            "AnimationDurationFactor",
            QStringLiteral("0.5"),
            {{}, false}}),
    [](const auto& row) { return row.param.name; });

TEST_F(PortalColorSchemeTest, aChangeIsToldOnce) {
    startPortal(scheme(2));
    PortalColorScheme portalScheme(programBus_);
    int changes = 0;
    auto observation = portalScheme.observe([&] { ++changes; });
    change(appearance(), colorScheme(), 1U);
    EXPECT_TRUE(becomes(portalScheme, {true, false}));
    change(appearance(), QStringLiteral("accent-color"), 1U);
    change(appearance(), colorScheme(), 2U);
    EXPECT_TRUE(becomes(portalScheme, {false, false}));
    EXPECT_EQ(changes, 2);
    observation.reset();
    change(appearance(), colorScheme(), 1U);
    EXPECT_TRUE(becomes(portalScheme, {true, false}));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalColorSchemeTest, aPortalThatStartsLaterIsAsked) {
    const PortalColorScheme portalScheme(programBus_);
    EXPECT_EQ(portalScheme.preferences(), Preferences{});
    startPortal(scheme(1));
    EXPECT_TRUE(becomes(portalScheme, {true, false}));
}

TEST_F(PortalColorSchemeTest, whatAPortalSaidHoldsWhileItIsAway) {
    startPortal(scheme(1));
    const PortalColorScheme portalScheme(programBus_);
    stopPortal();
    EXPECT_EQ(portalScheme.preferences(), (Preferences{true, false}));
    startPortal(scheme(2));
    EXPECT_TRUE(becomes(portalScheme, {false, false}));
}

TEST(PortalColorScheme, withoutABusNothingIsPreferred) {
    const PortalColorScheme colorScheme(QDBusConnection(QStringLiteral("nowhere")));
    EXPECT_EQ(colorScheme.preferences(), ColorScheme::Preferences{});
}

}  // namespace
}  // namespace elmworth

#include "PortalColorSchemeTest.moc"
