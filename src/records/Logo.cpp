// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Logo.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <QScopeGuard>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"
#include "records/LogoPicture.h"

namespace elmworth {
namespace {

using FileTime = std::filesystem::file_time_type;

struct CachedLogo {
    FileTime modified;
    LogoImage image;
};

std::optional<CachedLogo>& cache() {
    static std::optional<CachedLogo> cached;
    return cached;
}

std::optional<FileTime> modificationDate(const std::filesystem::path& file) {
    std::error_code error;
    const auto date = std::filesystem::last_write_time(file, error);
    return error ? std::nullopt : std::optional(date);
}

/// The longer side becomes 600 pixels at most; nothing is enlarged, and no side vanishes.
QSize logoSize(QSize picture) {
    constexpr double longestSide = 600.0;
    const double scale = std::min(1.0, longestSide / std::max(picture.width(), picture.height()));
    const auto scaled = [scale](int side) {
        return std::max(1, static_cast<int>(std::lround(side * scale)));
    };
    return {scaled(picture.width()), scaled(picture.height())};
}

/// Reads a picture small where its format can do that while decoding. Null when it is none.
QImage readPicture(const std::filesystem::path& path, qint64 mostPixels) {
    auto picture = readLogoPicture(path);
    if (!picture) return {};
    QBuffer buffer(&picture->bytes);
    QImageReader reader(&buffer, picture->format);
    reader.setAutoDetectImageFormat(false);  // what was recognised is read as that, or not at all
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64{size.width()} * size.height() > mostPixels) return {};
    if (logoSize(size) != size) reader.setScaledSize(logoSize(size));
    return reader.read();
}

QImage makeLogo(QImage picture) {
    const QColorSpace sRGB(QColorSpace::SRgb);
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    picture =
        picture.scaled(logoSize(picture.size()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (picture.colorSpace().isValid()) picture.convertToColorSpace(sRGB);
    picture.setColorSpace(sRGB);
    return picture;
}

[[noreturn]] void failToWrite() {
    throw LogoError(LogoError::Code::fileWriteUnknown, "The logo could not be saved.");
}

}  // namespace

std::filesystem::path logoFileURL() {
    return createPrivateFolder(dataFolder()) / "logo.png";
}

LogoImage loadLogo() try {
    const auto file = logoFileURL();
    const auto modified = modificationDate(file);
    if (!modified) {
        cache().reset();
        return nullptr;
    }
    if (cache() && cache()->modified == *modified) return cache()->image;
    constexpr qint64 mostPixels = 32'000'000;  // of a file that this program did not write
    const QImage image = readPicture(file, mostPixels);
    if (image.isNull()) return nullptr;
    cache() = {*modified, std::make_shared<const QImage>(image)};
    return cache()->image;
} catch (const std::filesystem::filesystem_error&) {
    cache().reset();
    return nullptr;
}

std::string makeLogoFile(const std::filesystem::path& file) {
    // The formats that only decode whole may take what 200 megapixels need, and no more.
    constexpr int megabytes = 900;
    const auto restore = qScopeGuard(
        [old = QImageReader::allocationLimit()] { QImageReader::setAllocationLimit(old); });
    QImageReader::setAllocationLimit(megabytes);
    constexpr qint64 mostPixels = 200'000'000;  // some decoders take 8 bytes for each
    QImage picture = readPicture(file, mostPixels);
    if (picture.isNull())
        throw LogoError(LogoError::Code::fileReadCorruptFile,
                        "The file is not a picture that can be read.");
    QByteArray png;
    QBuffer buffer(&png);
    if (!makeLogo(std::move(picture)).save(&buffer, "PNG")) failToWrite();
    return png.toStdString();
}

void storeLogoFile(std::string_view png) {
    try {
        writeAtomically(logoFileURL(), png);
    } catch (const std::filesystem::filesystem_error&) {
        failToWrite();
    }
    // Two files written within one tick of the file system's clock bear the same date.
    cache().reset();
}

void removeLogo() try {
    cache().reset();
    std::error_code ignored;
    std::filesystem::remove(logoFileURL(), ignored);
} catch (const std::filesystem::filesystem_error&) {
    // Without a folder there is no logo either.
}

}  // namespace elmworth
