// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QString>
#include <future>

namespace elmworth {

/// Makes the fonts that the program carries known to Qt. Needs a QGuiApplication; does nothing when
/// called again.
void loadEmbeddedFonts();

/// Does it on a thread of its own, and has Qt read the system's fonts there, which takes a fifth of
/// a start. What shows a text must wait for it.
[[nodiscard]] std::future<void> loadFontsMeanwhile();

/// The family of all text: Inter under a name of its own, so that an installed one never mixes in.
[[nodiscard]] QString textFontFamily();

/// The same letters with digits of equal width, for figures in columns and running times.
[[nodiscard]] QString tabularFontFamily();

/// Semibold letters a tenth of their size apart, for small headings. The space is a part of the
/// letters' widths, so that it also stands behind the last one.
[[nodiscard]] QString labelFontFamily();
inline constexpr double labelLetterSpacing = 0.1;

/// The fonts of these families, unhinted, so that a text takes the same space on every screen and
/// on paper. Weights: Normal, Medium, DemiBold and Bold.
[[nodiscard]] QFont textFont(double pointSize, QFont::Weight weight = QFont::Normal);
[[nodiscard]] QFont tabularFont(double pointSize, QFont::Weight weight = QFont::Normal);
[[nodiscard]] QFont labelFont(double pointSize);

}  // namespace elmworth
