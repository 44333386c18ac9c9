// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/prettywriter.h>

#include <functional>
#include <string>
#include <string_view>

#include "exchange/BackupReceiver.h"

namespace elmworth {

/// Takes the bytes of a document piece by piece.
using ByteSink = std::function<void(std::string_view)>;

/// Writes a backup document as indented JSON with its keys in order, piece by piece: a library of
/// any size takes the memory of a piece. Whatever the values are, the document can be read: what is
/// not UTF-8 in a text stands as U+FFFD, a date beyond the years 0 to 9999 as the nearest one
/// within.
class BackupWriter final : public BackupReceiver {
 public:
    explicit BackupWriter(ByteSink sink) : stream_{std::move(sink), {}}, writer_(stream_) {}

    void begin() override;
    void beginClient(const ClientDTO& client) override;
    void beginProject(const ProjectDTO& project) override;
    void entry(const EntryDTO& entry) override;
    void endProject(const ProjectDTO& project) override;
    void endClient(const ClientDTO& client) override;
    void beginInvoices(Instant exportedAt) override;
    void invoice(const InvoiceDTO& invoice) override;
    void end(const BusinessProfile& profile, std::int64_t version) override;

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

    void profile(const BusinessProfile& profile);
    void key(std::string_view name);
    void text(std::string_view name, std::string_view value);
    void number(std::string_view name, std::int64_t value);
    void flag(std::string_view name, bool value);
    void date(std::string_view name, Instant value);

    Stream stream_;
    std::size_t repairedTexts_ = 0;
    rapidjson::PrettyWriter<Stream> writer_;
};

}  // namespace elmworth
