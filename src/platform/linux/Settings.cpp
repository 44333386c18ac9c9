// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Settings.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/ISO8601.h"
#include "platform/Observers.h"
#include "platform/StandardFolders.h"
#include "platform/SystemLog.h"
#include "platform/linux/SettingsText.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;

/// What stands on the disk under the name of a settings file.
struct Content {
    enum class State { missing, sound, damaged, unreadable };
    State state = State::missing;
    SettingsValues values{};  ///< of a damaged file, those that can be read

    [[nodiscard]] bool mustBeKept() const {
        return state == State::damaged || state == State::unreadable;
    }
};

Content readContent(const fs::path& file) {
    if (file == Settings::inMemory()) return {};
    try {
        const std::string text = readFile(file);
        // Who does not replace a file but writes it anew leaves it empty for a moment.
        if (text.empty()) return {};
        auto [values, isSound] = parseSettings(text);
        return {isSound ? Content::State::sound : Content::State::damaged, std::move(values)};
    } catch (const std::system_error& error) {
        const bool isMissing = error.code() == std::errc::no_such_file_or_directory;
        return {isMissing ? Content::State::missing : Content::State::unreadable};
    }
}

/// "2026-03-01T09-30-00": file systems elsewhere allow no colons.
std::string dateForFileName() {
    std::string date = formatISO8601(currentInstant()).substr(0, 19);
    std::replace(date.begin(), date.end(), ':', '-');
    return date;
}

/// Gives `file` a second name, or a new one where files cannot have two. False when that name is
/// taken. Throws std::system_error.
bool keepAs(const fs::path& file, const fs::path& name) {
    std::error_code error;
    fs::create_hard_link(file, name, error);
    if (!error) return true;
    if (fs::exists(fs::symlink_status(name))) return false;
    fs::rename(file, name);
    return true;
}

/// Keeps what stands under the name of `settings` under a dated name, whatever is written next.
void keepAside(const fs::path& settings) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(settings, error))) return;
    const fs::path file = fs::canonical(settings);  // where a link leads to
    const std::string stem = file.string() + ".damaged-" + dateForFileName();
    std::string name = stem;
    for (int i = 2; !keepAs(file, name); ++i) name = stem + '-' + std::to_string(i);
    writeSystemLog("Elmworth: the settings file can't be read; it is kept as " + name);
}

}  // namespace

struct Settings::Impl {
    fs::path file;
    SettingsValues values;
    std::set<std::string> unwritten;  ///< keys whose value, or absence, the file does not hold
    bool keepsFile = false;           ///< what the file holds now
    bool lastWriteFailed = false;
    Observers<std::string_view> observers;  ///< of keys

    /// A new value, or none.
    struct Change {
        std::string key;
        std::optional<SettingsValue> value;
    };

    [[nodiscard]] bool holds(const Change& change) const {
        const auto found = values.find(change.key);
        return found == values.end() ? !change.value : found->second == change.value;
    }

    /// Makes all of `changes` over what the file holds now, in one write.
    void make(const std::vector<Change>& changes) {
        const Content content = readContent(file);
        std::set<std::string> changedKeys = adopt(content);
        bool isNew = false;
        for (const Change& change : changes) {
            if (holds(change)) continue;
            isNew = true;
            set(change);
            unwritten.insert(change.key);
            changedKeys.insert(change.key);
        }
        if (isNew) write(content);
        for (const std::string& key : changedKeys) observers.notify(key);
    }

    void set(const Change& change) {
        if (change.value) {
            values.insert_or_assign(change.key, *change.value);
        } else {
            values.erase(change.key);
        }
    }

    /// Sets all values to those of a sound file, but for those that could not be written to it, and
    /// gives the keys that changed. Any other file changes nothing.
    std::set<std::string> adopt(const Content& content) {
        std::set<std::string> changedKeys;
        if (content.state != Content::State::sound) return changedKeys;
        std::set<std::string> keys;
        for (const auto& [key, value] : values) keys.insert(key);
        for (const auto& [key, value] : content.values) keys.insert(key);
        for (const std::string& key : keys) {
            const auto found = content.values.find(key);
            const Change change{
                key, found == content.values.end() ? std::nullopt : std::optional(found->second)};
            if (unwritten.contains(key) || holds(change)) continue;
            set(change);
            changedKeys.insert(key);
        }
        return changedKeys;
    }

    void write(const Content& content) {
        try {
            if (file != inMemory()) replaceFile(content);
            keepsFile = false;
            unwritten.clear();
            lastWriteFailed = false;
        } catch (const std::system_error&) {
            lastWriteFailed = true;
        }
    }

    void replaceFile(const Content& content) {
        createPrivateFolder(file.parent_path());
        AtomicFile target(file);
        target.write(formatSettings(values));
        if (content.mustBeKept() || keepsFile) keepAside(file);
        target.commit();
    }

    /// The value of `key` as a `Kind`; null when it is missing or of another kind.
    template <class Kind>
    [[nodiscard]] const Kind* find(std::string_view key) const {
        const auto found = values.find(key);
        return found == values.end() ? nullptr : std::get_if<Kind>(&found->second);
    }
};

Settings::Settings(fs::path file) : impl_(std::make_unique<Impl>()) {
    impl_->file = std::move(file);
    impl_->values = readContent(impl_->file).values;
}

Settings::~Settings() = default;

fs::path Settings::standardFile() {
    return settingsFolder() / "Elmworth.ini";
}

std::optional<std::string> Settings::string(std::string_view key) const {
    const auto* const text = impl_->find<std::string>(key);
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<std::int64_t> Settings::integer(std::string_view key) const {
    const auto* const text = impl_->find<std::string>(key);
    if (!text) return std::nullopt;
    std::int64_t number = 0;
    const char* const end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::optional<bool> Settings::boolean(std::string_view key) const {
    const auto* const text = impl_->find<std::string>(key);
    if (text && *text == "true") return true;
    if (text && *text == "false") return false;
    return std::nullopt;
}

std::optional<std::string> Settings::data(std::string_view key) const {
    const auto* const blob = impl_->find<SettingsBytes>(key);
    return blob ? std::optional(blob->bytes) : std::nullopt;
}

bool Settings::contains(std::string_view key) const {
    return impl_->values.find(key) != impl_->values.end();
}

void Settings::setString(std::string_view key, std::string_view value) {
    impl_->make({{std::string(key), std::string(value)}});
}

void Settings::setInteger(std::string_view key, std::int64_t value) {
    impl_->make({{std::string(key), std::to_string(value)}});
}

void Settings::setBoolean(std::string_view key, bool value) {
    impl_->make({{std::string(key), std::string(value ? "true" : "false")}});
}

void Settings::setData(std::string_view key, std::string_view bytes, std::string_view obsoleteKey) {
    std::vector<Impl::Change> changes{{std::string(key), SettingsBytes{std::string(bytes)}}};
    if (!obsoleteKey.empty()) changes.push_back({std::string(obsoleteKey), {}});
    impl_->make(changes);
}

void Settings::remove(std::string_view key) {
    impl_->make({{std::string(key), {}}});
}

void Settings::reload() {
    for (const std::string& key : impl_->adopt(readContent(impl_->file)))
        impl_->observers.notify(key);
}

void Settings::keepFile() {
    impl_->keepsFile = true;
}

const fs::path& Settings::file() const noexcept {
    return impl_->file;
}

bool Settings::lastWriteFailed() const noexcept {
    return impl_->lastWriteFailed;
}

Settings::Observation Settings::observe(std::function<void(std::string_view key)> changed) {
    return impl_->observers.add(std::move(changed));
}

}  // namespace elmworth
