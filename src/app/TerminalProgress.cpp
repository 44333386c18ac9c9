// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/TerminalProgress.h"

#include <poll.h>
#include <unistd.h>

#include <string>
#include <string_view>

namespace elmworth {

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto quietTime = 500ms;
constexpr auto betweenShows = 100ms;

volatile std::sig_atomic_t interrupted = 0;

bool isReady(int descriptor, short events) {
    pollfd waiting{descriptor, events, 0};
    return ::poll(&waiting, 1, 0) > 0 && (waiting.revents & events) != 0;
}

/// Non-blocking: a terminal whose output is stopped (Ctrl-S) must not stop the work.
void writeTo(int terminal, std::string_view text) {
    if (!isReady(terminal, POLLOUT)) return;
    [[maybe_unused]] const auto written = ::write(terminal, text.data(), text.size());
}

constexpr std::string_view clearedLine = "\r\033[K";

}  // namespace

TerminalProgress::TerminalProgress(int terminal, int lifeline)
    : terminal_(::isatty(terminal) == 1 ? terminal : -1),
      lifeline_(lifeline),
      next_(steady_clock::now() + quietTime) {}

TerminalProgress::~TerminalProgress() {
    if (hasShown_) writeTo(terminal_, clearedLine);
    if (watchesInterrupt_) ::sigaction(SIGINT, &former_, nullptr);
}

/// Only long work watches: Ctrl-C ends a short command as it ends any program.
void TerminalProgress::watchInterrupt() {
    struct sigaction watching {};
    watching.sa_handler = [](int /*number*/) { interrupted = 1; };
    watching.sa_flags = static_cast<int>(SA_RESETHAND);  // the second time it ends the process
    interrupted = 0;
    watchesInterrupt_ = ::sigaction(SIGINT, &watching, &former_) == 0;
    // Keep SIGINT ignored if the parent had it ignored (nohup, background jobs).
    if (watchesInterrupt_ && former_.sa_handler == SIG_IGN) ::sigaction(SIGINT, &former_, nullptr);
}

bool TerminalProgress::isToStop() const {
    return lifeline_ >= 0 ? isReady(lifeline_, POLLHUP) : interrupted != 0;
}

void TerminalProgress::report(const char* step, std::size_t done, std::size_t total) {
    if (lifeline_ < 0 && !watchesInterrupt_) watchInterrupt();
    if (isToStop()) throw Cancelled();
    if (terminal_ < 0 || steady_clock::now() < next_) return;
    next_ = steady_clock::now() + betweenShows;
    show(step, done, total);
}

void TerminalProgress::show(const char* step, std::size_t done, std::size_t total) {
    std::string line = std::string(clearedLine) + step + "…";
    if (total > 0) line += ' ' + std::to_string(100 * done / total) + '%';
    writeTo(terminal_, line);
    hasShown_ = true;
}

}  // namespace elmworth
