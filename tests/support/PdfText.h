// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace elmworth::test {

/// A rectangle on a page, in points from its upper left corner. A text's box reaches from the
/// ascent to the descent of its font, and from the start of its first letter to the end of the
/// last.
struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    [[nodiscard]] double width() const { return right - left; }
    [[nodiscard]] double height() const { return bottom - top; }
};

struct PdfWord {
    std::string text;
    Box box;
};

struct PdfPage {
    double width = 0;
    double height = 0;
    std::vector<PdfWord> words;

    /// The places of `text`, words with single blanks between them, in reading order.
    [[nodiscard]] std::vector<Box> places(std::string_view text) const;

    /// The only place of `text`. Throws std::runtime_error when there is none or more than one.
    [[nodiscard]] Box place(std::string_view text) const;
};

/// What another program reads from a PDF, as plain lines of text.
[[nodiscard]] std::string pdfPlainText(const std::filesystem::path& file);

/// The words of a PDF with their places.
[[nodiscard]] std::vector<PdfPage> pdfPages(const std::filesystem::path& file);

/// The value that `pdfinfo` shows for `key`, such as "Title"; empty for none.
[[nodiscard]] std::string pdfInfo(const std::filesystem::path& file, std::string_view key);

/// The lines of a table that one of poppler's programs shows of a PDF, without its two head lines.
[[nodiscard]] std::vector<std::string> pdfFonts(const std::filesystem::path& file);
[[nodiscard]] std::vector<std::string> pdfImages(const std::filesystem::path& file);

}  // namespace elmworth::test
