// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace elmworth {

/// Public keys of Ed25519 (RFC 8032), any of which may have signed a release. There is more than
/// one while a key is being replaced.
class UpdateKeys {
 public:
    static constexpr std::size_t keyBytes = 32;
    static constexpr std::size_t signatureBytes = 64;
    using Signature = std::array<unsigned char, signatureBytes>;

    UpdateKeys() = default;

    /// Keys in Base64 (RFC 4648), between spaces. Those that are none are left out.
    [[nodiscard]] static UpdateKeys parse(std::string_view text);

    [[nodiscard]] bool isEmpty() const noexcept { return keys_.empty(); }

    /// Whether one of the keys has signed exactly these bytes.
    [[nodiscard]] bool verify(std::string_view bytes, const Signature& signature) const;

    /// Whether one of the keys has signed exactly the content of `file`. A file that is empty, or
    /// can't be read, was not signed.
    [[nodiscard]] bool verifyFile(const std::filesystem::path& file,
                                  const Signature& signature) const;

 private:
    using Key = std::array<unsigned char, keyBytes>;
    std::vector<Key> keys_;
};

/// A signature in Base64; absent for any other text.
[[nodiscard]] std::optional<UpdateKeys::Signature> parseSignature(std::string_view base64);

}  // namespace elmworth
