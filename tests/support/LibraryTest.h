// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/ScopedEnvironment.h"
#include "support/StatementTrace.h"
#include "support/TestServices.h"

namespace elmworth::test {

/// The fixture of what works on a library: an empty one on disk with its timer, history and
/// settings, and a clock and a run loop that stand still until they are set. It is Monday,
/// 2026-03-02, 09:00 in UTC, for people in America.
class LibraryTest : public testing::Test {
 protected:
    LibraryTest() = default;
    explicit LibraryTest(InMemory place) : timer(place) {}

    [[nodiscard]] UnitOfWork& context() { return timer.library.context(); }
    [[nodiscard]] TimerService& service() { return *timer.service; }
    [[nodiscard]] UndoHistory& history() { return *timer.history; }
    [[nodiscard]] AppServices services() { return app_.services(); }
    template <class Change>
    void setProfile(const Change& change) {
        auto profile = profiles.profile();
        change(profile);
        profiles.setProfile(profile);
    }

    /// Lets the run loop deliver what waits, and what that brings about.
    void turn() {
        timer.library.runLoop.turn();
        timer.library.runLoop.turn();
    }
    /// Lets `seconds` pass, with a tick and a turn in each.
    void pass(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            timer.now += std::chrono::seconds(1);
            timer.library.runLoop.fire();
            turn();
        }
    }
    /// Lets the clock stand at `time` today, with one tick there.
    void passTo(const std::string& time) {
        timer.setTime(time);
        timer.library.runLoop.fire();
        turn();
    }
    void save() {
        context().save();
        turn();
    }

    const Ref<Client>& acme() {
        if (!acme_) acme_ = timer.library.addClient("Acme Co");
        return acme_;
    }
    /// A saved client.
    Ref<Client> addClient(const std::string& name) {
        const auto made = timer.library.addClient(name);
        context().save();
        return made;
    }
    /// A saved project of `client`, "Acme Co" as a rule.
    Ref<Project> project(const std::string& name) { return project(name, acme()); }
    Ref<Project> project(const std::string& name, const Ref<Client>& client) {
        const auto made = timer.library.addProject(name, client);
        context().save();
        return made;
    }
    /// A saved entry of today.
    Ref<TimeEntry> entry(const Ref<Project>& project, const std::string& from,
                         const std::string& to) {
        const auto made =
            timer.library.addEntry(project, TestTimer::today(from), TestTimer::today(to));
        context().save();
        return made;
    }
    Ref<Invoice> bill(const Ref<TimeEntry>& entry, const std::string& number = "INV-2026-001") {
        const auto client = entry->project ? entry->project->client.get() : nullptr;
        const auto invoice = timer.library.addInvoice(number, client);
        entry->invoice = invoice;
        context().save();
        return invoice;
    }
    [[nodiscard]] std::size_t entryCount() { return context().fetchCount<TimeEntry>(); }

    [[nodiscard]] static std::vector<PersistentID> ids(const std::vector<Ref<TimeEntry>>& entries) {
        std::vector<PersistentID> ids;
        for (const auto& entry : entries) ids.push_back(entry->id());
        return ids;
    }
    /// The statements that ran since the last call of this or `commits`.
    [[nodiscard]] static std::vector<std::string> statements() { return StatementTrace::take(); }
    /// How many saves were among them.
    [[nodiscard]] static std::size_t commits() {
        const auto all = statements();
        return static_cast<std::size_t>(std::count(all.begin(), all.end(), "COMMIT"));
    }

 private:
    const ScopedEnvironment language_{"LC_ALL", "en_US.UTF-8"};
    const StatementTrace trace_;  // before the library is opened

 protected:
    TestTimer timer;

 private:
    TestServices app_{timer};

 protected:
    Settings& defaults = app_.defaults;
    ProfileStore& profiles = app_.profiles;

 private:
    Ref<Client> acme_;
};

}  // namespace elmworth::test
