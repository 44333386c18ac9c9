// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Progress.h"

namespace elmworth {

namespace {

class NoProgress final : public Progress {
    void report(const char* /*step*/, std::size_t /*done*/, std::size_t /*total*/) override {}
};

}  // namespace

Progress& noProgress() {
    static NoProgress progress;
    return progress;
}

}  // namespace elmworth
