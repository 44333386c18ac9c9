// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/fonts/Fonts.h"

#include <QFontDatabase>
#include <QStringList>
#include <QtGlobal>

// The macro declares a function of the global namespace.
static void initializeFontResources() {
    Q_INIT_RESOURCE(elmworth_fonts);
}

namespace elmworth {

namespace {

bool loadAll() {
    initializeFontResources();
    for (const auto* name : {"Text", "Tabular"}) {
        for (const auto* weight : {"Regular", "Medium", "SemiBold", "Bold"}) {
            const QString path = QStringLiteral(":/elmworth/fonts/%1-%2.otf")
                                     .arg(QLatin1String(name), QLatin1String(weight));
            if (QFontDatabase::addApplicationFont(path) < 0) {
                qFatal("The embedded font %s-%s cannot be loaded", name, weight);
            }
        }
    }
    return true;
}

QFont unhinted(const QString& family, double pointSize, QFont::Weight weight) {
    QFont font(family);
    font.setPointSizeF(pointSize);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

void loadEmbeddedFonts() {
    [[maybe_unused]] static const bool loaded = loadAll();
}

QString textFontFamily() {
    return QStringLiteral("Elmworth Inter");
}

QString tabularFontFamily() {
    return QStringLiteral("Elmworth Inter Tabular");
}

QFont textFont(double pointSize, QFont::Weight weight) {
    return unhinted(textFontFamily(), pointSize, weight);
}

QFont tabularFont(double pointSize, QFont::Weight weight) {
    return unhinted(tabularFontFamily(), pointSize, weight);
}

}  // namespace elmworth
