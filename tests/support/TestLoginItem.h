// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/LoginItem.h"

namespace elmworth::test {

/// A login item that can be made to refuse.
class TestLoginItem final : public LoginItem {
 public:
    [[nodiscard]] bool isEnabled() const override { return isEnabled_; }
    bool refuses = false;

 private:
    void enable() override { change(true); }
    void disable() override { change(false); }
    void change(bool isEnabled) {
        if (refuses) throw LoginItemError("The autostart folder can't be written.");
        isEnabled_ = isEnabled;
    }
    bool isEnabled_ = false;
};

}  // namespace elmworth::test
