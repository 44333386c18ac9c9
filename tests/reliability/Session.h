// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/LibraryServices.h"
#include "platform/Instant.h"
#include "support/TestLibrary.h"

namespace elmworth::test {

/// One run of the program on the library of the environment's folders, without a process of its
/// own.
class Session {
 public:
    /// The clock stands at `begin`, and a day later at each step. Throws what LibraryServices does.
    Session(std::filesystem::path workingFolder, Instant begin);

    /// Carries out a command, {"snapshot"} or {"logo", file}, and gives the sentence in which it
    /// was refused, or nothing.
    [[nodiscard]] std::string run(const std::vector<std::string>& step);

    /// Lets the loop turn, as it does after each event.
    void turn() { runLoop_.turn(); }

    /// All that a person has: records, profile, settings, the logo, and the snapshots.
    [[nodiscard]] std::string contents();

    /// Calls `work`, and gives what it gives, or the sentence with which the program ends when the
    /// library can't be opened.
    [[nodiscard]] static std::string tryTo(const std::function<std::string()>& work);

 private:
    [[nodiscard]] std::string runCommandLine(const std::vector<std::string>& step);
    [[nodiscard]] BusinessProfile profile();
    [[nodiscard]] std::string settings();

    std::filesystem::path workingFolder_;
    Instant now_;
    ManualRunLoop runLoop_;
    LibraryServices services_;
};

/// A PNG of `side` pixels, which no two sides have in common.
void writePicture(const std::filesystem::path& file, int side);

}  // namespace elmworth::test
