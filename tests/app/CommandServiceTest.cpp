// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandService.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>

#include "app/SessionBus.h"
#include "support/PrivateSessionBus.h"
#include "support/ScopedEnvironment.h"
#include "support/SystemLogCapture.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

const auto name = QString::fromLatin1(bus::service);

class NoPainter final : public InvoicePainter {
 public:
    LogoImage loadLogo() override { return nullptr; }
    void render(const InvoiceRenderModel& /*model*/, PaperSize /*paper*/,
                const std::filesystem::path& /*file*/, FileAccess /*access*/) override {}
};

/// The service of an application with the demo library, and a bus on which it can be asked for.
class CommandServiceTest : public testing::Test {
 protected:
    [[nodiscard]] QString owner() const { return bus_.interface()->serviceOwner(name); }

    test::TemporaryFolder home_;
    test::ScopedEnvironment data_{"XDG_DATA_HOME", home_.path().string()};
    test::ScopedEnvironment config_{"XDG_CONFIG_HOME", home_.path().string()};
    test::ManualRunLoop runLoop_;
    LibraryServices services_{true, currentInstant, runLoop_};
    NoPainter painter_;
    Activation activation_{{[] {}, [] {}, [] {}}, services_.timer(), services_.longWork()};
    CommandService service_{services_, painter_, activation_};
    test::PrivateSessionBus daemon_;
    // Qt keeps a connection under its name for good.
    QDBusConnection bus_ = daemon_.connect(
        QString::fromUtf8(testing::UnitTest::GetInstance()->current_test_info()->name()));
    test::SystemLogCapture log_;
};

TEST_F(CommandServiceTest, takesItsNameOnTheBus) {
    service_.publish(bus_);
    EXPECT_EQ(owner(), bus_.baseService());
    EXPECT_EQ(log_.take(), "");
}

TEST_F(CommandServiceTest, tellsThatAnotherHasTheNameAndTakesItOnceItIsFree) {
    auto other = daemon_.connect(QStringLiteral("other"));
    ASSERT_TRUE(other.registerService(name));
    service_.publish(bus_);
    EXPECT_EQ(owner(), other.baseService());
    EXPECT_EQ(log_.take(),
              "Elmworth: commands do not reach this window: another program has the name "
              "org.elmworth.Elmworth\n");
    ASSERT_TRUE(other.unregisterService(name));
    EXPECT_EQ(owner(), bus_.baseService());
}

TEST_F(CommandServiceTest, whatAHandedOverCommandDidIsUndoneHere) {
    const CommandCaller caller{home_.path().string(), "en_US", "en_US", "UTC"};
    auto& history = services_.history();
    const auto before = services_.context().fetchCount<Client>();
    ASSERT_EQ(service_.run({"client", "add", "Umbrella"}, caller).exitStatus, 0);
    EXPECT_EQ(history.undoText(), "Undo Add Umbrella");
    EXPECT_EQ(history.undo().changed, 1U);
    EXPECT_EQ(services_.context().fetchCount<Client>(), before);
    services_.timer().start(services_.timer().recentProjects(1).at(0));
    const auto started = services_.timer().running()->id();
    ASSERT_EQ(service_.run({"stop"}, caller).exitStatus, 0);
    EXPECT_EQ(history.undoText(), "Undo Stop Timer");
    history.undo();
    ASSERT_TRUE(services_.timer().running());
    EXPECT_EQ(services_.timer().running()->id(), started);
}

TEST_F(CommandServiceTest, doesWithoutABus) {
    service_.publish(QDBusConnection(QStringLiteral("none")));
    EXPECT_EQ(log_.take(), "");
}

}  // namespace
}  // namespace elmworth
