// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/LibraryServices.h"
#include "screens/AppServices.h"

namespace elmworth {

/// What the models of screens work on, which lives in `services`.
[[nodiscard]] inline AppServices screenServices(LibraryServices& services, RunLoop& runLoop) {
    return {.context = services.context(),
            .history = services.history(),
            .timer = services.timer(),
            .defaults = services.defaults(),
            .profiles = services.profiles(),
            .runLoop = runLoop,
            .now = services.clock(),
            .calendar = [] { return Calendar::current(); }};
}

}  // namespace elmworth
