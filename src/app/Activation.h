// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>

#include "platform/LongWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What the desktop and other processes may ask of the running application by name: the actions of
/// its desktop file.
class Activation {
 public:
    struct Windows {
        std::function<void()> showMainWindow;
        std::function<void()> showPanel;
        std::function<void()> showNewInvoice;
    };

    /// All outlive it. During `longWork` the timer stays as it is.
    Activation(Windows windows, TimerService& timer, const LongWork& longWork);

    /// Brings the main window to the front.
    void activate() { windows_.showMainWindow(); }

    /// "panel" opens the panel, "new-invoice" the window's sheet for one, "stop" stops the timer,
    /// and "continue" starts it on the project of the last entry; while a timer runs, "continue"
    /// opens the panel instead. An unknown name brings the main window to the front, so that
    /// something is seen to happen. Nothing here exports or deletes: any program may ask for it.
    void run(const std::string& action);

 private:
    void continueLast();

    Windows windows_;
    TimerService& timer_;
    const LongWork& longWork_;
};

}  // namespace elmworth
