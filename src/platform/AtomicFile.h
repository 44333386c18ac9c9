// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"

namespace elmworth {

/// Who may read a file that is written.
class FileAccess {
 public:
    /// Its owner alone: what lies in the program's own folders.
    [[nodiscard]] static FileAccess ownerOnly() { return FileAccess(std::nullopt); }

    /// Whoever `umask` lets, or whoever could read the file that is replaced: what lies where a
    /// person put it.
    [[nodiscard]] static FileAccess forUmask(unsigned umask) { return FileAccess(umask); }

    /// The mode of a new file at `target`, such as 0644.
    [[nodiscard]] unsigned mode(const std::filesystem::path& target) const;

 private:
    explicit FileAccess(std::optional<unsigned> umask) : umask_(umask) {}

    std::optional<unsigned> umask_;
};

/// This process's umask. Other threads may go on making files meanwhile.
[[nodiscard]] unsigned currentUmask();

/// Writes a file so that its name holds either the old content or the whole new one, also when the
/// power fails or the disk is full.
///
/// The content goes to a temporary file of mode 0600 in the same folder; `commit` gives it its
/// mode, syncs it, renames it over the target and syncs the folder. An object that dies without
/// `commit` removes the temporary file and leaves the target as it was.
///
/// Every operation throws std::filesystem::filesystem_error with the target's path and the system's
/// error; after that the target is as it was. Only when the folder cannot be synced at last does
/// the name already hold the new content, of which a power failure may still bring back the old.
class AtomicFile {
 public:
    /// Opens the temporary file beside `target`, whose folder must exist. A link stays one, and
    /// what it leads to is written. A folder, a device or a pipe is refused.
    explicit AtomicFile(std::filesystem::path target, FileAccess access = FileAccess::ownerOnly());
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Appends all of `bytes`.
    void write(std::string_view bytes);

    /// The temporary file, for code that writes to a path of its own; it must keep the file.
    [[nodiscard]] const std::filesystem::path& temporaryPath() const noexcept { return temporary_; }

    /// Waits until what was written is on the disk, so that `commit` need not.
    void sync();

    /// Makes the content durable under the target's name. At most once.
    void commit();

 private:
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    FileAccess access_;
    int descriptor_ = -1;
};

/// Writes `bytes` to `target` through an `AtomicFile`.
void writeAtomically(const std::filesystem::path& target, std::string_view bytes,
                     FileAccess access = FileAccess::ownerOnly());

/// Reads a whole regular file. Throws std::filesystem::filesystem_error, also for folders and
/// devices.
[[nodiscard]] std::string readFile(const std::filesystem::path& file);

/// Removes from `folder` the temporary files of AtomicFile that were last written before `before`:
/// whoever wrote them was killed, or the power failed. All other files stay. What can be neither
/// listed nor removed is left for the next time.
void removeStaleTempFiles(const std::filesystem::path& folder, Instant before);

}  // namespace elmworth
