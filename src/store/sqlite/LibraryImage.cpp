// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/LibraryImage.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "store/sqlite/LibraryFile.h"
#include "store/sqlite/LogFrames.h"

namespace elmworth::sqlite {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view magic{"SQLite format 3\0", 16};
constexpr std::size_t headSize = 100;
constexpr std::size_t countsPages = 28;  // where in the head
constexpr std::size_t isVersion = 60;
constexpr std::size_t isApplication = 68;

/// A file that is only read.
class ReadOnlyFile {
 public:
    /// Absent when there is none of that name.
    static std::optional<ReadOnlyFile> open(const fs::path& file) {
        const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (descriptor >= 0) return ReadOnlyFile(descriptor);
        if (errno == ENOENT) return std::nullopt;
        fail(file, errno);
    }
    [[noreturn]] static void fail(const fs::path& file, int error) {
        throw fs::filesystem_error("cannot read the library", file,
                                   std::error_code(error, std::generic_category()));
    }
    ReadOnlyFile(ReadOnlyFile&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}
    ReadOnlyFile& operator=(ReadOnlyFile&&) = delete;
    ~ReadOnlyFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    /// What changes when somebody else writes the file.
    [[nodiscard]] std::pair<std::int64_t, std::int64_t> stamp() const {
        struct stat status {};
        ::fstat(descriptor_, &status);
        return {status.st_size,
                status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec};
    }
    [[nodiscard]] bool isRegular() const {
        struct stat status {};
        return ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    }

    /// All bytes; those that can't be read are zeros, and are counted.
    [[nodiscard]] std::string readAll(std::size_t& unreadable) const {
        std::string bytes(static_cast<std::size_t>(stamp().first), '\0');
        std::size_t piece = largePiece;
        for (std::size_t done = 0; done < bytes.size();) {
            const auto count =
                ::pread(descriptor_, bytes.data() + done, std::min(piece, bytes.size() - done),
                        static_cast<off_t>(done));
            if (count > 0) {
                done += static_cast<std::size_t>(count);
            } else if (count == 0) {
                bytes.resize(done);  // it has become shorter
            } else if (errno != EINTR && piece > smallPiece) {
                piece = smallPiece;  // what is beside the bad place may be readable
            } else if (errno != EINTR) {
                const std::size_t lost =
                    std::min(smallPiece - done % smallPiece, bytes.size() - done);
                unreadable += lost;
                done += lost;
            }
        }
        return bytes;
    }
    [[nodiscard]] std::string readHead(std::size_t size) const {
        std::string bytes(size, '\0');
        const auto count = ::pread(descriptor_, bytes.data(), size, 0);
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }

 private:
    explicit ReadOnlyFile(int descriptor) : descriptor_(descriptor) {}

    static constexpr std::size_t largePiece = 1 << 20;
    static constexpr std::size_t smallPiece = 4096;
    int descriptor_;
};

/// A library and its log that belong together.
struct Files {
    std::string library;
    std::string log;
    std::size_t unreadable = 0;
};

/// Absent when somebody has moved the log into the library meanwhile. That writes the library, and
/// the log gets another head; a log that only grows holds the same commits as before.
std::optional<Files> readFiles(const ReadOnlyFile& library,
                               const std::optional<ReadOnlyFile>& log) {
    constexpr std::size_t logHead = 32;
    const auto head = [&] { return log ? log->readHead(logHead) : std::string(); };
    const auto stampBefore = library.stamp();
    const auto headBefore = head();
    Files files;
    files.library = library.readAll(files.unreadable);
    if (log) files.log = log->readAll(files.unreadable);
    if (library.stamp() != stampBefore || head() != headBefore) return std::nullopt;
    return files;
}

Files readFiles(const fs::path& file) {
    const auto library = ReadOnlyFile::open(file);
    if (!library) ReadOnlyFile::fail(file, ENOENT);
    if (!library->isRegular()) ReadOnlyFile::fail(file, EINVAL);
    constexpr int tries = 20;
    for (int i = 0; i < tries; ++i) {
        const auto log = ReadOnlyFile::open(file.string() + "-wal");
        if (auto files = readFiles(*library, log)) return std::move(*files);
    }
    throw StoreError(StoreError::Code::other,
                     "The library " + file.string() + " is being written all the time; try again.");
}

}  // namespace

