// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "updates/Downloads.h"

namespace elmworth::test {

/// Answers when it is told to.
class ToldDownloads final : public Downloads {
 public:
    Handle fetch(const Wanted& wanted, Sink sink, Ended ended) override {
        asked.push_back(wanted.address);
        wanted_ = wanted;
        auto handle = std::make_shared<int>(0);
        pending_ = handle;
        sink_ = std::move(sink);
        ended_ = std::move(ended);
        return handle;
    }
    void answer(const std::string& bytes, const std::string& failure = {}) {
        if (pending_.expired()) return;
        sink_(bytes);
        ended_(failure);
    }
    [[nodiscard]] const Wanted& wanted() const { return wanted_; }

    std::vector<std::string> asked;

 private:
    Wanted wanted_{};
    std::weak_ptr<int> pending_;
    Sink sink_;
    Ended ended_;
};

}  // namespace elmworth::test
