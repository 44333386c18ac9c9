// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/TrayIconPainter.h"

#include <QDir>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QStandardPaths>
#include <array>

namespace elmworth {

namespace {

constexpr std::array panelSizes{16, 22, 24, 32, 44, 48, 64};
constexpr int fileSize = 48;

void drawGround(QPainter& painter, const TrayIconStyle& style, double size) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(style.ground);
    painter.drawRoundedRect(QRectF(0, 0, size, size), size * 0.22, size * 0.22);
}

/// A text as a shape that fills `box` as far as its own proportions allow: at these sizes the space
/// that a font keeps around its letters is a third of the icon.
void drawFitted(QPainter& painter, const QFont& font, const QString& text, const QRectF& box,
                const QColor& color) {
    QPainterPath path;
    path.addText(0, 0, font, text);
    const QRectF extent = path.boundingRect();
    if (extent.isEmpty()) return;
    const double scale = std::min(box.width() / extent.width(), box.height() / extent.height());
    QTransform placed;
    placed.translate(box.center().x(), box.center().y());
    placed.scale(scale, scale);
    placed.translate(-extent.center().x(), -extent.center().y());
    painter.fillPath(placed.map(path), color);
}

QFont shapeFont(const QString& family, QFont::Weight weight) {
    QFont font(family);
    font.setPixelSize(100);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void drawGlyph(QPainter& painter, const TrayIconStyle& style, const TrayFace& face,
               const QRectF& box) {
    const bool isRunning = face.icon == TrayFace::Icon::running;
    drawFitted(painter, shapeFont(style.iconFamily, QFont::Normal),
               isRunning ? style.runningGlyph : style.idleGlyph, box,
               isRunning ? style.accent : style.foreground);
}

/// Hours over minutes: two figures fill the icon where four beside each other could not be read.
void drawTime(QPainter& painter, const TrayIconStyle& style, const QString& text, double size) {
    const QFont font = shapeFont(style.textFamily, QFont::DemiBold);
    const auto parts = text.split(QLatin1Char(':'));
    if (parts.size() != 2) {
        drawFitted(painter, font, text, QRectF(0, 0, size, size).adjusted(1, 1, -1, -1),
                   style.foreground);
        return;
    }
    const double edge = size * 0.06;
    const double line = (size - 3 * edge) / 2;
    const QRectF upper(edge, edge, size - 2 * edge, line);
    drawFitted(painter, font, parts[0], upper, style.accent);
    drawFitted(painter, font, parts[1], upper.translated(0, line + edge), style.foreground);
}

}  // namespace

QImage drawTrayIcon(const TrayIconStyle& style, const TrayFace& face, int size, bool withText) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawGround(painter, style, size);
    if (withText && !face.iconText.empty()) {
        drawTime(painter, style, QString::fromStdString(face.iconText), size);
    } else {
        const double edge = size * 0.17;
        drawGlyph(painter, style, face,
                  QRectF(0, 0, size, size).adjusted(edge, edge, -edge, -edge));
    }
    return image;
}

QList<QImage> drawTrayIcons(const TrayIconStyle& style, const TrayFace& face, bool withText) {
    QList<QImage> images;
    for (const int size : panelSizes) images.append(drawTrayIcon(style, face, size, withText));
    return images;
}

TrayIconFiles::TrayIconFiles(const TrayIconStyle& style)
    : folder_(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
              QStringLiteral("/elmworth-tray")) {
    QDir().mkpath(folder_);
    for (const auto icon : {TrayFace::Icon::idle, TrayFace::Icon::running}) {
        drawTrayIcon(style, {.icon = icon}, fileSize, false)
            .save(folder_ + QLatin1Char('/') + name(icon) + QStringLiteral(".png"));
    }
}

QString TrayIconFiles::name(TrayFace::Icon icon) {
    return icon == TrayFace::Icon::running ? QStringLiteral("elmworth-tray-running")
                                           : QStringLiteral("elmworth-tray-idle");
}

}  // namespace elmworth
