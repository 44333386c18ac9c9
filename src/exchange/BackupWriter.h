// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/prettywriter.h>

#include <functional>
#include <string>
#include <string_view>

#include "exchange/Backup.h"

namespace elmworth {

/// Takes the bytes of a document piece by piece.
using ByteSink = std::function<void(std::string_view)>;

/// Writes a backup document as indented JSON with its keys in order, piece by piece, so that nobody
/// needs to hold all of it. Whatever the values are, the document can be read: what is not UTF-8 in
/// a text stands as U+FFFD, a date beyond the years 0 to 9999 as the nearest one within; a frozen
/// profile that can't be read is left out.
///
/// The calls come in this order: begin; for each client beginList, its projects, endList; for each
/// project beginList, its entries, endList; beginInvoices; the invoices; end.
class BackupWriter {
 public:
    explicit BackupWriter(ByteSink sink) : stream_{std::move(sink), {}}, writer_(stream_) {}

    void begin();
    /// Writes `object` up to its list, and what stands behind that. Its own items are not looked
    /// at.
    void beginList(const BackupObject& object);
    void endList(const BackupObject& object);
    /// Writes `object` with its items.
    void write(const BackupObject& object);
    void beginInvoices(Instant exportedAt);
    void end(const BusinessProfile& profile, std::int64_t version);

    /// How many texts were not UTF-8.
    [[nodiscard]] std::size_t repairedTexts() const noexcept { return repairedTexts_; }

 private:
    /// A stream of RapidJSON's that hands on what it has gathered.
    struct Stream {
        using Ch = char;
        ByteSink sink;
        std::string gathered;

        void Put(char c) {
            gathered.push_back(c);
            if (gathered.size() >= pieceSize) Flush();
        }
        void Flush() {
            sink(gathered);
            gathered.clear();
        }
        static constexpr std::size_t pieceSize = 1 << 16;
    };

    void key(std::string_view name);
    void field(const BackupKey& key, const Value& value);
    void frozenProfile(std::string_view name, const std::string& json);
    void fields(const BackupObject& object, std::size_t first, std::size_t end);

    Stream stream_;
    std::size_t repairedTexts_ = 0;
    rapidjson::PrettyWriter<Stream> writer_;
};

}  // namespace elmworth
