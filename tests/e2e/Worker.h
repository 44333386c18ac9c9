// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

namespace elmworth::test {

/// Opens `library` and works on it as a person would, with random steps of `seed`, until the
/// process is killed.
///
/// Writes to the descriptor `report`: "ready" once the library is open, "begin <step>" before each
/// step, "binds <count>" with the number of entries of an invoice that the step makes or deletes,
/// and after each step, when its save has succeeded, the lines of LibraryState::changesSince and
/// "saved".
[[noreturn]] void workUntilKilled(const std::filesystem::path& library, unsigned seed, int report);

}  // namespace elmworth::test
