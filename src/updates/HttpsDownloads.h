// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QNetworkAccessManager>
#include <optional>

#include "updates/Downloads.h"

namespace elmworth {

/// Downloads by Qt's network. Redirects lead from https to https alone, five at most. No cookies,
/// no cache, and nothing is unpacked on the way.
class HttpsDownloads final : public Downloads {
 public:
    [[nodiscard]] Handle fetch(const Wanted& wanted, Sink sink, Ended ended) override;

 private:
    std::optional<QNetworkAccessManager> network_;  ///< made when it is first needed
};

}  // namespace elmworth
