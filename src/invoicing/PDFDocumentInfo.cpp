// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/PDFDocumentInfo.h"

#include <QDateTime>
#include <QStringEncoder>
#include <optional>

namespace elmworth {

namespace {

/// A text string in hexadecimal UTF-16, which needs no escapes.
QByteArray textString(const QString& text) {
    QStringEncoder encoder(QStringEncoder::Utf16BE, QStringConverter::Flag::WriteBom);
    const QByteArray bytes = encoder.encode(text);
    return '<' + bytes.toHex() + '>';
}

QByteArray dictionary(const PDFDocumentInfo& info) {
    const QByteArray now =
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1();
    return "<<\n/Title " + textString(info.title) + "\n/Author " + textString(info.author) +
           "\n/Creator " + textString(info.creator) + "\n/Producer (Qt " + qVersion() +
           ")\n/CreationDate (D:" + now + "Z)\n>>";
}

/// The number that follows the last `key` of the file.
std::optional<int> numberBehind(const QByteArray& pdf, const char* key) {
    const qsizetype place = pdf.lastIndexOf(key);
    if (place < 0) return {};
    const qsizetype start = place + static_cast<qsizetype>(qstrlen(key));
    qsizetype end = start;
    while (end < pdf.size() && pdf.at(end) >= '0' && pdf.at(end) <= '9') ++end;
    if (start == end) return {};
    return pdf.mid(start, end - start).toInt();
}

}  // namespace

QByteArray withDocumentInfo(const QByteArray& pdf, const PDFDocumentInfo& info) {
    const auto size = numberBehind(pdf, "\n/Size ");
    const auto infoObject = numberBehind(pdf, "\n/Info ");
    const auto root = numberBehind(pdf, "\n/Root ");
    const auto previous = numberBehind(pdf, "\nstartxref\n");
    if (!size || !infoObject || !root || !previous) return pdf;

    QByteArray result = pdf;
    if (!result.endsWith('\n')) result += '\n';
    const QByteArray id = QByteArray::number(*infoObject);
    const QByteArray offset = QByteArray::number(result.size()).rightJustified(10, '0');
    result += id + " 0 obj\n" + dictionary(info) + "\nendobj\n";
    const QByteArray table = QByteArray::number(result.size());
    result += "xref\n" + id + " 1\n" + offset + " 00000 n \ntrailer\n<<\n/Size " +
              QByteArray::number(*size) + "\n/Info " + id + " 0 R\n/Root " +
              QByteArray::number(*root) + " 0 R\n/Prev " + QByteArray::number(*previous) +
              "\n>>\nstartxref\n" + table + "\n%%EOF\n";
    return result;
}

}  // namespace elmworth
