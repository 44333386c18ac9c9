// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <stdexcept>
#include <utility>

#include "platform/Observers.h"

namespace elmworth {

/// Why the login item could not be changed. The message is one sentence to show.
class LoginItemError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Whether the desktop starts the program when the user logs in.
class LoginItem {
 public:
    LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;
    virtual ~LoginItem() = default;

    /// What the desktop would do now, read anew at each call.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Throws LoginItemError; it is then as it was.
    void setEnabled(bool isEnabled) {
        isEnabled ? enable() : disable();
        observers_.notify();
    }

    /// Calls `changed` after each `setEnabled` that did not throw, until the handle dies.
    using Observation = Observers<>::Observation;
    [[nodiscard]] Observation observe(std::function<void()> changed) {
        return observers_.add(std::move(changed));
    }

 private:
    virtual void enable() = 0;
    virtual void disable() = 0;

    Observers<> observers_;
};

/// Of a program that leaves no trace, such as the demo.
class NoLoginItem final : public LoginItem {
 public:
    [[nodiscard]] bool isEnabled() const override { return false; }

 private:
    void enable() override { throw LoginItemError("The demo can't be launched at login."); }
    void disable() override {}
};

}  // namespace elmworth
