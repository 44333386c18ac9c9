// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Contrast.h"

#include <algorithm>
#include <cmath>

namespace elmworth {

namespace {

constexpr int steps = 100;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor under(const QColor& veil, double opacity, const QColor& color) {
    QColor translucent = veil;
    translucent.setAlphaF(static_cast<float>(opacity));
    return composed(translucent, color);
}

double worstContrast(const QColor& text, const QList<QColor>& grounds) {
    double worst = 21;
    for (const QColor& ground : grounds) worst = std::min(worst, contrastRatio(text, ground));
    return worst;
}

}  // namespace

double contrastRatio(const QColor& one, const QColor& other) {
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

QColor composed(const QColor& top, const QColor& ground) {
    const float alpha = top.alphaF();
    const auto mix = [alpha](float above, float below) {
        return above * alpha + below * (1 - alpha);
    };
    return QColor::fromRgbF(mix(top.redF(), ground.redF()), mix(top.greenF(), ground.greenF()),
                            mix(top.blueF(), ground.blueF()));
}

QColor legible(const QColor& color, const QColor& ground, double ratio) {
    const QColor veil = inkOn({ground});
    for (int step = 0; step < steps; ++step) {
        const QColor candidate = under(veil, step / double{steps}, color);
        if (contrastRatio(candidate, ground) >= ratio) return candidate;
    }
    return veil;
}

QColor edge(const QColor& color, const QColor& ground) {
    constexpr double faintest = 1.5;
    return contrastRatio(color, ground) < faintest ? legible(color, ground, signContrast) : color;
}

double scrimOpacity(const QList<QColor>& colors, double ratio) {
    for (int step = 0; step < steps; ++step) {
        const double opacity = step / double{steps};
        QList<QColor> covered;
        for (const QColor& color : colors) covered << under(Qt::black, opacity, color);
        if (worstContrast(Qt::white, covered) >= ratio) return opacity;
    }
    return 1;
}

QColor inkOn(const QList<QColor>& colors) {
    return worstContrast(Qt::white, colors) >= worstContrast(Qt::black, colors) ? Qt::white
                                                                                : Qt::black;
}

}  // namespace elmworth
