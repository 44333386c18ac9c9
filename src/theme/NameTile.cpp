// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/NameTile.h"

#include <QStringList>
#include <QTextBoundaryFinder>

namespace elmworth {

namespace {

constexpr qsizetype mostInitials = 2;

/// The first user-perceived character, with its accents and joiners.
QString firstCharacter(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    const auto end = finder.toNextBoundary();
    return end < 0 ? text : text.left(end);
}

bool isLetterOrNumber(char32_t scalar) {
    return QChar::isLetterOrNumber(scalar);
}

/// The word from its first letter or digit on; empty when it has none.
QString withoutLeadingSigns(const QString& word) {
    qsizetype units = 0;
    for (const char32_t scalar : word.toUcs4()) {
        if (isLetterOrNumber(scalar)) return word.sliced(units);
        units += QChar::requiresSurrogates(scalar) ? 2 : 1;
    }
    return {};
}

/// A letter whose capital is more than one letter stays as it is.
QString capital(const QString& character) {
    const QString upper = character.toUpper();
    return firstCharacter(upper) == upper ? upper : character;
}

}  // namespace

std::uint32_t nameHash(const QString& text) {
    std::uint32_t hash = 0;
    for (const std::uint32_t scalar : text.toUcs4()) hash = (hash * 31 + scalar) & 0xFFFF;
    return hash;
}

QString initials(const QString& text) {
    const QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    QStringList letters;
    for (const QString& word : words) {
        const QString core = withoutLeadingSigns(word);
        if (!core.isEmpty() && letters.size() < mostInitials) {
            letters << capital(firstCharacter(core));
        }
    }
    if (!letters.isEmpty()) return letters.join(QString());
    return words.isEmpty() ? QStringLiteral("?") : firstCharacter(words.first());
}

}  // namespace elmworth
