// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/DetachedStart.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "app/SiblingProgram.h"

namespace elmworth {

namespace {

// The program's standard error is a pipe to the starter. The program writes this byte when it is
// ready; end of file without it means that the program has ended.
constexpr char readyByte = '\0';

void pointToNothing(int stream, int flags) {
    const int nothing = ::open("/dev/null", flags | O_CLOEXEC);
    if (nothing >= 0) ::dup2(nothing, stream);
}

[[noreturn]] void becomeProgram(const std::string& name, const std::vector<std::string>& arguments,
                                int pipe) {
    ::setsid();
    pointToNothing(STDIN_FILENO, O_RDONLY);
    pointToNothing(STDOUT_FILENO, O_WRONLY);
    ::dup2(pipe, STDERR_FILENO);
    ::_exit(execSibling(name, arguments));
}

std::string readToEnd(int pipe) {
    std::string text;
    std::array<char, 4096> part{};
    while (true) {
        const auto size = ::read(pipe, part.data(), part.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return text;
        text.append(part.data(), static_cast<std::size_t>(size));
    }
}

int exitStatusOf(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace

CommandResult startDetached(const std::string& name, std::vector<std::string> arguments) {
    arguments.emplace_back(detachedSwitch);
    if (::isatty(STDERR_FILENO) == 1) arguments.emplace_back(terminalSwitch);
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return failedCommand("No process can be started.");
    const pid_t process = ::fork();
    if (process == 0) becomeProgram(name, arguments, ends[1]);
    ::close(ends[1]);
    const std::string told = process < 0 ? std::string() : readToEnd(ends[0]);
    ::close(ends[0]);
    if (process < 0) return failedCommand("No process can be started.");
    // Warnings on standard error do not matter once the program is ready.
    if (told.ends_with(readyByte)) return {};
    return {{}, told, exitStatusOf(process)};
}

void tellStarterReady() {
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, &readyByte, 1);
    endStandardError();
}

void endStandardError() {
    pointToNothing(STDERR_FILENO, O_WRONLY);
}

}  // namespace elmworth
