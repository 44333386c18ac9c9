// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/RunLoop.h"

namespace elmworth {

/// The event loop of Qt's main thread. Needs a QCoreApplication.
class QtRunLoop final : public RunLoop {
 public:
    Handle post(std::function<void()> function) override;
    Handle repeat(std::chrono::milliseconds interval, std::function<void()> function) override;
};

}  // namespace elmworth
