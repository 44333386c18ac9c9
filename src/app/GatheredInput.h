// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace elmworth {

/// What was written to a command, whole, in a regular file that can be handed to another process:
/// one that waited for a slow writer itself would neither answer its user nor free the library.
class GatheredInput {
 public:
    /// Empty. Throws CommandError.
    GatheredInput();
    GatheredInput(const GatheredInput&) = delete;
    GatheredInput& operator=(const GatheredInput&) = delete;
    ~GatheredInput();

    /// Reads `source`, which messages call "standard input", to its end; a regular file stands for
    /// itself. Throws CommandError, also for more than a gigabyte that is in no file.
    void gather(int source);

    /// The file, from its beginning.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

 private:
    int descriptor_ = -1;
};

}  // namespace elmworth
