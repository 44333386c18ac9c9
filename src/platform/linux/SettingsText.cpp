// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/SettingsText.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QSettings>
#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/AtomicFile.h"
#include "platform/Text.h"

namespace elmworth {
namespace {

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category());
}

/// A file without a name that holds a text. QSettings only reads files, and takes a file of the
/// same path, length and time for one that it has read before: each of these has a time of its own.
class NamelessFile {
 public:
    explicit NamelessFile(std::string_view text)
        : descriptor_(::memfd_create("settings", MFD_CLOEXEC)) {
        if (descriptor_ < 0) fail(errno);
        const int error = fill(text);
        if (error != 0) {
            ::close(descriptor_);
            fail(error);
        }
    }
    NamelessFile(const NamelessFile&) = delete;
    NamelessFile& operator=(const NamelessFile&) = delete;
    ~NamelessFile() { ::close(descriptor_); }

    [[nodiscard]] QString path() const {
        return QStringLiteral("/proc/self/fd/%1").arg(descriptor_);
    }

 private:
    [[nodiscard]] int fill(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t count = ::write(descriptor_, text.data(), text.size());
            if (count < 0 && errno != EINTR) return errno;
            if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
        }
        static std::time_t lastTime = 0;
        const std::timespec time{++lastTime, 0};
        const std::timespec times[] = {time, time};
        return ::futimens(descriptor_, times) == 0 ? 0 : errno;
    }

    int descriptor_;
};

}  // namespace

SettingsText parseSettings(std::string_view text) {
    const NamelessFile file(text);
    const QSettings settings(file.path(), QSettings::IniFormat);
    SettingsText result;
    for (const QString& key : settings.allKeys()) result.values.insert(key, settings.value(key));
    const bool isText = text.find('\0') == std::string_view::npos && validUTF8(text) == text;
    result.isSound = isText && settings.status() == QSettings::NoError;
    return result;
}

std::string formatSettings(const QVariantMap& values, const std::filesystem::path& target) {
    const AtomicFile scratch(target);
    {
        QSettings settings(QString::fromStdString(scratch.temporaryPath().string()),
                           QSettings::IniFormat);
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            settings.setValue(value.key(), value.value());
    }
    std::string text = readFile(scratch.temporaryPath());
    // On a full disk QSettings takes a truncated file for good.
    if (parseSettings(text).values != values) fail(EIO);
    return text;
}

}  // namespace elmworth
