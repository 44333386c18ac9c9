// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include <QMetaMethod>
#include <QObject>
#include <map>
#include <string>
#include <vector>

#include "support/StatementTrace.h"
#include "support/TestServices.h"

namespace elmworth::test {

inline std::string utf8(const QString& text) {
    return text.toStdString();
}

/// A timer, a library and settings for models of the panel. It is Monday, 2026-03-02, 09:00.
class PanelTest : public testing::Test {
 protected:
    [[nodiscard]] TimerService& service() { return *timer.service; }
    [[nodiscard]] UnitOfWork& context() { return timer.library.context(); }
    [[nodiscard]] AppServices services() { return app_.services(); }
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
    /// A saved project of `client`, "Acme Co" as a rule.
    Ref<Project> project(const std::string& name) { return project(name, acme()); }
    Ref<Project> project(const std::string& name, const Ref<Client>& client) {
        const auto made = timer.library.addProject(name, client);
        context().save();
        return made;
    }
    const Ref<Client>& acme() {
        if (!acme_) acme_ = timer.library.addClient("Acme Co");
        return acme_;
    }
    /// A saved entry of today.
    Ref<TimeEntry> entry(const Ref<Project>& project, const std::string& from,
                         const std::string& to) {
        const auto made =
            timer.library.addEntry(project, TestTimer::today(from), TestTimer::today(to));
        context().save();
        return made;
    }

    /// The statements that ran since the last call.
    [[nodiscard]] static std::vector<std::string> statements() { return StatementTrace::take(); }

 private:
    const StatementTrace trace_;  // before the library is opened

 protected:
    TestTimer timer;

 private:
    TestServices app_{timer};

 protected:
    Settings& defaults = app_.defaults;

 private:
    Ref<Client> acme_;
};

/// Counts the notifications of objects by the names of their signals.
class SignalCount : public QObject {
    Q_OBJECT
 public:
    /// Counts all signals that `object` declares from now on.
    void watch(const QObject& object) {
        const auto* meta = object.metaObject();
        const auto slot = metaObject()->method(metaObject()->indexOfSlot("note()"));
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal)
                connect(&object, meta->method(i), this, slot);
        }
    }
    /// "Class::signal" and how often, since the last call.
    [[nodiscard]] std::map<std::string, int> take() { return std::exchange(counts_, {}); }

 private Q_SLOTS:
    void note() {
        const auto* meta = sender()->metaObject();
        ++counts_[std::string(meta->className()).substr(sizeof "elmworth::" - 1) +
                  "::" + meta->method(senderSignalIndex()).name().toStdString()];
    }

 private:
    std::map<std::string, int> counts_;
};

}  // namespace elmworth::test
