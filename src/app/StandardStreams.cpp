// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace elmworth {

void reserveStandardStreams() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) >= 0) continue;
        // open() reuses the lowest free descriptor, which is this one; opened in the opposite
        // mode, so that any use fails.
        [[maybe_unused]] const int opened =
            ::open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

}  // namespace elmworth
