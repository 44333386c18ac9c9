// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Observers.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace elmworth {
namespace {

using Observation = Observers<>::Observation;

TEST(Observers, callsAllInTheOrderOfAdding) {
    Observers<const std::string&, int> observers;
    std::string seen;
    const auto note = [&](const char* name) {
        return [&seen, name](const std::string& text, int number) {
            seen += name + text + std::to_string(number) + ' ';
        };
    };
    const auto first = observers.add(note("a:"));
    const auto second = observers.add(note("b:"));
    observers.notify("x", 7);
    EXPECT_EQ(seen, "a:x7 b:x7 ");
}

TEST(Observers, callsUntilTheHandleDies) {
    Observers<> observers;
    int calls = 0;
    EXPECT_TRUE(observers.isEmpty());
    auto handle = observers.add([&] { ++calls; });
    EXPECT_FALSE(observers.isEmpty());
    observers.notify();
    handle.reset();
    EXPECT_TRUE(observers.isEmpty());
    observers.notify();
    EXPECT_EQ(calls, 1);
}

TEST(Observers, callsOneAddedMeanwhileTheNextTime) {
    Observers<> observers;
    int calls = 0;
    Observation later;
    const auto adding = observers.add([&] {
        if (!later) later = observers.add([&] { ++calls; });
    });
    observers.notify();
    EXPECT_EQ(calls, 0);
    observers.notify();
    EXPECT_EQ(calls, 1);
}

TEST(Observers, skipsOneDroppedMeanwhile) {
    Observers<> observers;
    int calls = 0;
    Observation second;
    const auto dropping = observers.add([&] { second.reset(); });
    second = observers.add([&] { ++calls; });
    observers.notify();
    EXPECT_EQ(calls, 0);
}

TEST(Observers, keepsACallbackThatDropsItselfWhileItRuns) {
    Observers<> observers;
    Observation own;
    const auto held = std::make_shared<std::string>("still here");
    std::string seen;
    own = observers.add([&own, &seen, held] {
        own.reset();
        seen = *held;
    });
    observers.notify();
    EXPECT_EQ(seen, "still here");
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Observers, doesNotCallOneAgainThatDroppedItselfAndNotifies) {
    Observers<> observers;
    Observation own;
    int calls = 0;
    own = observers.add([&] {
        ++calls;
        own.reset();
        observers.notify();
    });
    observers.notify();
    EXPECT_EQ(calls, 1);
}

TEST(Observers, keepsTheStateOfACallback) {
    Observers<> observers;
    int seen = 0;
    const auto counting = observers.add([count = 0, &seen]() mutable { seen = ++count; });
    observers.notify();
    observers.notify();
    EXPECT_EQ(seen, 2);
}

TEST(Observers, letsAHandleOutliveThem) {
    auto observers = std::make_optional<Observers<>>();
    auto handle = observers->add([] {});
    observers.reset();
    EXPECT_NO_THROW(handle.reset());
}

}  // namespace
}  // namespace elmworth
