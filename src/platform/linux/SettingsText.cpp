// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/SettingsText.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "platform/Text.h"

namespace elmworth {
namespace {

constexpr std::string_view rootSection = "General";
constexpr std::string_view bytesBegin = "@ByteArray(";

/// A letter after a backslash, and what it stands for.
struct Escape {
    char letter;
    char character;
};
constexpr std::array escapes{Escape{'a', '\a'}, Escape{'b', '\b'}, Escape{'f', '\f'},
                             Escape{'n', '\n'}, Escape{'r', '\r'}, Escape{'t', '\t'},
                             Escape{'v', '\v'}, Escape{'"', '"'},  Escape{'\\', '\\'}};

bool isLineBreak(char c) {
    return c == '\n' || c == '\r';
}

std::string_view trimmedLine(std::string_view text) {
    constexpr std::string_view space = " \t\n\r";
    const auto begin = text.find_first_not_of(space);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(space) - begin + 1);
}

bool isKey(std::string_view text) {
    return !text.empty() && std::none_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
    });
}

/// One line of the file; quotes and backslashes carry it over line breaks.
struct Line {
    std::string_view text;
    std::size_t equals = std::string_view::npos;  ///< the first one outside of quotes
    bool isClosed = true;                         ///< false when a quote lacks its end
};

Line takeLine(std::string_view& rest) {
    Line line;
    bool isQuoted = false;
    std::size_t end = 0;
    for (; end < rest.size() && (isQuoted || !isLineBreak(rest[end])); ++end) {
        const char c = rest[end];
        if (c == '\\') {
            end = std::min(end + 1, rest.size() - 1);
        } else if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == '=' && !isQuoted && line.equals == std::string_view::npos) {
            line.equals = end;
        }
    }
    line.text = rest.substr(0, end);
    line.isClosed = !isQuoted;
    rest.remove_prefix(end);
    return line;
}

void skipToText(std::string_view& rest) {
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(" \t\n\r"), rest.size()));
        if (!rest.starts_with(';')) return;
        rest.remove_prefix(std::min(rest.find_first_of("\n\r"), rest.size()));
    }
}

/// Takes the spelling of a value apart, from its quotes and escapes.
class ValueReader {
 public:
    explicit ValueReader(std::string_view spelling) : rest_(spelling) {}

    /// Absent when it is a list, whose commas stand outside of quotes.
    [[nodiscard]] std::optional<icu::UnicodeString> read() {
        bool isQuoted = false;
        int keptLength = 0;  // up to here blanks at the end were quoted
        while (!rest_.empty()) {
            if (rest_.front() == '"') {
                isQuoted = !isQuoted;
                rest_.remove_prefix(1);
                keptLength = text_.length();
            } else if (rest_.front() == '\\') {
                rest_.remove_prefix(1);
                readEscape();
                keptLength = text_.length();
            } else if (rest_.front() == ',' && !isQuoted) {
                return std::nullopt;
            } else {
                readPlain();
            }
        }
        while (text_.length() > keptLength && text_.endsWith(u' '))
            text_.truncate(text_.length() - 1);
        return text_;
    }

 private:
    void readPlain() {
        const auto length =
            std::max<std::size_t>(1, std::min(rest_.find_first_of("\"\\,", 0), rest_.size()));
        text_ += icu::UnicodeString::fromUTF8({rest_.data(), static_cast<int32_t>(length)});
        rest_.remove_prefix(length);
    }

    void readEscape() {
        if (rest_.empty()) return;
        const char letter = rest_.front();
        if (letter == 'x') return readNumber(1, 16);
        if (letter >= '0' && letter <= '7') return readNumber(0, 8);
        rest_.remove_prefix(1);
        if (isLineBreak(letter)) return;  // the value goes on in the next line
        const auto* const escape = std::find_if(escapes.begin(), escapes.end(),
                                                [=](Escape e) { return e.letter == letter; });
        text_ += static_cast<char16_t>(escape == escapes.end() ? letter : escape->character);
    }

    /// As many digits as there are: a UTF-16 code unit.
    void readNumber(std::size_t prefix, int base) {
        rest_.remove_prefix(prefix);
        unsigned number = 0;
        const auto [end, error] =
            std::from_chars(rest_.data(), rest_.data() + rest_.size(), number, base);
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        if (error == std::errc()) text_ += static_cast<char16_t>(number);
    }

    std::string_view rest_;
    icu::UnicodeString text_;
};

