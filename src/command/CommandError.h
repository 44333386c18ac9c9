// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string>

namespace elmworth {

/// A command that cannot be carried out. The message is one sentence; nothing has been changed.
class CommandError : public std::runtime_error {
 public:
    enum class Kind {
        failed = 1,  ///< the operation failed
        usage = 2,   ///< the command was written wrong
    };
    explicit CommandError(const std::string& message, Kind kind = Kind::failed)
        : std::runtime_error(message), kind_(kind) {}
    [[nodiscard]] Kind kind() const noexcept { return kind_; }

 private:
    Kind kind_;
};

}  // namespace elmworth
