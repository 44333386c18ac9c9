// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "store/UnitOfWork.h"

namespace elmworth {

/// The library could not be opened. The message is the program's fatal one, with the reason.
class LibraryError : public std::runtime_error {
 public:
    explicit LibraryError(const std::string& reason)
        : std::runtime_error("Could not create ModelContainer: " + reason) {}
};

/// Where a library lives.
struct LibraryOptions {
    /// The library file; absent for a library in memory that dies with the container.
    std::optional<std::filesystem::path> url;

    /// The user's library: "library.sqlite" in `dataFolder()`; in memory for a demo
    /// and for a hosted run (the environment holds "XCTestConfigurationFilePath").
    [[nodiscard]] static LibraryOptions standard(bool isDemo);
};

/// An open library. One for the whole process; nobody else may have the file open (see
/// LibraryLock).
class Library {
 public:
    /// Opens the library, and makes a new one where there is no file; one of an older version
    /// becomes one of this version first. Throws LibraryError for a file that is no library,
    /// is damaged, is of a newer or an unknown version, or cannot be written; it is left as it was.
    Library(const LibraryOptions& configuration, RunLoop& runLoop);
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    /// The one context; all reads and writes go through it, on the main thread.
    [[nodiscard]] UnitOfWork& mainContext() noexcept { return *context_; }

 private:
    std::unique_ptr<UnitOfWork> context_;
};

}  // namespace elmworth
