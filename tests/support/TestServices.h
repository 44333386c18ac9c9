// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "screens/AppServices.h"
#include "support/TestTimer.h"

namespace elmworth::test {

/// What the models of screens work on, over the library, the clock and the calendar of a timer.
class TestServices {
 public:
    explicit TestServices(TestTimer& timer) : timer_(timer) {}

    [[nodiscard]] AppServices services() {
        return {.context = timer_.library.context(),
                .history = *timer_.history,
                .timer = *timer_.service,
                .defaults = defaults,
                .profiles = profiles,
                .runLoop = timer_.library.runLoop,
                .now = [this] { return timer_.now; },
                .calendar = [this] { return timer_.calendar; }};
    }

 private:
    TestTimer& timer_;

 public:
    Settings defaults{timer_.library.folder.path() / "Elmworth.ini"};
    ProfileStore profiles{defaults};
};

}  // namespace elmworth::test