/// The bytes that stand in `text` as the first 256 characters.
std::string latin1Bytes(const icu::UnicodeString& text) {
    std::string bytes;
    for (int32_t i = 0; i < text.length(); ++i) bytes += static_cast<char>(text[i]);
    return bytes;
}

SettingsValue parseValue(std::string_view spelling) {
    const auto decoded = ValueReader(spelling).read();
    if (!decoded) return SettingsOther{std::string(spelling)};
    std::string text;
    decoded->toUTF8String(text);
    if (!text.starts_with('@')) return text;
    if (text.starts_with("@@")) return text.substr(1);
    if (text.starts_with(bytesBegin) && text.ends_with(')')) {
        const auto begin = static_cast<int32_t>(bytesBegin.size());
        return SettingsBytes{
            latin1Bytes(decoded->tempSubStringBetween(begin, decoded->length() - 1))};
    }
    const bool isOfAnotherType = text.ends_with(')') && text.find('(') != std::string::npos;
    if (isOfAnotherType) return SettingsOther{std::string(spelling)};
    return text;
}

/// Puts `text` into quotes and escapes as far as it needs them.
std::string spelled(std::string_view text, bool isLatin1) {
    std::string spelling;
    bool needsQuotes = text.starts_with(' ') || text.ends_with(' ');
    bool follows = false;  // an escape that would take a digit for its own
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const auto* const escape = std::find_if(escapes.begin(), escapes.end(),
                                                [=](Escape e) { return e.character == c; });
        needsQuotes |= c == ';' || c == ',' || c == '=';
        const bool isHexDigit =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        const bool isNumber = byte < 0x20 || (isLatin1 && byte >= 0x7f) || (follows && isHexDigit);
        if (escape != escapes.end()) {
            spelling += {'\\', escape->letter};
        } else if (isNumber) {
            std::array<char, 2> digits{};
            const auto [end, error] =
                std::to_chars(digits.data(), digits.data() + digits.size(), byte, 16);
            spelling.append("\\x").append(digits.data(), end);
        } else {
            spelling += c;
        }
        follows = escape == escapes.end() && isNumber;
    }
    return needsQuotes ? '"' + spelling + '"' : spelling;
}

std::string spelled(const SettingsValue& value) {
    if (const auto* const other = std::get_if<SettingsOther>(&value)) return other->spelling;
    if (const auto* const blob = std::get_if<SettingsBytes>(&value))
        return spelled(std::string(bytesBegin) + blob->bytes + ')', true);
    const auto& text = std::get<std::string>(value);
    return spelled(text.starts_with('@') ? '@' + text : text, false);
}

}  // namespace

SettingsText parseSettings(std::string_view given) {
    SettingsText result;
    const std::string valid = validUTF8(given);
    std::string_view text = valid;
    result.isSound = text.find('\0') == std::string_view::npos && text == given;
    if (text.starts_with("\xef\xbb\xbf")) text.remove_prefix(3);
    std::string section;
    for (skipToText(text); !text.empty(); skipToText(text)) {
        const Line line = takeLine(text);
        const auto trimmed = trimmedLine(line.text);
        if (trimmed.starts_with('[') && trimmed.ends_with(']')) {
            const auto name = trimmedLine(trimmed.substr(1, trimmed.size() - 2));
            section = name == rootSection ? std::string() : std::string(name) + '/';
        } else if (line.equals != std::string_view::npos && line.isClosed &&
                   isKey(trimmedLine(line.text.substr(0, line.equals)))) {
            const auto key = trimmedLine(line.text.substr(0, line.equals));
            result.values.insert_or_assign(
                section + std::string(key),
                parseValue(trimmedLine(line.text.substr(line.equals + 1))));
        } else {
            result.isSound = false;
        }
    }
    return result;
}

std::string formatSettings(const SettingsValues& values) {
    std::map<std::string_view, std::string> sections;
    for (const auto& [name, value] : values) {
        const auto slash = name.find('/');
        const bool isRoot = slash == std::string::npos;
        const auto section = isRoot ? rootSection : std::string_view(name).substr(0, slash);
        const auto key = std::string_view(name).substr(isRoot ? 0 : slash + 1);
        sections[section].append(key).append("=").append(spelled(value)).append("\n");
    }
    std::string text;
    for (const auto& [section, lines] : sections) {
        if (!text.empty()) text += '\n';
        text.append("[").append(section).append("]\n").append(lines);
    }
    return text;
}

}  // namespace elmworth
