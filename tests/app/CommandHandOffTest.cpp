// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandHandOff.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <chrono>
#include <filesystem>
#include <future>
#include <string>
#include <vector>

#include "app/SessionBus.h"
#include "platform/LibraryLock.h"
#include "platform/StandardFolders.h"
#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using Words = std::vector<std::string>;

/// What a running application is asked for, as it arrives from the bus.
class Answering final : public QDBusVirtualObject {
 public:
    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        member = message.member();
        arguments = message.arguments();
        return bus.send(isBroken ? message.createReply(QStringLiteral("What?"))
                                 : message.createReply(answer));
    }

    QString member;
    QVariantList arguments;
    QVariantList answer;
    bool isBroken = false;
};

/// A library that another process has, and a bus.
class CommandHandOffTest : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(lock_.tryAcquire()); }

    void answer() {
        auto connection = daemon_.connect(
            QString::fromUtf8(testing::UnitTest::GetInstance()->current_test_info()->name()));
        ASSERT_TRUE(
            connection.registerVirtualObject(QString::fromLatin1(bus::object), &answering_));
        ASSERT_TRUE(connection.registerService(QString::fromLatin1(bus::service)));
    }

    /// `work`, which waits for an answer of this process.
    template <class Work>
    static auto meanwhile(Work work) {
        auto result = std::async(std::launch::async, work);
        while (result.wait_for(0s) != std::future_status::ready)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return result.get();
    }
    static std::optional<CommandResult> handOver(const Words& arguments) {
        return meanwhile([&arguments] { return handOff(arguments, GatheredInput()); });
    }

    test::TemporaryFolder home_;
    test::ScopedEnvironment data_{"XDG_DATA_HOME", home_.path().string()};
    test::ScopedEnvironment token_{"XDG_ACTIVATION_TOKEN", std::nullopt};
    test::PrivateSessionBus daemon_;
    test::ScopedEnvironment address_{"DBUS_SESSION_BUS_ADDRESS", daemon_.address().toStdString()};
    LibraryLock lock_{dataFolder()};
    Answering answering_;
};

TEST_F(CommandHandOffTest, givesTheCommandAndTakesItsResult) {
    answer();
    answering_.answer = {QByteArray("Grüße\n"), QByteArray("none\n"), 3};
    const auto result = handOver({"client", "add", "Überschrift"});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->output, "Grüße\n");
    EXPECT_EQ(result->errors, "none\n");
    EXPECT_EQ(result->exitStatus, 3);
    ASSERT_EQ(answering_.arguments.size(), 10);
    EXPECT_EQ(answering_.arguments.at(0).toStringList(),
              QStringList({QStringLiteral("client"), QStringLiteral("add"),
                           QStringLiteral("Überschrift")}));
    EXPECT_EQ(answering_.arguments.at(1).toString().toStdString(),
              std::filesystem::current_path().string());
    const auto library = qvariant_cast<QDBusUnixFileDescriptor>(answering_.arguments.at(8));
    EXPECT_TRUE(isWritableLockFile(library.fileDescriptor(), dataFolder()));
}

TEST_F(CommandHandOffTest, takesAResultOfMegabytes) {
    answer();
    const QByteArray report(50'000'000, 'x');
    answering_.answer = {report, QByteArray(), 0};
    const auto result = handOver({"report"});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->output.size(), 50'000'000U);
}

TEST_F(CommandHandOffTest, fitsNothingWhenNobodyAnswers) {
    EXPECT_FALSE(handOver({"status"}));
    EXPECT_FALSE(activateRunningApplication());
}

TEST_F(CommandHandOffTest, fitsNothingWithoutABus) {
    for (const char* address : {"unix:path=/nowhere", "nonsense", ""}) {
        const test::ScopedEnvironment wrong("DBUS_SESSION_BUS_ADDRESS", address);
        const test::ScopedEnvironment folder("XDG_RUNTIME_DIR", home_.path().string());
        EXPECT_FALSE(handOver({"status"})) << address;
        EXPECT_FALSE(activateRunningApplication()) << address;
    }
}

TEST_F(CommandHandOffTest, looksForTheBusWhereTheSessionKeepsIt) {
    answer();
    answering_.answer = {QByteArray("there"), QByteArray(), 0};
    const auto path = daemon_.address().section(u'=', 1).section(u',', 0, 0).toStdString();
    std::filesystem::create_symlink(path, home_.path() / "bus");
    const test::ScopedEnvironment unset("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    const test::ScopedEnvironment folder("XDG_RUNTIME_DIR", home_.path().string());
    const auto result = handOver({"status"});
    ASSERT_TRUE(result);
    EXPECT_EQ(result->output, "there");
}

TEST_F(CommandHandOffTest, takesNoAnswerOfAnotherKind) {
    answer();
    answering_.isBroken = true;
    EXPECT_FALSE(handOver({"status"}));
}

TEST_F(CommandHandOffTest, keepsWhatIsNoTextFromTheBus) {
    answer();
    EXPECT_FALSE(handOver({"client", "add", "\xff"}));
    EXPECT_EQ(answering_.member, QString());
}

TEST_F(CommandHandOffTest, activatesWithTheLeaveOfTheDesktop) {
    answer();
    const test::ScopedEnvironment token("XDG_ACTIVATION_TOKEN", "leave");
    EXPECT_TRUE(meanwhile([] { return activateRunningApplication(); }));
    EXPECT_EQ(answering_.member, QStringLiteral("Activate"));
    ASSERT_EQ(answering_.arguments.size(), 1);
    const auto data = qdbus_cast<QVariantMap>(answering_.arguments.at(0));
    EXPECT_EQ(data, QVariantMap({{QStringLiteral("activation-token"), QStringLiteral("leave")}}));
}

TEST_F(CommandHandOffTest, asksForAnAction) {
    answer();
    EXPECT_TRUE(meanwhile([] { return activateRunningApplication("panel"); }));
    EXPECT_EQ(answering_.member, QStringLiteral("ActivateAction"));
    ASSERT_EQ(answering_.arguments.size(), 3);
    EXPECT_EQ(answering_.arguments.at(0).toString(), QStringLiteral("panel"));
    EXPECT_TRUE(qdbus_cast<QVariantList>(answering_.arguments.at(1)).isEmpty());
    EXPECT_TRUE(qdbus_cast<QVariantMap>(answering_.arguments.at(2)).isEmpty());
}

}  // namespace
}  // namespace elmworth
