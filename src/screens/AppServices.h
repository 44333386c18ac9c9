// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

#include "platform/Calendar.h"
#include "platform/Locale.h"
#include "platform/RunLoop.h"
#include "platform/Settings.h"
#include "records/ProfileStore.h"
#include "store/UndoHistory.h"
#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What the models of all screens read and work on. All of it outlives them.
struct AppServices {
    UnitOfWork& context;
    UndoHistory& history;  ///< of `context`
    TimerService& timer;
    Settings& defaults;
    ProfileStore& profiles;
    RunLoop& runLoop;
    Clock now;                           ///< the timer's
    std::function<Calendar()> calendar;  ///< the timer's: the user's current calendar at each call
    Locale locale = Locale::current();   ///< of dates, times and amounts
};

}  // namespace elmworth
