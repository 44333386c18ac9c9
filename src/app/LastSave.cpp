// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/LastSave.h"

#include <cstdlib>
#include <utility>

namespace elmworth {

namespace {

ModelContext* unsavedContext = nullptr;

void saveNow() {
    if (auto* const context = std::exchange(unsavedContext, nullptr)) context->saveQuietly();
}

}  // namespace

LastSave::LastSave(ModelContext& context) {
    [[maybe_unused]] static const int registered = std::atexit(&saveNow);
    unsavedContext = &context;
}

LastSave::~LastSave() {
    saveNow();
}

}  // namespace elmworth
