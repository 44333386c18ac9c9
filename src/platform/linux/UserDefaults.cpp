// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/UserDefaults.h"

#include <QSettings>
#include <QVariantMap>
#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"

namespace elmworth {
namespace {

using Observer = std::function<void(std::string_view key)>;

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString toQString(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

QVariantMap readSettings(const std::filesystem::path& file) {
    const QSettings settings(toQString(file), QSettings::IniFormat);
    QVariantMap values;
    for (const QString& key : settings.allKeys()) values.insert(key, settings.value(key));
    return values;
}

/// The text of a settings file that holds `values`. QSettings can only write to a file, and on a
/// full disk it takes a truncated one for good; whoever stores the text has to read it back.
std::string settingsText(const QVariantMap& values, const std::filesystem::path& target) {
    const AtomicFile scratch(target);
    {
        QSettings settings(toQString(scratch.temporaryPath()), QSettings::IniFormat);
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            settings.setValue(value.key(), value.value());
    }
    return readFile(scratch.temporaryPath());
}

/// Replaces `target`; throws when that cannot be done whole.
void writeSettings(const QVariantMap& values, const std::filesystem::path& target) {
    createPrivateFolder(target.parent_path());
    const std::string text = settingsText(values, target);
    AtomicFile file(target);
    file.write(text);
    if (readSettings(file.temporaryPath()) != values)
        throw std::system_error(std::make_error_code(std::errc::io_error));
    file.commit();
}

}  // namespace

struct UserDefaults::Impl {
    std::filesystem::path file;
    QVariantMap values;
    bool lastWriteFailed = false;
    std::vector<std::weak_ptr<Observer>> observers;

    void set(std::string_view key, const QVariant& value) {
        const QString name = toQString(key);
        if (values.contains(name) && values.value(name) == value) return;
        values.insert(name, value);
        write();
        tell(key);
    }

    void write() {
        try {
            writeSettings(values, file);
            lastWriteFailed = false;
        } catch (const std::system_error&) {
            lastWriteFailed = true;
        }
    }

    /// Handlers may add and drop observations; a dropped one hears nothing more, so that only its
    /// function is kept while it runs.
    void tell(std::string_view key) {
        std::erase_if(observers, [](const auto& observer) { return observer.expired(); });
        const auto present = observers;
        for (const auto& observer : present) {
            Observer changed;
            if (const auto alive = observer.lock()) changed = *alive;
            if (changed) changed(key);
        }
    }

    [[nodiscard]] std::optional<QString> text(std::string_view key) const {
        const QVariant value = values.value(toQString(key));
        if (value.typeId() != QMetaType::QString) return std::nullopt;
        return value.toString();
    }
};

UserDefaults::UserDefaults(std::filesystem::path file) : impl_(std::make_unique<Impl>()) {
    impl_->file = std::move(file);
    impl_->values = readSettings(impl_->file);
}

UserDefaults::~UserDefaults() = default;

std::filesystem::path UserDefaults::standardFile() {
    return settingsFolder() / "Elmworth.ini";
}

std::filesystem::path UserDefaults::suiteFile(std::string_view name) {
    return settingsFolder() / (std::string(name) + ".ini");
}

std::optional<std::string> UserDefaults::string(std::string_view key) const {
    const auto text = impl_->text(key);
    return text ? std::optional(text->toStdString()) : std::nullopt;
}

std::optional<std::int64_t> UserDefaults::integer(std::string_view key) const {
    bool isNumber = false;
    const auto number = impl_->text(key).value_or(QString()).toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

std::optional<bool> UserDefaults::boolean(std::string_view key) const {
    const auto text = impl_->text(key);
    if (text == QStringLiteral("true")) return true;
    if (text == QStringLiteral("false")) return false;
    return std::nullopt;
}

std::optional<std::string> UserDefaults::data(std::string_view key) const {
    const QVariant value = impl_->values.value(toQString(key));
    if (value.typeId() != QMetaType::QByteArray) return std::nullopt;
    return value.toByteArray().toStdString();
}

void UserDefaults::setString(std::string_view key, std::string_view value) {
    impl_->set(key, toQString(value));
}

void UserDefaults::setInteger(std::string_view key, std::int64_t value) {
    impl_->set(key, QString::number(value));
}

void UserDefaults::setBoolean(std::string_view key, bool value) {
    impl_->set(key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

void UserDefaults::setData(std::string_view key, std::string_view bytes) {
    impl_->set(key, QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

void UserDefaults::remove(std::string_view key) {
    if (impl_->values.remove(toQString(key)) == 0) return;
    impl_->write();
    impl_->tell(key);
}

void UserDefaults::removeAll() {
    const QVariantMap removed = std::exchange(impl_->values, {});
    std::error_code error;
    std::filesystem::remove(impl_->file, error);
    impl_->lastWriteFailed = static_cast<bool>(error);
    for (const QString& key : removed.keys()) impl_->tell(key.toStdString());
}

bool UserDefaults::lastWriteFailed() const noexcept {
    return impl_->lastWriteFailed;
}

UserDefaults::Observation UserDefaults::observe(std::function<void(std::string_view key)> changed) {
    auto observer = std::make_shared<Observer>(std::move(changed));
    impl_->observers.push_back(observer);
    return observer;
}

}  // namespace elmworth
