// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

namespace elmworth {

/// What a PDF tells about itself.
struct PDFDocumentInfo {
    QString title;
    QString author;
    QString creator;
};

/// `pdf`, as QPdfWriter made it, with `info` and the present time as its document information.
/// Qt 6.4 has no operation for the author, and its texts break where a letter holds the byte of a
/// carriage return. Adds an incremental update to the end and leaves the rest as it is; a PDF whose
/// trailer has another form is given back unchanged.
[[nodiscard]] QByteArray withDocumentInfo(const QByteArray& pdf, const PDFDocumentInfo& info);

}  // namespace elmworth
