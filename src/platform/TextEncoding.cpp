// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/TextEncoding.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <limits>
#include <memory>
#include <string_view>

namespace elmworth {

namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const noexcept { ucnv_close(converter); }
};

bool isUTF8(std::string_view bytes) {
    const auto length = static_cast<std::int32_t>(bytes.size());
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::int32_t position = 0;
    while (position < length) {
        UChar32 character = 0;
        U8_NEXT(data, position, length, character);
        if (character < 0) return false;
    }
    return true;
}

/// The bytes in UTF-8, or absent when one of them means nothing in `encoding`.
std::optional<std::string> convert(std::string_view bytes, const char* encoding) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, CloseConverter> converter(ucnv_open(encoding, &status));
    if (U_FAILURE(status)) return std::nullopt;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
    const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                  converter.get(), status);
    if (U_FAILURE(status)) return std::nullopt;
    std::string utf8;
    text.toUTF8String(utf8);
    return utf8;
}

bool hasUTF16Mark(std::string_view bytes) {
    return bytes.substr(0, 2) == "\xFE\xFF" || bytes.substr(0, 2) == "\xFF\xFE";
}

std::optional<std::string> convertUTF16(std::string_view bytes) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    if (hasUTF16Mark(bytes)) return convert(bytes, "UTF-16");
    for (const char* encoding : {"UTF-16BE", "UTF-16LE"}) {
        auto text = convert(bytes, encoding);
        const bool isPlausible =
            text && text->find(',') != std::string::npos && text->find('\0') == std::string::npos;
        if (isPlausible) return text;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> decodeText(std::string bytes) {
    if (bytes.size() > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;  // ICU's limit
    if (isUTF8(bytes)) return bytes;
    if (auto text = convertUTF16(bytes)) return text;
    if (bytes.find_first_of("\x81\x8D\x8F\x90\x9D") == std::string_view::npos) {
        return convert(bytes, "windows-1252");
    }
    return convert(bytes, "macintosh");
}

}  // namespace elmworth
