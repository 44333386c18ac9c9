// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/DurationChip.h"

namespace elmworth {

namespace {

QString label(int minutes) {
    if (minutes < 60) return QStringLiteral("%1m").arg(minutes);
    const auto hours = QStringLiteral("%1h").arg(minutes / 60);
    return minutes % 60 == 0 ? hours : hours + QString::number(minutes % 60);
}

}  // namespace

std::vector<DurationChip> DurationChip::all(Instant start, Instant end) {
    std::vector<DurationChip> chips;
    for (const int minutes : {6, 12, 15, 30, 60, 90, 120, 240}) {
        chips.push_back({minutes, label(minutes), end - start == std::chrono::minutes(minutes)});
    }
    return chips;
}

}  // namespace elmworth
