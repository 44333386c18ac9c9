// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/UndoResult.h"

namespace elmworth {

namespace {

void say(std::string& notice, const std::string& sentence) {
    if (!notice.empty()) notice += ' ';
    notice += sentence;
}

/// "1 entry is on an invoice …", "3 entries are on an invoice …".
std::string counted(std::size_t count, const char* one, const char* several) {
    return count == 1 ? std::string("1 entry ") + one
                      : std::to_string(count) + " entries " + several;
}

}  // namespace

std::string UndoResult::notice() const {
    std::string notice;
    if (billed > 0) {
        say(notice, counted(billed, "is on an invoice and stays as it is.",
                            "are on an invoice and stay as they are."));
    }
    if (changedElsewhere > 0) {
        say(notice, counted(changedElsewhere, "was changed since and stays as it is.",
                            "were changed since and stay as they are."));
    }
    if (timerStaysStopped) {
        say(notice, "The timer was not started again, because time was tracked since.");
    }
    return notice;
}

}  // namespace elmworth
