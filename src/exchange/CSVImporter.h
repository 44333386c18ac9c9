// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/FileSource.h"
#include "platform/Instant.h"
#include "platform/Progress.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Why a file was not imported. The message is the sentence to show; the library is as it was.
class ImportError : public std::runtime_error {
 public:
    enum class Code {
        unrecognizedFormat,
        empty,
        tooLarge,  ///< a file that would not fit into memory
        unknownEncoding,
    };
    explicit ImportError(Code code);
    [[nodiscard]] Code code() const noexcept { return code_; }

 private:
    Code code_;
};

/// Brings time that was tracked elsewhere into the library: this program's own CSV export, or a
/// detailed report of Toggl Track.
namespace CSVImporter {

struct Row {
    std::string client;   ///< may be empty
    std::string project;  ///< may be empty
    std::string notes;
    Instant start;
    Instant end;  ///< after `start`

    friend bool operator==(const Row&, const Row&) = default;
};

struct Result {
    std::int64_t imported = 0;
    std::vector<std::string> newClients;  ///< in the order of their creation
    std::int64_t skipped = 0;             ///< rows that the library held already
};

/// The rows of `text` (UTF-8) that can be read, in their order; others are dropped. Times without
/// an offset are meant in `zoneID`. Throws ImportError when the format is unknown or no row is
/// left, or Cancelled.
[[nodiscard]] std::vector<Row> parse(std::string_view text, const std::string& zoneID,
                                     Progress& progress = noProgress());

/// The same from a file in whatever encoding. Also throws std::filesystem::filesystem_error.
[[nodiscard]] std::vector<Row> readFile(FileSource& file, const std::string& zoneID,
                                        Progress& progress = noProgress());

/// An import of more rows may be too much to be undone.
inline constexpr std::size_t mostUndoableRows = 4095;

/// Adds `rows` and the clients and projects that they need, and saves. A row of the same project,
/// start and end (in whole seconds) as an entry that is there is skipped, so a second import of a
/// file adds nothing. Names match without regard to case and to how characters are composed. Throws
/// StoreError or Cancelled; the changes then stay pending, or are rolled back when there were so
/// many that some had gone to the disk before the save. A library of which a part can't be read
/// gets no change at all.
Result apply(const std::vector<Row>& rows, UnitOfWork& context, Progress& progress = noProgress());

/// What to tell after an import.
[[nodiscard]] std::string message(const Result& result);

}  // namespace CSVImporter

}  // namespace elmworth
