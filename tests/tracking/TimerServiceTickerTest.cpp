// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <map>

#include "support/LibraryTest.h"

namespace elmworth {
namespace {

using test::StatementTrace;
using Property = TimerService::Property;

class TimerServiceTicker : public test::LibraryTest {
 protected:
    TimerServiceTicker() {
        website = timer.library.addProject("Website", nullptr);
        context().save();
    }
    [[nodiscard]] std::size_t tickers() const { return timer.library.runLoop.repeatingCount(); }

    Ref<Project> website;
};

TEST_F(TimerServiceTicker, thereIsOneExactlyWhileATimerRuns) {
    EXPECT_EQ(tickers(), 0U);
    service().start(website);
    EXPECT_EQ(tickers(), 1U);
    pass(5);
    service().start(website);
    EXPECT_EQ(tickers(), 1U);
    service().continueEntry(service().running());
    EXPECT_EQ(tickers(), 1U);
    service().restore();
    EXPECT_EQ(tickers(), 1U);
    service().refresh();
    EXPECT_EQ(tickers(), 1U);
    service().stop();
    EXPECT_EQ(tickers(), 0U);
}

TEST_F(TimerServiceTicker, keepsBothTextsRight) {
    service().start(website);
    pass(59);
    EXPECT_EQ(service().elapsedText(), "0:00");
    EXPECT_EQ(service().elapsedLongText(), "0:00:59");
    pass(1);
    EXPECT_EQ(service().elapsedText(), "0:01");
    EXPECT_EQ(service().elapsedLongText(), "0:01:00");
}

struct Elapsed {
    const char* name;
    int seconds;
    const char* text;
    const char* longText;
};
class ElapsedTime : public TimerServiceTicker, public testing::WithParamInterface<Elapsed> {};

TEST_P(ElapsedTime, reads) {
    service().start(website);
    timer.now += std::chrono::seconds(GetParam().seconds);
    timer.library.runLoop.fire();
    EXPECT_EQ(service().elapsedText(), GetParam().text);
    EXPECT_EQ(service().elapsedLongText(), GetParam().longText);
}

INSTANTIATE_TEST_SUITE_P(Rows, ElapsedTime,
                         testing::Values(Elapsed{"almostAnHour", 3599, "0:59", "0:59:59"},
                                         Elapsed{"anHour", 3600, "1:00", "1:00:00"},
                                         Elapsed{"anHourAMinuteASecond", 3661, "1:01", "1:01:01"},
                                         Elapsed{"aHundredHours", 360000, "100:00", "100:00:00"},
                                         Elapsed{"aClockThatWasSetBack", -60, "0:00", "0:00:00"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(TimerServiceTicker, tellsOfTheShortTextOnceAMinute) {
    service().start(website);
    std::map<Property, int> changes;
    const auto observation = service().observe([&](Property property) { ++changes[property]; });
    pass(600);
    EXPECT_EQ(changes[Property::elapsedText], 10);
    EXPECT_EQ(changes[Property::elapsedLongText], 600);
    EXPECT_EQ(changes[Property::running], 0);
    EXPECT_EQ(changes[Property::awayIntervals], 0);
}

TEST_F(TimerServiceTicker, neverTouchesTheStore) {
    service().start(website);
    const auto observation = service().observe([&](Property) { (void)service().elapsedText(); });
    (void)StatementTrace::take();
    pass(3600);
    EXPECT_TRUE(StatementTrace::take().empty());
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(TimerServiceTicker, endsWithTheService) {
    service().start(website);
    timer.service.reset();
    EXPECT_EQ(tickers(), 0U);
    timer.library.runLoop.fire();
}

// --- observers -----------------------------------------------------------------------------------

TEST_F(TimerServiceTicker, observersHearOfAStartAndAStop) {
    std::vector<Property> heard;
    const auto observation =
        service().observe([&](Property property) { heard.push_back(property); });
    service().start(website);
    EXPECT_EQ(heard,
              (std::vector{Property::running, Property::elapsedText, Property::elapsedLongText}));
    heard.clear();
    pass(1);
    heard.clear();
    service().stop();
    EXPECT_EQ(heard,
              (std::vector{Property::running, Property::elapsedText, Property::elapsedLongText}));
}

TEST_F(TimerServiceTicker, observersHearOfSleeps) {
    service().start(website);
    int changes = 0;
    const auto observation = service().observe(
        [&](Property property) { changes += property == Property::awayIntervals ? 1 : 0; });
    timer.sleep("10:00", "11:00");
    EXPECT_EQ(changes, 1);
    service().keepAwayTime();
    EXPECT_EQ(changes, 2);
    service().keepAwayTime();
    EXPECT_EQ(changes, 2);
}

TEST_F(TimerServiceTicker, anObserverEndsWithItsHandleAlsoFromWithin) {
    int calls = 0;
    TimerService::Observation observation;
    observation = service().observe([&](Property) {
        ++calls;
        observation.reset();
    });
    service().start(website);
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace elmworth