LibraryImage::LibraryImage(const fs::path& file) {
    Files files = readFiles(file);
    bytes_ = std::move(files.library);
    unreadableBytes_ = files.unreadable;
    choosePageSize(files.log);
    layLogOver(files.log);
    leaveLogMode();
}

LibraryImage::LibraryImage(std::string bytes) : bytes_(std::move(bytes)) {
    choosePageSize({});
    leaveLogMode();
}

void LibraryImage::choosePageSize(std::string_view log) {
    if (bytes_.starts_with(magic) && bytes_.size() >= headSize) {
        const std::size_t stored = bigEndian(bytes_, 16) >> 16;
        if (stored == 1) pageSize_ = 65536;
        if (isPageSize(stored)) pageSize_ = stored;
    } else if (const auto size = readLogFrames(log).pageSize) {
        pageSize_ = size;
    }
}

void LibraryImage::layLogOver(std::string_view log) {
    const auto frames = readLogFrames(log);
    lostCommits_ = frames.lostCommits;
    if (frames.pageCount == 0 || frames.pageSize != pageSize_) return;
    // A damaged frame can't stand here, but a page of it may be beyond all that a library has.
    const std::size_t pages = std::min(frames.pageCount, pageCount() + log.size() / pageSize_ + 1);
    bytes_.resize(pages * pageSize_, '\0');
    for (const auto& [page, place] : frames.pages) {
        if (page == 0 || page > pages) continue;
        bytes_.replace((page - 1) * pageSize_, pageSize_, log.substr(place, pageSize_));
    }
}

/// SQLite has no log for pages in memory, and would ask for it.
void LibraryImage::leaveLogMode() noexcept {
    constexpr std::size_t writeMode = 18;
    constexpr std::size_t readMode = 19;
    if (bytes_.size() < headSize) return;
    for (const auto place : {writeMode, readMode}) {
        if (bytes_[place] == 2) bytes_[place] = 1;
    }
}

std::size_t LibraryImage::missingPages() const noexcept {
    const std::size_t expected = headNumber(countsPages);
    const std::size_t whole = bytes_.size() / pageSize_;
    // A number that no library can have is damaged itself.
    return isLibrary() && expected > whole && expected < (std::size_t{1} << 24) ? expected - whole
                                                                                : 0;
}

std::string_view LibraryImage::page(std::size_t number) const noexcept {
    if (number == 0 || number > pageCount()) return {};
    return std::string_view(bytes_).substr((number - 1) * pageSize_, pageSize_);
}

std::uint32_t LibraryImage::headNumber(std::size_t offset) const noexcept {
    return bytes_.size() < headSize ? 0 : bigEndian(bytes_, offset);
}

bool LibraryImage::isLibrary() const noexcept {
    return bytes_.starts_with(magic) && headNumber(isApplication) == libraryApplicationID;
}

std::uint32_t LibraryImage::version() const noexcept {
    return headNumber(isVersion);
}

Database LibraryImage::open() const {
    Database database(":memory:");
    auto* const bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes_.data()));
    const auto size = static_cast<sqlite3_int64>(bytes_.size());
    const int code = sqlite3_deserialize(database.handle(), "main", bytes, size, size,
                                         SQLITE_DESERIALIZE_READONLY);
    if (code != SQLITE_OK) fail(code, sqlite3_errmsg(database.handle()));
    database.execute("PRAGMA cell_size_check = ON");
    return database;
}

std::string serialized(const Database& database) {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
        sqlite3_serialize(database.handle(), "main", &size, 0), &sqlite3_free);
    if (!bytes) fail(SQLITE_NOMEM, "There is not enough memory for this");
    return {reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size)};
}

}  // namespace elmworth::sqlite
