// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace elmworth {
namespace {

constexpr unsigned permissions = 0777;

/// What the names of the temporary files begin with; six letters or digits follow.
constexpr std::string_view temporaryFilePrefix = ".elmworth-";

[[noreturn]] void fail(const char* what, const std::filesystem::path& file, int error) {
    throw std::filesystem::filesystem_error(what, file,
                                            std::error_code(error, std::generic_category()));
}

/// An open file that is closed when the scope ends.
class Descriptor {
 public:
    Descriptor(const std::filesystem::path& path, int flags)
        : number_(::open(path.c_str(), flags | O_CLOEXEC)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    [[nodiscard]] int number() const noexcept { return number_; }

 private:
    int number_;
};

std::filesystem::path folderOf(const std::filesystem::path& file) {
    const auto parent = file.parent_path();
    return parent.empty() ? "." : parent;
}

/// The file that a name means: a link stays, and what it leads to is replaced.
std::filesystem::path resolved(std::filesystem::path target) {
    std::error_code error;
    constexpr int longestChain = 40;  // as the kernel has it
    for (int i = 0; i < longestChain && std::filesystem::is_symlink(target, error); ++i) {
        target = folderOf(target) / std::filesystem::read_symlink(target, error);
    }
    // A rename would put a file in the place of a device or a pipe, /dev/null among them.
    const auto status = std::filesystem::status(target, error);
    if (std::filesystem::is_directory(status)) fail("cannot replace", target, EISDIR);
    if (std::filesystem::is_other(status)) fail("cannot replace", target, EPERM);
    return target;
}

std::string readAll(int descriptor, const std::filesystem::path& file) {
    std::string content;
    char buffer[65536];
    while (true) {
        const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
        if (count == 0) return content;
        if (count > 0) content.append(buffer, static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) fail("cannot read", file, errno);
    }
}

bool isStale(const std::filesystem::path& file, Instant before) {
    constexpr std::size_t randomLetters = 6;
    const std::string name = file.filename().string();
    if (!name.starts_with(temporaryFilePrefix)) return false;
    if (name.size() != temporaryFilePrefix.size() + randomLetters) return false;
    std::error_code error;
    if (!std::filesystem::is_regular_file(std::filesystem::symlink_status(file, error)))
        return false;
    const auto written = std::filesystem::last_write_time(file, error);
    return !error && std::chrono::file_clock::to_sys(written) < before;
}

}  // namespace

unsigned FileAccess::mode(const std::filesystem::path& target) const {
    if (!umask_) return S_IRUSR | S_IWUSR;
    struct stat replaced {};
    if (::stat(target.c_str(), &replaced) == 0) return replaced.st_mode & permissions;
    return 0666 & ~*umask_;
}

unsigned currentUmask() {
    // umask() tells it only by setting another one, which would hold for other threads.
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        unsigned umask = 0;
        if (std::sscanf(line.c_str(), "Umask: %o", &umask) == 1) return umask;
    }
    return S_IRWXG | S_IRWXO;
}

AtomicFile::AtomicFile(std::filesystem::path target, FileAccess access)
    : target_(resolved(std::move(target))), access_(access) {
    // Not derived from the target's name, which may be as long as a file system allows.
    std::string name = folderOf(target_) / (std::string(temporaryFilePrefix) + "XXXXXX");
    descriptor_ = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor_ < 0) fail("cannot write beside", target_, errno);
    temporary_ = std::move(name);
}

AtomicFile::~AtomicFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void AtomicFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) fail("cannot write", target_, errno);
    }
}

void AtomicFile::sync() {
    if (::fsync(descriptor_) != 0) fail("cannot sync", target_, errno);
}

void AtomicFile::commit() {
    // A file system without modes keeps none, which must not cost the content.
    [[maybe_unused]] const int ignored = ::fchmod(descriptor_, access_.mode(target_));
    sync();
    // A rename is only durable once the folder that holds the name is. It is opened before, so that
    // a folder that can't be read, or one file too many, refuses while the target is as it was.
    const Descriptor folder(folderOf(target_), O_RDONLY | O_DIRECTORY);
    if (folder.number() < 0) fail("cannot open the folder of", target_, errno);
    if (::close(std::exchange(descriptor_, -1)) != 0) fail("cannot close", target_, errno);
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) fail("cannot replace", target_, errno);
    temporary_.clear();
    // Some network file systems know no sync of folders.
    if (::fsync(folder.number()) != 0 && errno != EINVAL)
        fail("cannot sync the folder of", target_, errno);
}

void writeAtomically(const std::filesystem::path& target, std::string_view bytes,
                     FileAccess access) {
    AtomicFile file(target, access);
    file.write(bytes);
    file.commit();
}

std::string readFile(const std::filesystem::path& file) {
    // Opening a pipe without this flag would wait for its other end.
    const Descriptor source(file, O_RDONLY | O_NONBLOCK);
    if (source.number() < 0) fail("cannot open", file, errno);
    struct stat status {};
    if (::fstat(source.number(), &status) != 0) fail("cannot read", file, errno);
    if (S_ISDIR(status.st_mode)) fail("cannot read", file, EISDIR);
    if (!S_ISREG(status.st_mode)) fail("cannot read", file, EINVAL);
    return readAll(source.number(), file);
}

void removeStaleTempFiles(const std::filesystem::path& folder, Instant before) {
    std::vector<std::filesystem::path> stale;
    std::error_code error;
    for (std::filesystem::directory_iterator item(folder, error), end; !error && item != end;
         item.increment(error)) {
        if (isStale(item->path(), before)) stale.push_back(item->path());
    }
    for (const auto& file : stale) {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
}

}  // namespace elmworth
