// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/SystemLog.h"

#include <syslog.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace elmworth {

void writeSystemLog(std::string_view line) {
    const int length = static_cast<int>(line.size());
    ::syslog(LOG_USER | LOG_ERR, "%.*s", length, line.data());
    if (::isatty(STDERR_FILENO) != 0) std::fprintf(stderr, "%.*s\n", length, line.data());
}

void fatalError(std::string_view reason) {
    writeSystemLog("Elmworth: stopped over a programming error: " + std::string(reason));
    std::abort();
}

}  // namespace elmworth
