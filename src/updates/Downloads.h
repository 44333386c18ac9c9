// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace elmworth {

/// Fetches files over HTTPS.
class Downloads {
 public:
    virtual ~Downloads() = default;

    struct Wanted {
        std::string address;     ///< anything but https is refused, also where a redirect leads
        std::int64_t mostBytes;  ///< more than that is refused
        std::chrono::seconds within;  ///< of all of it
    };
    /// Takes the next bytes; false ends the download as failed.
    using Sink = std::function<bool(std::string_view bytes)>;
    /// The download has ended: with a sentence that says why it failed, or with an empty text.
    using Ended = std::function<void(const std::string& failure)>;

    /// A download that goes on; it ends silently when the handle dies.
    using Handle = std::shared_ptr<void>;

    /// Begins a download. Neither function is called before it returns.
    [[nodiscard]] virtual Handle fetch(const Wanted& wanted, Sink sink, Ended ended) = 0;
};

}  // namespace elmworth
