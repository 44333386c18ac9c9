// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <filesystem>
#include <optional>

namespace elmworth {

/// A picture's file that is fit to be decoded, by the reader of `format` alone.
struct LogoPicture {
    QByteArray format;  ///< as QImageReader names it
    QByteArray bytes;
};

/// The picture in `file`: a PNG, JPEG, HEIC or TIFF, by its first bytes and whatever its name says.
/// Files come from others, and decoders take what a file tells them to take: so it has at most
/// 100 MB, a JPEG at most 100 passes over its pixels, and a PNG nothing besides its pixels and
/// their colours. Absent when it is no such file or can't be read.
[[nodiscard]] std::optional<LogoPicture> readLogoPicture(const std::filesystem::path& file);

}  // namespace elmworth
