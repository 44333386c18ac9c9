// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SaveAtExit.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace elmworth {

namespace {

UnitOfWork* unsavedContext = nullptr;
const LongWork* presentWork = nullptr;

void saveNow() {
    auto* const context = std::exchange(unsavedContext, nullptr);
    if (context && !presentWork->isRunning()) context->saveQuietly();
}

/// Ends the process there and then: the application is still alive, its threads are at work, and
/// the program's static objects must not be destroyed under them.
void saveAndEnd(int status, void* /*unused*/) {
    if (unsavedContext == nullptr) return;
    saveNow();
    std::fflush(nullptr);
    ::_exit(status);
}

}  // namespace

SaveAtExit::SaveAtExit(UnitOfWork& context, const LongWork& longWork) {
    [[maybe_unused]] static const int registered = ::on_exit(&saveAndEnd, nullptr);
    unsavedContext = &context;
    presentWork = &longWork;
}

SaveAtExit::~SaveAtExit() {
    saveNow();
}

}  // namespace elmworth
