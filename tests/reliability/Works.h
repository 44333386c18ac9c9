// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Instant.h"

namespace elmworth::test {

/// A command of "elmworth"; or {"snapshot"}, the daily one of the application, or {"logo", file},
/// as its settings do it.
using Step = std::vector<std::string>;

/// Something that people trust to happen whole or not at all, whatever interrupts it.
struct Work {
    std::string_view name;
    std::vector<Step> before{};  ///< what makes the library that it begins with
    std::vector<Step> steps{};   ///< each happens as a whole, in this order
    bool opensOlder = false;     ///< the library is one of the first version; there are no steps
    int rows = 60;  ///< entries for a kill to find, beside the few that each work needs
};

[[nodiscard]] const std::vector<Work>& allWorks();
/// Throws std::out_of_range.
[[nodiscard]] const Work& workNamed(std::string_view name);

/// A home of the program's: its data and its settings lie in "data" and "config". Only one at a
/// time is the one that the process works in.
class Home {
 public:
    /// `rows` entries come in beside the few that each work needs.
    Home(std::filesystem::path folder, int rows) : folder_(std::move(folder)), rows_(rows) {}

    /// Makes the folder and what `work` begins with. Throws std::runtime_error.
    void prepare(const Work& work) const;

    using Announce = std::function<void(std::string_view)>;
    /// Some of a work's steps; those before `first` are done already.
    struct Part {
        std::size_t first = 0;
        std::size_t count = std::string_view::npos;
    };
    /// Does `work`, as the program would, on the open library. Announces "ready" when the library
    /// is open (before that for one of an older version) and "done" after each step; the library is
    /// closed at the end. Gives the sentence in which the program refuses a step, and leaves the
    /// following ones, or nothing.
    [[nodiscard]] std::string perform(const Work& work, const Announce& announce, Part part) const;
    [[nodiscard]] std::string perform(const Work& work, const Announce& announce) const {
        return perform(work, announce, Part());
    }

    /// All that starts of the program find here: the document of a backup, the settings, the logo,
    /// the snapshots that are kept, and what SQLite finds wrong with the library. Equal texts mean
    /// equal homes. A step that was interrupted may be brought to its end by it.
    [[nodiscard]] std::string found() const;

 private:
    void enter() const;
    [[nodiscard]] std::filesystem::path library() const;
    void prepareOlder() const;
    void runAll(const std::vector<Step>& steps, Instant begin) const;
    [[nodiscard]] std::string foundOnce() const;

    std::filesystem::path folder_;
    int rows_;
};

}  // namespace elmworth::test
