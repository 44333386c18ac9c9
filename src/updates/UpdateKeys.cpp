// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/UpdateKeys.h"

#include <sodium.h>

#include <QFile>
#include <algorithm>

namespace elmworth {

namespace {

static_assert(UpdateKeys::keyBytes == crypto_sign_PUBLICKEYBYTES);
static_assert(UpdateKeys::signatureBytes == crypto_sign_BYTES);

template <std::size_t size>
std::optional<std::array<unsigned char, size>> parseBase64(std::string_view text) {
    std::array<unsigned char, size> bytes{};
    std::size_t length = 0;
    const char* end = nullptr;
    const int failed = sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(),
                                         nullptr, &length, &end, sodium_base64_VARIANT_ORIGINAL);
    if (failed != 0 || length != size || end != text.data() + text.size()) return std::nullopt;
    return bytes;
}

const unsigned char* unsignedBytes(std::string_view bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

}  // namespace

UpdateKeys UpdateKeys::parse(std::string_view text) {
    UpdateKeys keys;
    while (!text.empty()) {
        const auto end = std::min(text.find(' '), text.size());
        if (const auto key = parseBase64<keyBytes>(text.substr(0, end))) keys.keys_.push_back(*key);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return keys;
}

bool UpdateKeys::verify(std::string_view bytes, const Signature& signature) const {
    return std::any_of(keys_.begin(), keys_.end(), [&](const Key& key) {
        return crypto_sign_verify_detached(signature.data(), unsignedBytes(bytes), bytes.size(),
                                           key.data()) == 0;
    });
}

bool UpdateKeys::verifyFile(const std::filesystem::path& file, const Signature& signature) const {
    QFile content(QString::fromStdString(file.string()));
    if (!content.open(QIODevice::ReadOnly) || content.size() == 0) return false;
    const auto* bytes = reinterpret_cast<const char*>(content.map(0, content.size()));
    if (bytes == nullptr) return false;
    return verify({bytes, static_cast<std::size_t>(content.size())}, signature);
}

std::optional<UpdateKeys::Signature> parseSignature(std::string_view base64) {
    return parseBase64<UpdateKeys::signatureBytes>(base64);
}

}  // namespace elmworth
