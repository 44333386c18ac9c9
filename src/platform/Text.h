// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace elmworth {

/// `text` without blanks and tabs at both ends; line breaks stay.
[[nodiscard]] std::string_view trimmedBlanks(std::string_view text);

/// `text` (UTF-8) without Unicode white space and line breaks at both ends.
[[nodiscard]] std::string_view trimmedWhitespace(std::string_view text);

/// The number of user-perceived characters (UAX #29 grapheme clusters) in `text`.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// The first `count` user-perceived characters of `text`.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// The characters of `text` that are numeric in Unicode (digits of any script, "½", "²" …) or stand
/// in `alsoKept`, which is ASCII.
[[nodiscard]] std::string numericCharacters(std::string_view text, std::string_view alsoKept = {});

/// Whether a user-perceived character begins at the byte `position` of `text`, or the text ends
/// there. For positions beside an ASCII character other than a line break, which is cheap to tell.
[[nodiscard]] bool isCharacterBoundary(std::string_view text, std::size_t position);

/// `text` composed (Unicode's form NFC): the same for all texts that are canonically equivalent,
/// such as "é" in one code point and in two.
[[nodiscard]] std::string canonical(std::string_view text);

/// `text` in lower case, by the rules that hold in every locale; the same for all texts that are
/// canonically equivalent.
[[nodiscard]] std::string lowerCased(std::string_view text);

/// `text` in Unicode's full case folding, for comparing names without regard to case; the same for
/// all texts that are canonically equivalent.
[[nodiscard]] std::string caseFolded(std::string_view text);

/// `text` with a blank for each line break and control character, which would break a sentence or
/// a table apart, or steer the terminal.
[[nodiscard]] std::string oneLine(std::string_view text);

/// Whether `text`, which is UTF-8 otherwise, spells a half of a surrogate pair. JSON's escapes can.
[[nodiscard]] bool holdsLoneSurrogate(std::string_view text);

[[nodiscard]] bool isUTF8(std::string_view text);

/// `text` with everything that is not UTF-8 replaced by U+FFFD.
[[nodiscard]] std::string validUTF8(std::string_view text);

/// "1 entry", "0 entries", "2 entries".
[[nodiscard]] inline std::string counted(std::uint64_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

}  // namespace elmworth
