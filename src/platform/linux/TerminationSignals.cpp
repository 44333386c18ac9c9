// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/TerminationSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdint>

namespace elmworth {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

int& eventDescriptor() {
    static int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return descriptor;
}

/// Only what is safe in a signal handler: the rest happens in the main loop.
void handleSignal(int /*number*/) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(eventDescriptor(), &one, sizeof one);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> terminate)
    : terminate_(std::move(terminate)), notifier_(eventDescriptor(), QSocketNotifier::Read) {
    connect(&notifier_, &QSocketNotifier::activated, this, [this] {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto read = ::read(eventDescriptor(), &count, sizeof count);
        terminate_();
    });
    for (const int number : endingSignals) {
        // Whoever made the process ignore it, as nohup does, goes on doing so.
        if (std::signal(number, &handleSignal) == SIG_IGN) std::signal(number, SIG_IGN);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int number : endingSignals) {
        if (std::signal(number, SIG_DFL) == SIG_IGN) std::signal(number, SIG_IGN);
    }
}

}  // namespace elmworth
