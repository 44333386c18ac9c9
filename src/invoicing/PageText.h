// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QSizeF>
#include <memory>
#include <string_view>
#include <vector>

class QPainter;
class QTextLayout;
class QTextLine;

namespace elmworth {

/// How a text on a page looks; sizes in points.
struct TextStyle {
    enum class Face {
        text,
        tabular,  ///< digits of equal width
        label,    ///< semibold, its letters a tenth of the size apart
    };

    Face face = Face::text;
    double size = 10;
    QFont::Weight weight = QFont::Normal;
    QColor color = Qt::black;
    double letterSpacing = 0;

    /// The height of a line.
    [[nodiscard]] double lineHeight() const;

    /// The space behind the last letter that does not count as a part of the text.
    [[nodiscard]] double trailingSpace() const;
};

/// A text laid out for a page, in points: always plain text, whatever it holds. The lines of a
/// style have one height, also where a letter comes from a font that stands in for ours.
class PageText {
 public:
    /// One line; what does not fit into `width` is cut, with an ellipsis for it.
    [[nodiscard]] static PageText line(std::string_view text, const TextStyle& style, double width);

    /// One line that is made smaller until it fits into `width`: a figure without its end is wrong.
    [[nodiscard]] static PageText figure(std::string_view text, const TextStyle& style,
                                         double width);

    /// As many lines as the text takes at `width`; line feeds start a new one.
    [[nodiscard]] static PageText paragraphs(std::string_view text, const TextStyle& style,
                                             double width);

    PageText(PageText&& other) noexcept;
    PageText& operator=(PageText&& other) noexcept;
    ~PageText();

    /// The size taken: the width of the longest line, without its trailing space.
    /// An empty text takes no space.
    [[nodiscard]] double width() const noexcept { return size_.width(); }
    [[nodiscard]] double height() const noexcept { return size_.height(); }

    void paint(QPainter& painter, QPointF upperLeft) const;
    /// Each line ends at the right edge.
    void paintRightAligned(QPainter& painter, QPointF upperRight) const;

 private:
    explicit PageText(const TextStyle& style);
    [[nodiscard]] double widthOf(const QTextLine& line) const;
    template <class Indent>
    void paintLines(QPainter& painter, QPointF upperLeft, const Indent& indent) const;
    void append(const QString& paragraph, const QFont& font, double width);

    TextStyle style_;
    QSizeF size_{0, 0};
    std::vector<std::unique_ptr<QTextLayout>> layouts_;
};

/// Texts one below the other.
class TextStack {
 public:
    explicit TextStack(double spacing) : spacing_(spacing) {}

    void add(PageText text);
    [[nodiscard]] double width() const noexcept;
    [[nodiscard]] double height() const noexcept;
    void paint(QPainter& painter, QPointF upperLeft) const;
    void paintRightAligned(QPainter& painter, QPointF upperRight) const;

 private:
    double spacing_;
    std::vector<PageText> texts_;
};

}  // namespace elmworth
