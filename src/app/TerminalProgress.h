// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <csignal>

#include "platform/Progress.h"

namespace elmworth {

/// Shows the progress of a command in a terminal once it has worked for half a second, and stops it
/// at Ctrl-C, or when the process that waits for it has ended.
class TerminalProgress final : public Progress {
 public:
    /// Writes to `terminal` if it is a terminal. `lifeline` is the read end of a pipe that the
    /// waiting process holds open; -1: this process itself waits, and gets Ctrl-C.
    explicit TerminalProgress(int terminal, int lifeline = -1);

    /// Clears the line and restores the former SIGINT handler.
    ~TerminalProgress() override;

 protected:
    void report(const char* step, std::size_t done, std::size_t total) override;

 private:
    void watchInterrupt();
    [[nodiscard]] bool isToStop() const;
    void show(const char* step, std::size_t done, std::size_t total);

    int terminal_;
    int lifeline_;
    bool hasShown_ = false;
    std::chrono::steady_clock::time_point next_;
    struct sigaction former_ {};
    bool watchesInterrupt_ = false;
};

}  // namespace elmworth
