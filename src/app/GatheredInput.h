// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace elmworth {

/// The complete standard input of a command, copied to a regular file that can be handed to the
/// running application, which must not block on a slow writer.
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
