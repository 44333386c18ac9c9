// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/HexColor.h"

#include <QStringView>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

namespace elmworth {

namespace {

constexpr std::uint64_t fallback = 0x4F7CFF;

std::uint64_t parseHex(const std::string& digits) {
    std::uint64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, number, 16);
    return error == std::errc() && stopped == end ? number : fallback;
}

QStringView trimNumberSigns(QStringView text) {
    while (text.startsWith(u'#')) text = text.sliced(1);
    while (text.endsWith(u'#')) text.chop(1);
    return text;
}

}  // namespace

QColor colorFromHex(const QString& text) {
    const std::uint64_t number = parseHex(trimNumberSigns(text).toUtf8().toStdString());
    return QColor::fromRgb(static_cast<QRgb>(number & 0xFFFFFF));
}

}  // namespace elmworth
