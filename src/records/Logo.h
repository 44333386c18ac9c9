// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "records/LogoImage.h"

namespace elmworth {

/// Why a picture could not become the logo.
class LogoError : public std::runtime_error {
 public:
    enum class Code {
        fileReadCorruptFile,  ///< the file is no picture that can be read
        fileWriteUnknown,     ///< the logo could not be made or written
    };
    LogoError(Code code, const std::string& message) : std::runtime_error(message), code_(code) {}
    [[nodiscard]] Code code() const noexcept { return code_; }

 private:
    Code code_;
};

/// The place of the logo: "logo.png" in `dataFolder()`, which is created when
/// missing. Throws std::filesystem::filesystem_error.
[[nodiscard]] std::filesystem::path logoFileURL();

/// The current logo, or null when there is none or it cannot be read. Kept in memory until the
/// file's modification date changes.
[[nodiscard]] LogoImage loadLogo();

/// A logo of the picture in `file`: a PNG whose longer side is at most 600 pixels (never enlarged,
/// each side at least 1). Takes what `readLogoPicture` does, up to 200 megapixels, without decoding
/// it whole where the format allows; takes seconds for a large one. May be called on any thread, by
/// one at a time. Throws LogoError.
[[nodiscard]] std::string makeLogoFile(const std::filesystem::path& file);

/// Replaces the logo by what `makeLogoFile` gave. Throws LogoError; the old logo then stays.
void storeLogoFile(std::string_view png);

/// Deletes the logo; a missing file is no error.
void removeLogo();

}  // namespace elmworth
