// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace elmworth {

/// Writes a file so that its name holds either the old content or the whole new one, also when the
/// power fails or the disk is full.
///
/// The content goes to a temporary file of mode 0600 in the same folder; `commit` syncs it, renames
/// it over the target and syncs the folder. An object that dies without `commit` removes the
/// temporary file and leaves the target as it was.
///
/// Every operation throws std::filesystem::filesystem_error with the target's path and the system's
/// error; after that the target is as it was. Only when the folder cannot be synced at last does
/// the name already hold the new content, of which a power failure may still bring back the old.
class AtomicFile {
 public:
    /// Opens the temporary file beside `target`, whose folder must exist. A link stays one, and
    /// what it leads to is written. A folder, a device or a pipe is refused.
    explicit AtomicFile(std::filesystem::path target);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Appends all of `bytes`.
    void write(std::string_view bytes);

    /// The temporary file, for code that writes to a path of its own; it must keep the file.
    [[nodiscard]] const std::filesystem::path& temporaryPath() const noexcept { return temporary_; }

    /// Makes the content durable under the target's name. At most once.
    void commit();

 private:
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    int descriptor_ = -1;
};

/// Writes `bytes` to `target` through an `AtomicFile`.
void writeAtomically(const std::filesystem::path& target, std::string_view bytes);

/// Reads a whole regular file. Throws std::filesystem::filesystem_error, also for folders and
/// devices.
[[nodiscard]] std::string readFile(const std::filesystem::path& file);

}  // namespace elmworth
