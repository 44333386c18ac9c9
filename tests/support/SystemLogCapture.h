// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace elmworth::test {

/// Takes what the program writes to the system log: standard error is a terminal for its life.
class SystemLogCapture {
 public:
    SystemLogCapture() : standardError_(::dup(STDERR_FILENO)) {
        if (::openpty(&host_, &terminal_, nullptr, nullptr, nullptr) != 0)
            throw std::runtime_error("no terminal");
        ::fcntl(host_, F_SETFL, O_NONBLOCK);
        ::dup2(terminal_, STDERR_FILENO);
    }
    SystemLogCapture(const SystemLogCapture&) = delete;
    SystemLogCapture& operator=(const SystemLogCapture&) = delete;
    ~SystemLogCapture() {
        ::dup2(standardError_, STDERR_FILENO);
        ::close(standardError_);
        ::close(terminal_);
        ::close(host_);
    }

    /// The lines since the last call, each ending with a line feed.
    [[nodiscard]] std::string take() const {
        std::string text;
        char buffer[4096];
        while (true) {
            const ssize_t count = ::read(host_, buffer, sizeof buffer);
            if (count <= 0) break;
            text.append(buffer, static_cast<std::size_t>(count));
        }
        std::erase(text, '\r');
        return text;
    }

 private:
    int standardError_;
    int host_ = -1;
    int terminal_ = -1;
};

}  // namespace elmworth::test
