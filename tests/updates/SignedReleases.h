// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sodium.h>

#include <array>
#include <string>
#include <string_view>

#include "updates/UpdateKeys.h"

namespace elmworth::test {

/// Somebody who signs releases.
class Signer {
 public:
    /// Another `seed` is another key.
    explicit Signer(unsigned char seed = 1) {
        std::array<unsigned char, crypto_sign_SEEDBYTES> bytes{};
        bytes.fill(seed);
        crypto_sign_seed_keypair(publicKey_.data(), secretKey_.data(), bytes.data());
    }

    [[nodiscard]] std::string key() const { return base64(publicKey_); }
    [[nodiscard]] UpdateKeys keys() const { return UpdateKeys::parse(key()); }

    /// In Base64.
    [[nodiscard]] std::string signature(std::string_view bytes) const {
        std::array<unsigned char, crypto_sign_BYTES> signature{};
        crypto_sign_detached(signature.data(), nullptr,
                             reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                             secretKey_.data());
        return base64(signature);
    }

    /// A list of releases with its signature.
    [[nodiscard]] std::string sign(const std::string& document) const {
        return document + "<!-- ed25519 " + signature(document) + " -->\n";
    }

 private:
    template <std::size_t size>
    static std::string base64(const std::array<unsigned char, size>& bytes) {
        std::string text(sodium_base64_encoded_len(size, sodium_base64_VARIANT_ORIGINAL), '\0');
        sodium_bin2base64(text.data(), text.size(), bytes.data(), size,
                          sodium_base64_VARIANT_ORIGINAL);
        text.pop_back();  // the zero at its end
        return text;
    }

    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> publicKey_{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secretKey_{};
};

/// The text of a list of releases that holds until `expires`.
inline std::string appcast(const std::string& items,
                           const std::string& expires = "2026-12-01T00:00:00Z") {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<rss version=\"2.0\""
           " xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\""
           " xmlns:elmworth=\"https://elmworth.example/appcast\">\n<channel>\n"
           "<title>Elmworth</title>\n<elmworth:expires>" +
           expires + "</elmworth:expires>\n" + items + "</channel>\n</rss>\n";
}

/// A release whose program is `archive`, signed by `signer`.
inline std::string item(const std::string& version, const std::string& archive = "program",
                        const Signer& signer = Signer()) {
    return "<item><title>" + version + "</title><sparkle:version>" + version +
           "</sparkle:version><description>What is new in " + version +
           "</description><link>https://elmworth.example/" + version +
           "</link><enclosure url=\"https://elmworth.example/Elmworth-" + version +
           ".AppImage\" length=\"" + std::to_string(archive.size()) +
           "\" type=\"application/octet-stream\" sparkle:edSignature=\"" +
           signer.signature(archive) + "\"/></item>\n";
}

}  // namespace elmworth::test
