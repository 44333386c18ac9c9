// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>

namespace elmworth {

/// Tells a person who closed the window that the program goes on, and how the window comes back,
/// where no tray shows the program. Once in a run: who knows it needn't hear it again.
class ClosedWindowNotice {
 public:
    struct Sentence {
        std::string title;
        std::string text;
    };
    struct Surroundings {
        std::function<bool()> isTrayShown;
        std::function<bool()> isTimerRunning;
        std::function<void(const Sentence&)> tell;
    };

    explicit ClosedWindowNotice(Surroundings surroundings);

    /// To be called when the main window was closed and the program goes on.
    void windowClosed();

 private:
    Surroundings surroundings_;
    bool wasTold_ = false;
};

}  // namespace elmworth
