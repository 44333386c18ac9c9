// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "platform/Instant.h"

namespace elmworth {

/// A duration that one click gives an entry.
struct DurationChip {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)  ///< "30m", "1h", "1h30"
    Q_PROPERTY(bool isChosen MEMBER isChosen)

 public:
    int id = 0;  ///< minutes
    QString text;
    bool isChosen = false;

    [[nodiscard]] std::chrono::minutes duration() const { return std::chrono::minutes(id); }
    /// All of them, with the one chosen that is exactly as long as from `start` to `end`.
    [[nodiscard]] static std::vector<DurationChip> all(Instant start, Instant end);

    friend bool operator==(const DurationChip&, const DurationChip&) = default;
};

}  // namespace elmworth
