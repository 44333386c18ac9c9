// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Instant.h"
#include "updates/ReleaseVersion.h"
#include "updates/UpdateKeys.h"

namespace elmworth {

/// Why an update can't be had, as a sentence to show.
struct UpdateError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The largest list of releases that is read, in bytes.
inline constexpr std::size_t largestAppcast = std::size_t{1} << 20U;
/// The largest program that is fetched, in bytes.
inline constexpr std::int64_t largestArchive = std::int64_t{1} << 29U;

struct Release {
    ReleaseVersion version;
    std::string notes;    ///< plain text
    std::string page;     ///< an https address to read on; may be empty
    std::string archive;  ///< the https address of the program; empty where there is none to fetch
    std::int64_t archiveBytes = 0;
    UpdateKeys::Signature archiveSignature{};
};

/// A list of releases, as an RSS 2.0 document with Sparkle's extensions: `sparkle:version` or
/// `sparkle:shortVersionString` of an item, `enclosure` with `length` and `sparkle:edSignature`.
/// Beside them it must say in its channel's `elmworth:expires` (ISO 8601) until when it holds. Its
/// last line is a comment with the Ed25519 signature of all that stands before that line:
/// "<!-- ed25519 BASE64 -->".
struct Appcast {
    Instant expires;
    std::vector<Release> releases;  ///< in the order of the document

    /// The release with the highest version; null without any.
    [[nodiscard]] const Release* newest() const;
};

/// Reads a list of releases. Nothing of it is looked at before its signature. Throws UpdateError
/// for one that none of `keys` signed, that is too large, that has a document type declaration, or
/// that lacks what it must say.
[[nodiscard]] Appcast readAppcast(std::string_view document, const UpdateKeys& keys);

}  // namespace elmworth
