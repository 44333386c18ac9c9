// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQmlIntegration>

namespace elmworth {

/// What the components compute of colours, names and icons.
class Tint final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

 public:
    using QObject::QObject;

    /// See HexColor.h.
    Q_INVOKABLE [[nodiscard]] static QColor fromHex(const QString& text);
    /// See NameTile.h.
    Q_INVOKABLE [[nodiscard]] static int nameHash(const QString& text);
    Q_INVOKABLE [[nodiscard]] static QString initials(const QString& text);
    /// See Icons.h.
    Q_INVOKABLE [[nodiscard]] static QString glyph(const QString& iconName);
    /// See Contrast.h. `ground` may be translucent over the opaque `behind`.
    Q_INVOKABLE [[nodiscard]] static QColor legible(const QColor& color, const QColor& ground,
                                                    const QColor& behind);
    Q_INVOKABLE [[nodiscard]] static QColor edge(const QColor& color, const QColor& ground);
    Q_INVOKABLE [[nodiscard]] static double scrimOpacity(const QVariantList& colors);
    Q_INVOKABLE [[nodiscard]] static QColor inkOn(const QVariantList& colors);
};

}  // namespace elmworth
