// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <utility>

#include "platform/Observers.h"

namespace elmworth {

/// Long work on the library, such as a restore, during which a window goes on showing how far it
/// is. Others must neither see nor save what is half done: who could ask `isRunning` before they
/// touch the library.
class LongWork {
 public:
    LongWork() = default;
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    [[nodiscard]] bool isRunning() const noexcept { return isRunning_; }

    /// Runs `work`, which may throw. Not while another runs.
    void run(const std::function<void()>& work) {
        const Running running(*this);
        work();
    }

    /// Calls `changed` when work begins and when it ends, until the handle dies.
    using Observation = Observers<>::Observation;
    [[nodiscard]] Observation observe(std::function<void()> changed) {
        return observers_.add(std::move(changed));
    }

 private:
    class Running {
     public:
        explicit Running(LongWork& work) : work_(work) { set(true); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        ~Running() { set(false); }

     private:
        void set(bool isRunning) {
            work_.isRunning_ = isRunning;
            work_.observers_.notify();
        }
        LongWork& work_;
    };

    bool isRunning_ = false;
    Observers<> observers_;
};

}  // namespace elmworth
