// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/AutostartFile.h"

#include <unistd.h>

#include <cstdlib>
#include <map>
#include <sstream>
#include <system_error>
#include <utility>

#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"

namespace elmworth {

namespace {

namespace fs = std::filesystem;

using Entry = std::map<std::string, std::string>;

/// What a string of a desktop entry can't hold as it is.
std::string escaped(std::string_view text) {
    std::string value;
    for (const char c : text) {
        if (c == '\\') {
            value += "\\\\";
        } else if (c == '\n') {
            value += "\\n";
        } else if (c == '\t') {
            value += "\\t";
        } else if (c == '\r') {
            value += "\\r";
        } else {
            value += c;
        }
    }
    return value;
}

std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        constexpr std::string_view letters = "sntr";
        constexpr std::string_view meanings = " \n\t\r";
        const auto letter = letters.find(value[++i]);
        text += letter == std::string_view::npos ? value[i] : meanings[letter];
    }
    return text;
}

std::string quotedWord(std::string_view argument) {
    constexpr std::string_view reserved = "\"`$\\";
    std::string text = "\"";
    for (const char c : argument) {
        if (reserved.find(c) != std::string_view::npos) text += '\\';
        if (c == '%') text += '%';  // which would begin a field code
        text += c;
    }
    return text + '"';
}

/// Takes the words of a command line apart, in which nothing is escaped any more.
class ExecReader {
 public:
    explicit ExecReader(std::string_view line) : line_(line) {}

    std::optional<std::vector<std::string>> words() {
        std::vector<std::string> words;
        while (skipBlanks()) {
            auto word = next();
            if (!word) return std::nullopt;
            words.push_back(std::move(*word));
        }
        return words;
    }

 private:
    bool skipBlanks() {
        while (at_ < line_.size() && line_[at_] == ' ') ++at_;
        return at_ < line_.size();
    }

    std::optional<std::string> next() {
        std::string word;
        bool isQuoted = false;
        for (; at_ < line_.size() && (isQuoted || line_[at_] != ' '); ++at_) {
            if (line_[at_] == '"') {
                isQuoted = !isQuoted;
                continue;
            }
            if (isEscape(isQuoted)) ++at_;
            word += line_[at_];
        }
        return isQuoted ? std::nullopt : std::optional(word);
    }

    [[nodiscard]] bool isEscape(bool isQuoted) const {
        if (at_ + 1 == line_.size()) return false;
        return line_.substr(at_, 2) == "%%" || (isQuoted && line_[at_] == '\\');
    }

    std::string_view line_;
    std::size_t at_ = 0;
};

Entry parseEntry(const std::string& text) {
    Entry entry;
    bool isMain = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.front() == '[') isMain = line == "[Desktop Entry]";
        const auto sign = line.find('=');
        if (!isMain || line.empty() || line.front() == '#' || sign == std::string::npos) continue;
        entry.emplace(line.substr(0, sign), line.substr(sign + 1));
    }
    return entry;
}

std::string valueOf(const Entry& entry, const std::string& key) {
    const auto found = entry.find(key);
    return found == entry.end() ? "" : found->second;
}

bool startsSomething(const Entry& entry) {
    if (valueOf(entry, "Hidden") == "true") return false;
    if (valueOf(entry, "X-GNOME-Autostart-enabled") == "false") return false;
    const auto words = parseExec(valueOf(entry, "Exec"));
    return words && !words->empty() && ::access(words->front().c_str(), X_OK) == 0;
}

std::string entryText(const fs::path& program) {
    std::string text =
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Version=1.4\n"
        "Name=Elmworth\n"
        "Comment=Track your hours and turn them into invoices\n"
        "Icon=org.elmworth.Elmworth\n"
        "Terminal=false\n"
        "X-GNOME-Autostart-enabled=true\n"
        "Exec=";
    text += formatExec({program.string()});
    text += '\n';
    return text;
}

[[noreturn]] void fail(const fs::path& file, const std::error_code& error) {
    throw LoginItemError("“" + file.string() + "” can't be changed: " + error.message() + ".");
}

}  // namespace

std::string formatExec(const std::vector<std::string>& arguments) {
    std::string line;
    for (const auto& argument : arguments) {
        if (!line.empty()) line += ' ';
        line += quotedWord(argument);
    }
    return escaped(line);
}

std::optional<std::vector<std::string>> parseExec(std::string_view value) {
    const std::string line = unescaped(value);
    return ExecReader(line).words();
}

AutostartFile::AutostartFile(const fs::path& folder, fs::path program)
    : file_(folder / "elmworth.desktop"), program_(std::move(program)) {}

fs::path AutostartFile::standardFolder() {
    return settingsFolder().parent_path() / "autostart";
}

fs::path AutostartFile::startable(const fs::path& program) {
    // What an AppImage runs lies in a folder that is gone with it.
    const char* image = std::getenv("APPIMAGE");
    return image && *image ? fs::path(image) : program;
}

bool AutostartFile::isEnabled() const {
    try {
        return startsSomething(parseEntry(readFile(file_)));
    } catch (const std::system_error&) {
        return false;
    }
}

void AutostartFile::enable() {
    try {
        createPrivateFolder(file_.parent_path());
        writeAtomically(file_, entryText(program_));
    } catch (const std::system_error& error) {
        fail(file_, error.code());
    }
}

void AutostartFile::disable() {
    std::error_code error;
    fs::remove(file_, error);
    if (error) fail(file_, error);
}

}  // namespace elmworth
