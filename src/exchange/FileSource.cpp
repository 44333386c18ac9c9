// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/FileSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace elmworth {

FileSource::FileSource(const std::filesystem::path& file)
    : file_(file),
      // A pipe without a writer must not keep the program waiting.
      descriptor_(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    checkFile();
}

FileSource::FileSource(int descriptor, std::string_view name)
    : file_(name), descriptor_(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)) {
    checkFile();
}

void FileSource::checkFile() {
    if (descriptor_ < 0) fail(errno);
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) fail(errno);
    if (S_ISDIR(status.st_mode)) fail(EISDIR);
    if (!S_ISREG(status.st_mode)) fail(EINVAL);
    size_ = static_cast<std::size_t>(status.st_size);
}

FileSource::~FileSource() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::string_view FileSource::nextPiece() {
    ssize_t count = 0;
    do {
        count = ::read(descriptor_, buffer_.data(), buffer_.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) fail(errno);
    bytesRead_ += static_cast<std::size_t>(count);
    return {buffer_.data(), static_cast<std::size_t>(count)};
}

std::string FileSource::readAll() {
    std::string content;
    for (auto piece = nextPiece(); !piece.empty(); piece = nextPiece()) content += piece;
    return content;
}

void FileSource::fail(int error) {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
    throw std::filesystem::filesystem_error("cannot read", file_,
                                            std::error_code(error, std::generic_category()));
}

}  // namespace elmworth
