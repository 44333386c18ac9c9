// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceFiles.h"

#include <sodium/crypto_hash_sha256.h>
#include <sodium/utils.h>

#include <algorithm>
#include <array>

#include "platform/StandardFolders.h"
#include "platform/Text.h"

namespace elmworth {
namespace {

constexpr char hashMark = '~';
constexpr std::size_t hashLength = 16;
/// File systems take 255 bytes, those of encrypted home folders 143; hash and suffix come on top.
constexpr std::size_t longestName = 110;

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

/// The first digits of the SHA-256 of `number`.
std::string hashOf(std::string_view number) {
    std::array<unsigned char, crypto_hash_sha256_BYTES> hash{};
    crypto_hash_sha256(hash.data(), reinterpret_cast<const unsigned char*>(number.data()),
                       number.size());
    std::array<char, hashLength + 1> digits{};
    sodium_bin2hex(digits.data(), digits.size(), hash.data(), hashLength / 2);
    return digits.data();
}

/// A number that ends like a hash would pass for another number's stored name.
bool endsLikeAHash(std::string_view name) {
    if (name.size() <= hashLength || name[name.size() - hashLength - 1] != hashMark) return false;
    return name.substr(name.size() - hashLength).find_first_not_of("0123456789abcdef") ==
           std::string_view::npos;
}

bool isPlainName(std::string_view number) {
    return !number.empty() && number.front() != '.' && number.size() <= longestName &&
           std::none_of(number.begin(), number.end(), isControl) && !endsLikeAHash(number) &&
           safeFileName(number) == number && validUTF8(number) == number;
}

/// As much of `text` as can stand in a file's name; different texts may become the same.
std::string readableName(std::string_view text) {
    std::string name = safeFileName(validUTF8(text));
    std::replace_if(name.begin(), name.end(), isControl, '-');
    if (!name.empty() && name.front() == '.') name.front() = '-';
    if (name.size() <= longestName) return name;
    const auto isInsideACharacter = [&](std::size_t i) { return (name[i] & '\xc0') == '\x80'; };
    std::size_t length = longestName;
    while (length > 0 && isInsideACharacter(length)) --length;
    return name.substr(0, length);
}

}  // namespace

std::filesystem::path invoicesFolder() {
    return createPrivateFolder(dataFolder() / "Invoices");
}

std::string safeFileName(std::string_view number) {
    std::string name(number);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '/' || c == ':'; }, '-');
    return name;
}

std::filesystem::path storedInvoiceFile(std::string_view number) {
    const std::string name = isPlainName(number) ? std::string(number)
                                                 : readableName(number) + hashMark + hashOf(number);
    return invoicesFolder() / (name + ".pdf");
}

std::string exportFileName(std::string_view number, std::string_view clientName) {
    const std::string text = std::string(number) + ' ' + std::string(clientName);
    const std::string name{trimmedBlanks(readableName(trimmedBlanks(text)))};
    return (name.empty() ? "Invoice" : name) + ".pdf";
}

StoredFileError::StoredFileError(const std::filesystem::path& written)
    : std::runtime_error("“" + written.filename().string() +
                         "” was written, but Elmworth's own copy of it could not be.") {}

void deleteStoredInvoiceFile(std::string_view number) {
    try {
        std::filesystem::remove(storedInvoiceFile(number));
    } catch (const std::filesystem::filesystem_error&) {
        return;
    }
}

std::filesystem::path exportInvoice(const InvoiceRenderModel& model, PaperSize paper,
                                    const std::filesystem::path& file, FileAccess access,
                                    InvoicePainter& painter) {
    auto stored = storedInvoiceFile(model.number);
    if (file.empty()) {
        painter.render(model, paper, stored, FileAccess::ownerOnly());
        return stored;
    }
    painter.render(model, paper, file, access);
    try {
        // Drawing it once more would take as long again.
        writeAtomically(stored, readFile(file));
    } catch (const std::filesystem::filesystem_error&) {
        throw StoredFileError(file);
    }
    return stored;
}

}  // namespace elmworth
