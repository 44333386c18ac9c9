// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// From logind's signals to the timer's questions, on a system bus of the test's own.

#include "platform/linux/LogindPowerEvents.h"

#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

#include <QDBusConnection>
#include <algorithm>
#include <array>
#include <optional>

#include "support/PrivateSessionBus.h"
#include "support/TestTimer.h"

namespace elmworth {
namespace {

using test::comesTrue;
using test::TestTimer;
using testing::ElementsAre;

/// The process's system bus.
class SystemBus final : public testing::Environment {
 public:
    void SetUp() override {
        bus_.emplace();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus_->address().toUtf8());
    }
    void TearDown() override { bus_.reset(); }

 private:
    std::optional<test::PrivateSessionBus> bus_;
};

[[maybe_unused]] const auto* const systemBus = testing::AddGlobalTestEnvironment(new SystemBus);

/// logind as far as it is listened to. Its locks are pipes whose other end it watches.
class FakeLogind final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

 public:
    FakeLogind()
        : name_(QStringLiteral("logind-%1").arg(++count_)),
          bus_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"),
                                             name_)) {
        bus_.registerObject(QStringLiteral("/org/freedesktop/login1"), this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.freedesktop.login1")));
    }
    ~FakeLogind() override {
        for (const int end : watchedEnds_) ::close(end);
        QDBusConnection::disconnectFromBus(name_);
    }

    /// How many locks are held.
    [[nodiscard]] int heldLocks() const {
        return static_cast<int>(std::count_if(watchedEnds_.begin(), watchedEnds_.end(), isOpen));
    }
    [[nodiscard]] bool getsLock(int held = 1) {
        return comesTrue([this, held] { return heldLocks() == held; });
    }

    std::vector<QString> asked;  ///< what the last lock was asked for with

 public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                    const QString& mode) {
        asked = {what, who, why, mode};
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        watchedEnds_.push_back(ends[0]);
        QDBusUnixFileDescriptor lock;
        lock.giveFileDescriptor(ends[1]);
        return lock;
    }

 Q_SIGNALS:
    void PrepareForSleep(bool isAboutToSleep);
    void PrepareForShutdown(bool isAboutToShutDown);

 private:
    static bool isOpen(int watchedEnd) {
        pollfd waiting{watchedEnd, POLLIN, 0};
        return ::poll(&waiting, 1, 0) == 0;  // else it has hung up
    }

    static inline int count_ = 0;
    QString name_;
    QDBusConnection bus_;
    std::vector<int> watchedEnds_;
};

class LogindPowerEventsTest : public testing::Test {
 protected:
    /// A sleep of so many seconds, as the machine tells it, with the timer's clock. Begins and ends
    /// with the lock held, so that no call is under way when a test takes logind away.
    void sleepFor(FakeLogind& logind, LogindPowerEvents& events, int seconds) {
        ASSERT_TRUE(logind.getsLock());
        int slept = 0;
        int woke = 0;
        const auto observations = std::array{events.onWillSleep([&slept] { ++slept; }),
                                             events.onDidWake([&woke] { ++woke; })};
        Q_EMIT logind.PrepareForSleep(true);
        ASSERT_TRUE(comesTrue([&slept] { return slept == 1; }));
        timer.now += std::chrono::seconds(seconds);
        Q_EMIT logind.PrepareForSleep(false);
        ASSERT_TRUE(comesTrue([&woke] { return woke == 1; }));
        ASSERT_TRUE(logind.getsLock());
    }

    /// A timer that listens to `events`, running on a project.
    TimerService& runningTimer(LogindPowerEvents& events) {
        timer.service = std::make_unique<TimerService>(
            timer.library.context(), [this] { return timer.now; }, timer.library.runLoop,
            [this] { return timer.calendar; });
        timer.service->installSleepObservers(events);
        timer.service->start(timer.library.addProject("Website", nullptr));
        timer.now += std::chrono::hours(1);
        return *timer.service;
    }

    TestTimer timer;
};

TEST_F(LogindPowerEventsTest, aSleepOf600SecondsIsAskedAbout) {
    FakeLogind logind;
    LogindPowerEvents events;
    const auto& service = runningTimer(events);
    sleepFor(logind, events, 600);
    ASSERT_EQ(service.awayIntervals().size(), 1U);
    EXPECT_EQ(service.awayIntervals().front().end, timer.now);
    EXPECT_EQ(timer.spans(), std::vector<std::string>{"09:00:00-"});
}

TEST_F(LogindPowerEventsTest, theMachineWaitsUntilTheHandlersHaveRun) {
    FakeLogind logind;
    LogindPowerEvents events;
    ASSERT_TRUE(logind.getsLock());
    EXPECT_THAT(logind.asked,
                ElementsAre(QStringLiteral("sleep:shutdown"), QStringLiteral("Elmworth"),
                            QStringLiteral("Saves the library"), QStringLiteral("delay")));
    int heldDuringHandler = -1;
    const auto observation = events.onWillSleep([&] { heldDuringHandler = logind.heldLocks(); });
    Q_EMIT logind.PrepareForSleep(true);
    EXPECT_TRUE(comesTrue([&] { return heldDuringHandler == 1; }));
    EXPECT_TRUE(logind.getsLock(0));
    Q_EMIT logind.PrepareForSleep(false);
    EXPECT_TRUE(logind.getsLock(1));
}

TEST_F(LogindPowerEventsTest, aShutdownWaitsForTheHandlersToo) {
    FakeLogind logind;
    LogindPowerEvents events;
    ASSERT_TRUE(logind.getsLock());
    int told = 0;
    const auto observation = events.onWillShutDown([&told] { ++told; });
    Q_EMIT logind.PrepareForShutdown(true);
    EXPECT_TRUE(logind.getsLock(0));
    EXPECT_EQ(told, 1);
    Q_EMIT logind.PrepareForShutdown(false);
    EXPECT_TRUE(logind.getsLock(1));
    EXPECT_EQ(told, 1);
}

TEST_F(LogindPowerEventsTest, aLogindThatStartsLaterOrAgainIsTakenUp) {
    LogindPowerEvents events;
    auto& service = runningTimer(events);
    for (std::size_t sleeps = 1; sleeps <= 2; ++sleeps) {
        FakeLogind logind;
        ASSERT_TRUE(logind.getsLock());
        sleepFor(logind, events, 600);
        EXPECT_EQ(service.awayIntervals().size(), sleeps);
    }
}

TEST_F(LogindPowerEventsTest, aDeadHandlerIsNotCalled) {
    FakeLogind logind;
    LogindPowerEvents events;
    int calls = 0;
    auto observation = events.onWillSleep([&calls] { ++calls; });
    observation.reset();
    sleepFor(logind, events, 10);
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace elmworth

#include "LogindPowerEventsTest.moc"
