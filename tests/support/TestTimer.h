// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Observers.h"
#include "platform/PowerEvents.h"
#include "store/UndoHistory.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"
#include "tracking/EntryUndoGuard.h"
#include "tracking/TimerService.h"

namespace elmworth::test {

/// A machine that sleeps and wakes when a test says so.
class ManualPowerEvents final : public PowerEvents {
 public:
    Observation onWillSleep(std::function<void()> handler) override {
        return willSleep_.add(std::move(handler));
    }
    Observation onDidWake(std::function<void()> handler) override {
        ++wakeObservationCount_;
        return didWake_.add(std::move(handler));
    }
    Observation onWillShutDown(std::function<void()> handler) override {
        return willShutDown_.add(std::move(handler));
    }
    void sleep() { willSleep_.notify(); }
    void wake() { didWake_.notify(); }
    /// How often somebody asked to be told of a wake.
    [[nodiscard]] std::size_t wakeObservationCount() const { return wakeObservationCount_; }

 private:
    Observers<> willSleep_;
    Observers<> didWake_;
    Observers<> willShutDown_;
    std::size_t wakeObservationCount_ = 0;
};

/// A timer and a history over a library on disk, with a clock that stands still until it is set. It
/// is Monday, 2026-03-02, 09:00 in UTC.
class TestTimer {
 public:
    TestTimer() { makeService(); }
    /// Over a library whose file is there already, with these bytes.
    explicit TestTimer(std::string_view bytes) : library(bytes) { makeService(); }

    explicit TestTimer(InMemory place) : library(place) { makeService(); }

    /// Quits and starts again, as far as the timer and the history are concerned.
    void restart() {
        history.reset();
        guard_.reset();
        service.reset();
        library.reopen();
        makeService();
        service->restore();
    }
    /// Sets the clock to an instant, "2026-03-02T10:00Z".
    void setClock(const std::string& text) { now = at(text); }
    /// Sets the clock to a time of the day on which the test begins, "10:00" or "10:00:59".
    void setTime(const std::string& time) { now = today(time); }
    [[nodiscard]] static Instant today(const std::string& time) {
        return at("2026-03-02T" + time + "Z");
    }
    void sleep(const std::string& from, const std::string& to) {
        setTime(from);
        power.sleep();
        setTime(to);
        power.wake();
    }

    /// All entries as "09:00:00-10:00:00", or "09:00:00-" for a running one, by start.
    [[nodiscard]] std::vector<std::string> spans() {
        std::vector<std::string> texts;
        for (const auto& entry :
             library.context().fetch(Query<TimeEntry>{.sortBy = {sortedBy<&TimeEntry::start>()}})) {
            texts.push_back(timeText(entry->start) + '-' +
                            (entry->end.get() ? timeText(*entry->end.get()) : ""));
        }
        return texts;
    }

    TestLibrary library;
    ManualPowerEvents power;
    Instant now = today("09:00");
    Calendar calendar{Locale("en_US"), "UTC"};
    std::unique_ptr<TimerService> service;
    std::unique_ptr<UndoHistory> history;

 private:
    static std::string timeText(Instant instant) { return iso(instant).substr(11, 8); }
    void makeService() {
        service = std::make_unique<TimerService>(
            library.context(), [this] { return now; }, library.runLoop,
            [this] { return calendar; });
        service->installSleepObservers(power);
        guard_ = std::make_unique<EntryUndoGuard>(*service);
        history = std::make_unique<UndoHistory>(library.context(), [this] { return now; });
        history->setGuard(*guard_);
    }

    std::unique_ptr<EntryUndoGuard> guard_;
};

}  // namespace elmworth::test
