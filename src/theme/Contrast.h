// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QList>

namespace elmworth {

/// The contrast between a text and its ground that every text keeps, and the one of a sign that is
/// understood by its shape.
inline constexpr double textContrast = 4.5;
inline constexpr double signContrast = 3;

/// How far apart two opaque colours are in brightness: from 1 for the same one to 21 for black and
/// white.
[[nodiscard]] double contrastRatio(const QColor& one, const QColor& other);

/// What is seen of `top` over the opaque `ground`.
[[nodiscard]] QColor composed(const QColor& top, const QColor& ground);

/// The opaque colour nearest to `color` that keeps `ratio` on the opaque `ground`: `color` under as
/// little as needed of white, or of black on a bright ground.
[[nodiscard]] QColor legible(const QColor& color, const QColor& ground,
                             double ratio = textContrast);

/// The colour for the edge of a sign that is filled with `color`: `color` itself, unless the sign
/// would be taken for its ground.
[[nodiscard]] QColor edge(const QColor& color, const QColor& ground);

/// The opacity from 0 to 1 of the black that has to lie over each of `colors` so that white keeps
/// `ratio` on all of them.
[[nodiscard]] double scrimOpacity(const QList<QColor>& colors, double ratio = textContrast);

/// White or black, whichever stands out better on the worst of `colors`.
[[nodiscard]] QColor inkOn(const QList<QColor>& colors);

}  // namespace elmworth
