// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

#include "platform/Calendar.h"
#include "platform/RunLoop.h"
#include "platform/Settings.h"
#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What the models of the panel and of the tray read and work on. All of it outlives them.
struct AppServices {
    UnitOfWork& context;
    TimerService& timer;
    Settings& defaults;
    RunLoop& runLoop;
    Clock now;                           ///< the timer's
    std::function<Calendar()> calendar;  ///< the timer's: the user's current calendar at each call
};

}  // namespace elmworth
