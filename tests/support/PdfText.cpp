// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/PdfText.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace elmworth::test {

namespace {

QByteArray output(const char* program, QStringList arguments) {
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error(program + process.readAllStandardError().toStdString());
    }
    return process.readAllStandardOutput();
}

QString pathOf(const std::filesystem::path& file) {
    return QString::fromStdString(file.string());
}

double number(const QXmlStreamReader& xml, const char* name) {
    return xml.attributes().value(QLatin1String(name)).toDouble();
}

PdfWord readWord(QXmlStreamReader& xml) {
    const Box box{number(xml, "xMin"), number(xml, "yMin"), number(xml, "xMax"),
                  number(xml, "yMax")};
    return {xml.readElementText().toStdString(), box};
}

std::vector<std::string> tableRows(const QByteArray& text) {
    constexpr int headLines = 2;
    std::istringstream stream(text.toStdString());
    std::vector<std::string> rows;
    std::string line;
    for (int i = 0; std::getline(stream, line); ++i) {
        if (i >= headLines) rows.push_back(line);
    }
    return rows;
}

bool follows(const PdfWord& word, const Box& previous) {
    const double gap = word.box.left - previous.right;
    return std::abs(word.box.top - previous.top) < 0.1 && gap > 0 && gap < previous.height() / 2;
}

std::optional<Box> textFrom(const std::vector<PdfWord>& words, const PdfWord& first,
                            const std::vector<std::string>& wanted) {
    Box whole = first.box;
    for (std::size_t i = 1; i < wanted.size(); ++i) {
        const auto next = std::find_if(words.begin(), words.end(), [&](const PdfWord& word) {
            return word.text == wanted[i] && follows(word, whole);
        });
        if (next == words.end()) return {};
        whole.right = next->box.right;
    }
    return whole;
}

}  // namespace

std::vector<Box> PdfPage::places(std::string_view text) const {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> wanted;
    for (std::string word; stream >> word;) wanted.push_back(word);
    std::vector<Box> found;
    for (const PdfWord& word : words) {
        if (word.text != wanted.front()) continue;
        if (const auto box = textFrom(words, word, wanted)) found.push_back(*box);
    }
    return found;
}

Box PdfPage::place(std::string_view text) const {
    const auto found = places(text);
    if (found.size() != 1) {
        throw std::runtime_error(std::to_string(found.size()) + " places of " + std::string(text));
    }
    return found.front();
}

std::string pdfPlainText(const std::filesystem::path& file) {
    return output("pdftotext", {QStringLiteral("-raw"), pathOf(file), QStringLiteral("-")})
        .toStdString();
}

std::vector<PdfPage> pdfPages(const std::filesystem::path& file) {
    QXmlStreamReader xml(
        output("pdftotext", {QStringLiteral("-bbox"), pathOf(file), QStringLiteral("-")}));
    std::vector<PdfPage> pages;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("page")) {
            pages.push_back({number(xml, "width"), number(xml, "height"), {}});
        } else if (xml.name() == QLatin1String("word")) {
            pages.back().words.push_back(readWord(xml));
        }
    }
    if (xml.hasError()) throw std::runtime_error(xml.errorString().toStdString());
    return pages;
}

std::string pdfInfo(const std::filesystem::path& file, std::string_view key) {
    std::istringstream stream(output("pdfinfo", {pathOf(file)}).toStdString());
    const std::string start = std::string(key) + ":";
    for (std::string line; std::getline(stream, line);) {
        if (line.rfind(start, 0) != 0) continue;
        const auto value = line.find_first_not_of(' ', start.size());
        return value == std::string::npos ? "" : line.substr(value);
    }
    return {};
}

std::vector<std::string> pdfFonts(const std::filesystem::path& file) {
    return tableRows(output("pdffonts", {pathOf(file)}));
}

std::vector<std::string> pdfImages(const std::filesystem::path& file) {
    return tableRows(output("pdfimages", {QStringLiteral("-list"), pathOf(file)}));
}

}  // namespace elmworth::test
