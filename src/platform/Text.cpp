// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Text.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>

namespace elmworth {
namespace {

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

/// The byte offset behind the first `count` characters of `text`, which counts down as they pass.
std::size_t skipCharacters(std::string_view text, std::size_t& count) {
    UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const std::unique_ptr<UText, decltype(&utext_close)> source(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status),
        &utext_close);
    if (U_FAILURE(status)) throw std::bad_alloc();
    boundaries->setText(source.get(), status);
    int offset = boundaries->first();
    while (count > 0) {
        const int next = boundaries->next();
        if (next == icu::BreakIterator::DONE) break;
        offset = next;
        --count;
    }
    return static_cast<std::size_t>(offset);
}

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// For the code point whose UTF-8 is E2, `second` and `third`.
bool isFrom200ETo20CF(unsigned second, unsigned third) {
    return (second == 0x80 && third >= 0x8E) || second == 0x81 || second == 0x82 ||
           (second == 0x83 && third < 0x90);
}

/// The characters of a text in which each code point is one of its own: those below U+0300 but the
/// carriage return, which may join a line feed, and those from U+200E to U+20CF, among which are
/// the blanks and signs of times and amounts. Absent for all other texts.
std::optional<std::size_t> simpleCharacterCount(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const auto continues = [&](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++count) {
        const unsigned lead = byte(i);
        if (lead < 0x80 && lead != '\r') {
            i += 1;
        } else if (lead >= 0xC2 && lead < 0xCC && continues(i + 1)) {
            i += 2;
        } else if (lead == 0xE2 && continues(i + 2) && isFrom200ETo20CF(byte(i + 1), byte(i + 2))) {
            i += 3;
        } else {
            return std::nullopt;
        }
    }
    return count;
}

/// True where each byte is a character of its own; a carriage return may join a line feed.
bool isPlainASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\r'; });
}

/// The code point that begins at `position`; U+FFFD for what is no UTF-8.
UChar32 characterAt(std::string_view text, std::size_t position) {
    // A code point takes at most four bytes.
    return icu::UnicodeString::fromUTF8(piece(text.substr(position, 4))).char32At(0);
}

/// Whether the byte at `position` is one of those that follow the first of a code point.
bool continuesCharacter(std::string_view text, std::size_t position) {
    return (static_cast<unsigned char>(text[position]) & 0xC0U) == 0x80U;
}

/// The code point that ends before `position`.
UChar32 characterBefore(std::string_view text, std::size_t position) {
    std::size_t start = position - 1;
    while (start > 0 && position - start < 4 && continuesCharacter(text, start)) --start;
    return characterAt(text.substr(0, position), start);
}

/// The length of a beginning of `text` that can be composed by itself. Marks are put into order in
/// the square of their number, so that a run longer than any script's is cut.
std::size_t composableLength(const icu::Normalizer2& composed, std::string_view text) {
    constexpr std::size_t least = 256;
    constexpr std::size_t most = 512;
    if (text.size() <= most) return text.size();
    std::size_t length = most;
    for (std::size_t end = least; end < most; ++end) {
        if (continuesCharacter(text, end)) continue;
        length = end;
        if (composed.hasBoundaryBefore(characterAt(text, end))) break;
    }
    return length;
}

}  // namespace

std::string_view trimmedBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view trimmedWhitespace(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeSet* blank =
        icu::UnicodeSet::fromUSet(u_getBinaryPropertySet(UCHAR_WHITE_SPACE, &status));
    if (blank == nullptr) throw std::bad_alloc();
    const auto length = [](std::string_view part) { return static_cast<int>(part.size()); };
    const int start = blank->spanUTF8(text.data(), length(text), USET_SPAN_SIMPLE);
    text.remove_prefix(static_cast<std::size_t>(start));
    const int end = blank->spanBackUTF8(text.data(), length(text), USET_SPAN_SIMPLE);
    return text.substr(0, static_cast<std::size_t>(end));
}

