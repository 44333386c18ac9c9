// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/PageText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <QTextLayout>
#include <QTextLine>
#include <QTextOption>
#include <algorithm>
#include <utility>

#include "theme/fonts/Fonts.h"

namespace elmworth {

namespace {

// Texts are laid out at many times their size: Qt rounds advances to 1/64 of a unit, which adds up
// over a long line.
constexpr int detail = 16;

// Far more than a line or a page can show; it keeps the cost of an absurd record in bounds.
constexpr qsizetype longestLine = 1'000;
constexpr qsizetype longestText = 20'000;
constexpr double tallestText = 1'000;

constexpr double unbounded = 100'000;

QFont faceFont(const TextStyle& style) {
    switch (style.face) {
        case TextStyle::Face::tabular:
            return tabularFont(style.size, style.weight);
        case TextStyle::Face::label:
            return labelFont(style.size);
        case TextStyle::Face::text:
            break;
    }
    return textFont(style.size, style.weight);
}

QFont detailedFont(const TextStyle& style, double size) {
    loadEmbeddedFonts();
    QFont font = faceFont(style);
    font.setPixelSize(static_cast<int>(size * detail));
    font.setLetterSpacing(QFont::AbsoluteSpacing, style.letterSpacing * detail);
    return font;
}

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

QString withoutControls(QString text) {
    std::replace_if(text.begin(), text.end(), isControl, QLatin1Char(' '));
    return text;
}

QString oneLine(std::string_view text) {
    const auto bytes = static_cast<qsizetype>(text.size());
    return withoutControls(
        QString::fromUtf8(text.data(), std::min(bytes, 4 * longestLine)).left(longestLine));
}

QStringList paragraphsOf(std::string_view text) {
    const auto bytes = static_cast<qsizetype>(text.size());
    return QString::fromUtf8(text.data(), std::min(bytes, 4 * longestText))
        .left(longestText)
        .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .split(QLatin1Char('\n'));
}

double lineWidth(const QString& text, const QFont& font) {
    return QFontMetricsF(font).horizontalAdvance(text) / detail;
}

}  // namespace

double TextStyle::lineHeight() const {
    const QFontMetricsF metrics(detailedFont(*this, size));
    return (metrics.ascent() + metrics.descent()) / detail;
}

double TextStyle::trailingSpace() const {
    // Half of a label's space stays: its last letter is then flush with the digits below it, which
    // stand in wider spaces of their own.
    return letterSpacing + (face == Face::label ? labelLetterSpacing * size / 2 : 0);
}

PageText::PageText(const TextStyle& style) : style_(style) {}
PageText::PageText(PageText&&) noexcept = default;
PageText& PageText::operator=(PageText&&) noexcept = default;
PageText::~PageText() = default;

PageText PageText::line(std::string_view text, const TextStyle& style, double width) {
    PageText result(style);
    if (text.empty()) return result;
    const QFont font = detailedFont(style, style.size);
    QString shown = oneLine(text);
    if (lineWidth(shown, font) - style.trailingSpace() > width) {
        shown = QFontMetricsF(font).elidedText(shown, Qt::ElideRight, width * detail);
    }
    result.append(shown, font, unbounded);
    return result;
}

PageText PageText::figure(std::string_view text, const TextStyle& style, double width) {
    PageText result(style);
    if (text.empty()) return result;
    QFont font = detailedFont(style, style.size);
    const QString shown = oneLine(text);
    const double natural = lineWidth(shown, font) - style.trailingSpace();
    if (natural > width) font = detailedFont(style, style.size * width / natural);
    result.append(shown, font, unbounded);
    return result;
}

PageText PageText::paragraphs(std::string_view text, const TextStyle& style, double width) {
    PageText result(style);
    if (text.empty()) return result;
    const QFont font = detailedFont(style, style.size);
    for (const QString& paragraph : paragraphsOf(text)) {
        result.append(withoutControls(paragraph), font, width);
        if (result.height() > tallestText) break;
    }
    return result;
}

void PageText::append(const QString& paragraph, const QFont& font, double width) {
    const double pitch = style_.lineHeight();
    const double baseline = QFontMetricsF(detailedFont(style_, style_.size)).ascent();
    auto layout = std::make_unique<QTextLayout>(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->beginLayout();
    while (true) {
        QTextLine line = layout->createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width * detail);
        line.setPosition({0, size_.height() * detail + baseline - line.ascent()});
        size_ = {std::max(size_.width(), widthOf(line)), size_.height() + pitch};
    }
    layout->endLayout();
    layouts_.push_back(std::move(layout));
}

double PageText::widthOf(const QTextLine& line) const {
    return line.naturalTextWidth() / detail - style_.trailingSpace();
}

template <class Indent>
void PageText::paintLines(QPainter& painter, QPointF upperLeft, const Indent& indent) const {
    painter.save();
    painter.translate(upperLeft);
    painter.scale(1.0 / detail, 1.0 / detail);
    painter.setPen(style_.color);
    for (const auto& layout : layouts_) {
        for (int i = 0; i < layout->lineCount(); ++i) {
            const QTextLine line = layout->lineAt(i);
            line.draw(&painter, {indent(line) * detail, 0});
        }
    }
    painter.restore();
}

void PageText::paint(QPainter& painter, QPointF upperLeft) const {
    paintLines(painter, upperLeft, [](const QTextLine& /*line*/) { return 0.0; });
}

void PageText::paintRightAligned(QPainter& painter, QPointF upperRight) const {
    paintLines(painter, upperRight, [&](const QTextLine& line) { return -widthOf(line); });
}

void TextStack::add(PageText text) {
    texts_.push_back(std::move(text));
}

double TextStack::width() const noexcept {
    double widest = 0;
    for (const PageText& text : texts_) widest = std::max(widest, text.width());
    return widest;
}

double TextStack::height() const noexcept {
    double sum = 0;
    for (const PageText& text : texts_) sum += text.height() + spacing_;
    return texts_.empty() ? 0 : sum - spacing_;
}

void TextStack::paint(QPainter& painter, QPointF upperLeft) const {
    for (const PageText& text : texts_) {
        text.paint(painter, upperLeft);
        upperLeft.ry() += text.height() + spacing_;
    }
}

void TextStack::paintRightAligned(QPainter& painter, QPointF upperRight) const {
    for (const PageText& text : texts_) {
        text.paintRightAligned(painter, upperRight);
        upperRight.ry() += text.height() + spacing_;
    }
}

}  // namespace elmworth
