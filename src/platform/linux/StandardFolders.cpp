// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/StandardFolders.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace elmworth {
namespace {

std::filesystem::path pathFromEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

std::filesystem::path homeFolder() {
    if (auto home = pathFromEnvironment("HOME"); !home.empty()) return home;
    const passwd* user = ::getpwuid(::getuid());
    return user == nullptr ? "/" : user->pw_dir;
}

/// Relative paths in these variables are invalid and count as not set.
std::filesystem::path baseFolder(const char* variable, const char* belowHome) {
    auto folder = pathFromEnvironment(variable);
    return folder.is_absolute() ? folder : homeFolder() / belowHome;
}

/// That of the TemporaryDataFolder; empty while there is none.
std::filesystem::path& temporaryDataFolder() {
    static std::filesystem::path folder;
    return folder;
}

/// What is synced in a new folder is lost with the folder's own name. Folders that can't be read,
/// and file systems that know no sync of folders, leave it to the next journal.
void syncQuietly(const std::filesystem::path& folder) noexcept {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace

std::filesystem::path dataFolder() {
    if (TemporaryDataFolder::isInUse()) return temporaryDataFolder();
    return baseFolder("XDG_DATA_HOME", ".local/share") / "Elmworth";
}

std::filesystem::path settingsFolder() {
    return baseFolder("XDG_CONFIG_HOME", ".config") / "Elmworth";
}

TemporaryDataFolder::TemporaryDataFolder() {
    std::error_code error;
    auto folder = std::filesystem::temp_directory_path(error);
    if (error) folder = "/tmp";  // TMPDIR names no folder
    std::string name = folder / "elmworth-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::filesystem::filesystem_error("cannot create the folder", name,
                                                std::error_code(errno, std::generic_category()));
    }
    temporaryDataFolder() = name;
}

TemporaryDataFolder::~TemporaryDataFolder() {
    std::error_code ignored;  // nobody looks for anything there
    std::filesystem::remove_all(temporaryDataFolder(), ignored);
    temporaryDataFolder().clear();
}

bool TemporaryDataFolder::isInUse() {
    return !temporaryDataFolder().empty();
}

std::filesystem::path createPrivateFolder(const std::filesystem::path& folder) {
    if (folder.empty() || std::filesystem::is_directory(folder)) return folder;
    if (folder != folder.parent_path()) createPrivateFolder(folder.parent_path());
    constexpr mode_t onlyForTheUser = 0700;
    const bool made = ::mkdir(folder.c_str(), onlyForTheUser) == 0;
    const int error = errno;
    if (!made && !std::filesystem::is_directory(folder))
        throw std::filesystem::filesystem_error("cannot create the folder", folder,
                                                std::error_code(error, std::generic_category()));
    if (made) syncQuietly(folder.parent_path());
    return folder;
}

}  // namespace elmworth
