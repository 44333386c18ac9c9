// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "support/RawDatabase.h"

namespace elmworth::test {

/// Overwrites the first page of the table `table` in the library `file`, which must be closed, as
/// a disk would that gives other bytes back than it was given. Its indexes stay.
inline void damageTable(const std::filesystem::path& file, const std::string& table) {
    std::size_t page = 0;
    std::size_t pageSize = 0;
    {
        RawDatabase raw(file);
        raw.run("PRAGMA wal_checkpoint(TRUNCATE)");
        page = std::stoul(
            raw.rows("SELECT rootpage FROM sqlite_schema WHERE type = 'table' AND name = '" +
                     table + "'")
                .front());
        pageSize = std::stoul(raw.rows("PRAGMA page_size").front());
    }
    std::fstream bytes(file, std::ios::binary | std::ios::in | std::ios::out);
    bytes.seekp(static_cast<std::streamoff>((page - 1) * pageSize));
    bytes << std::string(pageSize, '\xA5');
}

}  // namespace elmworth::test
