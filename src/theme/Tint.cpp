// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Tint.h"

#include "theme/Contrast.h"
#include "theme/HexColor.h"
#include "theme/Icons.h"
#include "theme/NameTile.h"

namespace elmworth {

namespace {

QList<QColor> toColors(const QVariantList& values) {
    QList<QColor> colors;
    for (const QVariant& value : values) colors << value.value<QColor>();
    return colors;
}

}  // namespace

QColor Tint::fromHex(const QString& text) {
    return colorFromHex(text);
}

int Tint::nameHash(const QString& text) {
    return static_cast<int>(elmworth::nameHash(text));
}

QString Tint::initials(const QString& text) {
    return elmworth::initials(text);
}

QString Tint::glyph(const QString& iconName) {
    return iconGlyph(iconName);
}

QColor Tint::legible(const QColor& color, const QColor& ground, const QColor& behind) {
    return elmworth::legible(color, composed(ground, behind));
}

QColor Tint::edge(const QColor& color, const QColor& ground) {
    return elmworth::edge(color, ground);
}

double Tint::scrimOpacity(const QVariantList& colors) {
    return elmworth::scrimOpacity(toColors(colors));
}

QColor Tint::inkOn(const QVariantList& colors) {
    return elmworth::inkOn(toColors(colors));
}

}  // namespace elmworth
