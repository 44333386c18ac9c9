// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/LogoPicture.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace elmworth {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view startOfPNG = "\x89PNG\r\n\x1A\n"sv;

/// The format that begins like this; empty for one that no logo has.
QByteArray formatOf(const QByteArray& bytes) {
    const std::string_view start(bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (start.starts_with(startOfPNG)) return "png";
    if (start.starts_with("\xFF\xD8\xFF"sv)) return "jpeg";
    if (start.starts_with("II*\0"sv) || start.starts_with("MM\0*"sv)) return "tiff";
    constexpr std::array kindsOfHEIC{"ftypheic"sv, "ftypheix"sv, "ftypmif1"sv};
    const bool isHEIC = start.size() >= 12 && std::find(kindsOfHEIC.begin(), kindsOfHEIC.end(),
                                                        start.substr(4, 8)) != kindsOfHEIC.end();
    return isHEIC ? "heic" : "";
}

/// Texts and what else a PNG may hold are unpacked to a thousand times their size when it is read.
QByteArray pixelsOfPNG(const QByteArray& png) {
    constexpr std::array wanted{"IHDR"sv, "PLTE"sv, "tRNS"sv, "gAMA"sv, "cHRM"sv,
                                "sRGB"sv, "iCCP"sv, "IDAT"sv, "IEND"sv};
    constexpr qsizetype around = 12;  // length, kind, checksum
    qsizetype position = startOfPNG.size();
    QByteArray pixels = png.first(position);
    while (png.size() - position >= around) {
        const char* chunk = png.data() + position;
        const qsizetype size =
            std::min<qsizetype>(around + qFromBigEndian<quint32>(chunk), png.size() - position);
        if (std::find(wanted.begin(), wanted.end(), std::string_view(chunk + 4, 4)) != wanted.end())
            pixels.append(chunk, size);
        if (std::string_view(chunk + 4, 4) == "IEND") break;
        position += size;
    }
    return pixels;
}

/// Each pass goes over all pixels, though a few bytes are enough for one. Encoders write a dozen.
bool hasEndlessPasses(const QByteArray& jpeg) {
    constexpr qsizetype most = 100;
    return jpeg.count("\xFF\xDA") > most;
}

}  // namespace

std::optional<LogoPicture> readLogoPicture(const std::filesystem::path& file) {
    // A pipe in a picture's place would keep the program waiting for ever.
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) return std::nullopt;
    constexpr qint64 largest = 100'000'000;
    QFile source(QFile::decodeName(file.c_str()));
    if (!source.open(QIODevice::ReadOnly)) return std::nullopt;
    LogoPicture picture{{}, source.read(largest + 1)};
    if (picture.bytes.size() > largest) return std::nullopt;
    picture.format = formatOf(picture.bytes);
    if (picture.format.isEmpty()) return std::nullopt;
    if (picture.format == "jpeg" && hasEndlessPasses(picture.bytes)) return std::nullopt;
    if (picture.format == "png") picture.bytes = pixelsOfPNG(picture.bytes);
    return picture;
}

}  // namespace elmworth
