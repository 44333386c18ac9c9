// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string>

namespace elmworth {

/// A read or write of the library that failed. The message is one sentence or phrase for people.
class StoreError : public std::runtime_error {
 public:
    enum class Code {
        io,            ///< the disk is full, read-only, or fails
        corrupt,       ///< the file is damaged
        constraint,    ///< the change breaks a promise of the schema
        deleteDenied,  ///< a record is still needed by another
        other,
    };
    StoreError(Code code, const std::string& message) : std::runtime_error(message), code_(code) {}
    [[nodiscard]] Code code() const noexcept { return code_; }

 private:
    Code code_;
};

}  // namespace elmworth
