// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DigitRuns.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace elmworth {
namespace {

/// Longer than any date; nobody waits for a pasted novel to be read.
constexpr int longestText = 100;

enum class Kind { digit, letter, joint, separator };

Kind kindOf(UChar32 c) {
    if (u_charDigitValue(c) >= 0) return Kind::digit;
    if (u_isalpha(c) != 0 || u_charType(c) == U_NON_SPACING_MARK) return Kind::letter;
    // "p.m." is one word, whatever direction its letters have.
    if (c == u'.' || u_charType(c) == U_FORMAT_CHAR) return Kind::joint;
    return Kind::separator;
}

}  // namespace

DigitRuns DigitRuns::of(std::string_view typed) {
    auto text = icu::UnicodeString::fromUTF8({typed.data(), static_cast<int>(typed.size())});
    DigitRuns result;
    if (text.length() > longestText) {
        result.isReadable = false;
        return result;
    }
    text.foldCase();
    Kind last = Kind::separator;
    for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 c = text.char32At(i);
        const Kind kind = kindOf(c);
        if (kind == Kind::digit) {
            if (last != Kind::digit) result.numbers.push_back({0, 0});
            auto& number = result.numbers.back();
            if (++number.digits > mostDigits) {
                result.isReadable = false;
                return result;
            }
            number.value = number.value * 10 + u_charDigitValue(c);
        } else if (kind == Kind::letter) {
            if (last != Kind::letter) result.words.emplace_back();
            result.words.back().append(icu::UnicodeString(c).getBuffer(), U16_LENGTH(c));
        }
        if (kind != Kind::joint || last == Kind::digit) last = kind;
    }
    return result;
}

}  // namespace elmworth
