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
    /// Writes to `terminal` if that is one. `lifeline` is the end for reading of a pipe whose other
    /// end the waiting process holds; without one, this process is the one, and Ctrl-C reaches it.
    explicit TerminalProgress(int terminal, int lifeline = -1);

    /// Clears the line, and gives Ctrl-C its former meaning back.
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
