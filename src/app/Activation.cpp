// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Activation.h"

#include <utility>

namespace elmworth {

Activation::Activation(Windows windows, TimerService& timer, const LongWork& longWork)
    : windows_(std::move(windows)), timer_(timer), longWork_(longWork) {}

void Activation::run(const std::string& action) {
    if (longWork_.isRunning()) return;
    if (action == "panel") {
        windows_.showPanel();
    } else if (action == "new-invoice") {
        windows_.showNewInvoice();
    } else if (action == "stop") {
        timer_.stop();
    } else if (action == "continue") {
        continueLast();
    } else {
        windows_.showMainWindow();
    }
}

void Activation::continueLast() {
    if (timer_.running()) return windows_.showPanel();
    if (const auto last = timer_.lastContinuableEntry()) timer_.continueEntry(last);
}

}  // namespace elmworth
