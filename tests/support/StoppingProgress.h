// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Progress.h"

namespace elmworth::test {

/// Somebody who loses patience at the n-th report, counted from 1.
class StoppingProgress final : public Progress {
 public:
    explicit StoppingProgress(int stopAt) : stopAt_(stopAt) {}
    [[nodiscard]] bool hasStopped() const noexcept { return reports_ >= stopAt_; }

 protected:
    void report(const char* /*step*/, std::size_t /*done*/, std::size_t /*total*/) override {
        if (++reports_ == stopAt_) throw Cancelled();
    }

 private:
    int stopAt_;
    int reports_ = 0;
};

}  // namespace elmworth::test
