// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/FatalError.h"

#include <cstdlib>
#include <string>

#include "platform/SystemLog.h"

namespace elmworth {

void fatalError(std::string_view reason) {
    writeSystemLog("Elmworth: stopped over a programming error: " + std::string(reason));
    std::abort();
}

}  // namespace elmworth
