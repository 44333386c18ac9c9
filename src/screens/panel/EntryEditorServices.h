// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

#include "platform/Calendar.h"
#include "platform/Locale.h"
#include "platform/RunLoop.h"
#include "store/UnitOfWork.h"
#include "tracking/EntryForm.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What the entry editor reads and works on. All of it outlives the editor.
struct EntryEditorServices {
    using Save = std::function<Ref<TimeEntry>(const EntryForm&, Ref<TimeEntry>)>;

    UnitOfWork& context;
    TimerService& timer;
    RunLoop& runLoop;
    Clock now;                           ///< the timer's
    std::function<Calendar()> calendar;  ///< the timer's: the user's current calendar at each call
    Locale locale = Locale::current();   ///< of dates and times
    Save save{};  ///< carries out `EntryForm::save`; absent: that and nothing more
};

}  // namespace elmworth
