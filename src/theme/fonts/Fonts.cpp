// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/fonts/Fonts.h"

#include <QFontDatabase>
#include <QLatin1String>
#include <QResource>
#include <QtGlobal>
#include <array>
#include <tuple>

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
        const QResource font(QStringLiteral(":/elmworth/fonts/") + QLatin1String(file));
        // Read where it lies in the program: all of them are megabytes.
        const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(font.data()),
                                                   static_cast<qsizetype>(font.size()));
        if (QFontDatabase::addApplicationFontFromData(bytes) < 0) {
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

std::future<void> loadFontsMeanwhile() {
    return std::async(std::launch::async | std::launch::deferred, [] {
        loadEmbeddedFonts();
        std::ignore = QFontDatabase::hasFamily(textFontFamily());  // looks at all that there are
    });
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
