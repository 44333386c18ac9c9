// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/fonts/Fonts.h"

#include <QFontDatabase>
#include <QLatin1String>
#include <QtGlobal>
#include <array>

// The macro declares a function of the global namespace.
static void initializeFontResources() {
    Q_INIT_RESOURCE(elmworth_fonts);
}

namespace elmworth {

namespace {

constexpr std::array fontFiles{
    "Text-Regular.otf",    "Text-Medium.otf",    "Text-SemiBold.otf",    "Text-Bold.otf",
    "Tabular-Regular.otf", "Tabular-Medium.otf", "Tabular-SemiBold.otf", "Tabular-Bold.otf",
    "Label-SemiBold.otf",  "Icons.ttf",
};

bool loadAll() {
    initializeFontResources();
    for (const char* file : fontFiles) {
        const QString path = QStringLiteral(":/elmworth/fonts/") + QLatin1String(file);
        if (QFontDatabase::addApplicationFont(path) < 0) {
            qFatal("The embedded font %s cannot be loaded", file);
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

QString labelFontFamily() {
    return QStringLiteral("Elmworth Inter Label");
}

QFont textFont(double pointSize, QFont::Weight weight) {
    return unhinted(textFontFamily(), pointSize, weight);
}

QFont tabularFont(double pointSize, QFont::Weight weight) {
    return unhinted(tabularFontFamily(), pointSize, weight);
}

QFont labelFont(double pointSize) {
    return unhinted(labelFontFamily(), pointSize, QFont::DemiBold);
}

}  // namespace elmworth