std::size_t characterCount(std::string_view text) {
    if (const auto simple = simpleCharacterCount(text)) return *simple;
    std::size_t left = text.size();
    skipCharacters(text, left);
    return text.size() - left;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    if (count >= text.size() || isPlainASCII(text)) return text.substr(0, count);
    return text.substr(0, skipCharacters(text, count));
}

std::string numericCharacters(std::string_view text, std::string_view alsoKept) {
    const auto isKept = [&](UChar32 c) {
        return u_getIntPropertyValue(c, UCHAR_NUMERIC_TYPE) != U_NT_NONE ||
               (c < 0x80 && alsoKept.find(static_cast<char>(c)) != std::string_view::npos);
    };
    const auto source = icu::UnicodeString::fromUTF8(piece(text));
    icu::UnicodeString kept;
    for (int i = 0; i < source.length(); i = source.moveIndex32(i, 1))
        if (const UChar32 c = source.char32At(i); isKept(c)) kept.append(c);
    std::string utf8;
    return kept.toUTF8String(utf8);
}

bool isCharacterBoundary(std::string_view text, std::size_t position) {
    if (position == 0 || position >= text.size()) return true;
    const UChar32 previous = characterBefore(text, position);
    const UChar32 next = characterAt(text, position);
    // UAX #29, as far as it applies beside ASCII: GB9, GB9a and GB9b.
    const auto classOf = [](UChar32 c) {
        return u_getIntPropertyValue(c, UCHAR_GRAPHEME_CLUSTER_BREAK);
    };
    const int following = classOf(next);
    const bool joins =
        following == U_GCB_EXTEND || following == U_GCB_ZWJ || following == U_GCB_SPACING_MARK;
    return !joins && classOf(previous) != U_GCB_PREPEND;
}

std::string canonical(std::string_view text) {
    if (isASCII(text)) return std::string(text);
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* composed = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) throw std::bad_alloc();
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<int>(text.size()));
    while (!text.empty()) {
        const std::size_t length = composableLength(*composed, text);
        composed->normalizeUTF8(0, piece(text.substr(0, length)), sink, nullptr, status);
        text.remove_prefix(length);
    }
    return result;
}

// Composed before, so that equivalent texts are mapped alike, and after, as mapping decomposes
// some.

std::string lowerCased(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    icu::CaseMap::utf8ToLower("", 0, piece(canonical(text)), sink, nullptr, status);
    return canonical(result);
}

std::string caseFolded(std::string_view text) {
    std::string folded;
    icu::StringByteSink<std::string> sink(&folded, static_cast<int>(text.size()));
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8Fold(0, piece(canonical(text)), sink, nullptr, status);
    return canonical(folded);
}

std::string oneLine(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    // Almost all texts need nothing.
    if (std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; }))
        return std::string(text);
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        // U+0080 to U+009F steer terminals as well.
        const bool isLong = byte(i) == 0xC2 && byte(i + 1) >= 0x80 && byte(i + 1) <= 0x9F;
        const bool isControl = byte(i) < 0x20 || byte(i) == 0x7F;
        line += isControl || isLong ? ' ' : text[i];
        if (isLong) ++i;
    }
    return line;
}

bool holdsLoneSurrogate(std::string_view text) {
    // Their code points, U+D800 to U+DFFF, would be ED A0 80 to ED BF BF.
    constexpr char leading = '\xED';
    for (auto i = text.find(leading); i != std::string_view::npos; i = text.find(leading, i + 1)) {
        if (i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) >= 0xA0) return true;
    }
    return false;
}

bool isUTF8(std::string_view text) {
    return isASCII(text) || validUTF8(text) == text;
}

std::string validUTF8(std::string_view text) {
    std::string valid;
    return icu::UnicodeString::fromUTF8(piece(text)).toUTF8String(valid);
}

}  // namespace elmworth
