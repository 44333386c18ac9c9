// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/LibraryServices.h"
#include "screens/panel/AppServices.h"

namespace elmworth {

/// What the models of screens work on, which lives in `services`.
[[nodiscard]] inline AppServices screenServices(LibraryServices& services, RunLoop& runLoop) {
    return {services.context(),  services.timer(),
            services.defaults(), runLoop,
            services.clock(),    [] { return Calendar::current(); }};
}

}  // namespace elmworth
