// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ClosedWindowNotice.h"

#include <utility>

namespace elmworth {

ClosedWindowNotice::ClosedWindowNotice(Surroundings surroundings)
    : surroundings_(std::move(surroundings)) {}

void ClosedWindowNotice::windowClosed() {
    if (wasTold_ || surroundings_.isTrayShown()) return;
    wasTold_ = true;
    surroundings_.tell(
        {surroundings_.isTimerRunning() ? "The timer goes on" : "Elmworth goes on",
         // Some desktops show no more than the first sentence.
         "Start Elmworth again to open its window. This desktop has no tray to show it in; Ctrl+Q "
         "in the window quits it."});
}

}  // namespace elmworth
