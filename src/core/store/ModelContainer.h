// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "core/store/ModelContext.h"

namespace elmworth {

/// The library could not be opened. The message is the program's fatal one, with the reason.
class ModelContainerError : public std::runtime_error {
 public:
    explicit ModelContainerError(const std::string& reason)
        : std::runtime_error("Could not create ModelContainer: " + reason) {}
};

/// Where a library lives.
struct ModelConfiguration {
    /// The library file; absent for a library in memory that dies with the container.
    std::optional<std::filesystem::path> url;

    /// The user's library: "library.sqlite" in `applicationSupportFolder()`; in memory for a demo
    /// and for a hosted run (the environment holds "XCTestConfigurationFilePath").
    [[nodiscard]] static ModelConfiguration standard(bool isDemo);
};

/// An open library. One for the whole process; nobody else may have the file open (see
/// LibraryLock).
class ModelContainer {
 public:
    /// Opens the library, and makes a new one where there is no file; one of an older version
    /// becomes one of this version first. Throws ModelContainerError for a file that is no library,
    /// is damaged, is of a newer or an unknown version, or cannot be written; it is left as it was.
    ModelContainer(const ModelConfiguration& configuration, RunLoop& runLoop);
    ModelContainer(const ModelContainer&) = delete;
    ModelContainer& operator=(const ModelContainer&) = delete;
    ~ModelContainer();

    /// The one context; all reads and writes go through it, on the main thread.
    [[nodiscard]] ModelContext& mainContext() noexcept { return *context_; }

 private:
    std::unique_ptr<ModelContext> context_;
};

}  // namespace elmworth
