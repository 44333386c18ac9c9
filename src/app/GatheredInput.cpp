// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/GatheredInput.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>

#include "command/CommandError.h"

namespace elmworth {

namespace {

constexpr std::size_t largestInput = 1'000'000'000;  // it is kept in memory

[[noreturn]] void fail(int error) {
    throw CommandError("standard input: " +
                       std::error_code(error, std::generic_category()).message());
}

void writeAll(int target, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(target, bytes.data(), bytes.size());
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) fail(errno);
    }
}

/// The parent process may have left standard input in non-blocking mode.
void waitFor(int source) {
    pollfd waiting{source, POLLIN, 0};
    ::poll(&waiting, 1, -1);
}

void copy(int source, int target) {
    std::array<char, 1 << 16> buffer;
    std::size_t size = 0;
    while (true) {
        const ssize_t count = ::read(source, buffer.data(), buffer.size());
        if (count == 0) return;
        if (count < 0 && errno == EAGAIN)
            waitFor(source);
        else if (count < 0 && errno != EINTR)
            fail(errno);
        if (count < 0) continue;
        size += static_cast<std::size_t>(count);
        if (size > largestInput)
            throw CommandError("Standard input is longer than 1 GB. Give the command a file.");
        writeAll(target, {buffer.data(), static_cast<std::size_t>(count)});
    }
}

}  // namespace

GatheredInput::GatheredInput() : descriptor_(::memfd_create("elmworth-input", MFD_CLOEXEC)) {
    if (descriptor_ < 0) fail(errno);
}

GatheredInput::~GatheredInput() {
    ::close(descriptor_);
}

void GatheredInput::gather(int source) {
    struct stat status {};
    if (::fstat(source, &status) != 0) fail(errno);
    if (!S_ISREG(status.st_mode)) {
        copy(source, descriptor_);
        if (::lseek(descriptor_, 0, SEEK_SET) != 0) fail(errno);
    } else if (::dup3(source, descriptor_, O_CLOEXEC) < 0) {
        fail(errno);
    }
}

}  // namespace elmworth
