// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupDecoder.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <bitset>
#include <functional>
#include <utility>

#include "records/FieldJSON.h"

namespace elmworth {

namespace {

/// RapidJSON counts bytes and items in 32 bits, and goes astray beyond.
constexpr std::size_t largestDocument = 4'000'000'000;

/// A stream of RapidJSON's over pieces of bytes, which counts lines.
class PieceStream {
 public:
    using Ch = char;

    explicit PieceStream(const std::function<std::string_view()>& nextPiece)
        : nextPiece_(nextPiece), piece_(nextPiece()) {}

    [[nodiscard]] char Peek() const { return piece_.empty() ? '\0' : piece_[position_]; }
    char Take() {
        const char c = Peek();
        if (piece_.empty()) return c;
        ++taken_;
        if (c == '\n') ++line_;
        if (++position_ == piece_.size()) {
            piece_ = nextPiece_();
            position_ = 0;
        }
        return c;
    }
    [[nodiscard]] std::size_t Tell() const noexcept { return taken_; }
    [[nodiscard]] std::size_t line() const noexcept { return line_; }
    /// A NUL byte ends the document for RapidJSON; what follows it would go unseen.
    [[nodiscard]] bool isAtEnd() const noexcept { return piece_.empty(); }

    // Asked for by RapidJSON's interface, for parsing in place.
    static char* PutBegin() { return nullptr; }
    static void Put(char /*c*/) {}
    static void Flush() {}
    static std::size_t PutEnd(char* /*begin*/) { return 0; }

 private:
    const std::function<std::string_view()>& nextPiece_;
    std::string_view piece_;
    std::size_t position_ = 0;
    std::size_t taken_ = 0;
    std::size_t line_ = 1;
};

/// Takes RapidJSON's events and builds the objects of the document. An event that returns false
/// ends the parsing.
class DocumentHandler : public JSONScalars<DocumentHandler> {
 public:
    /// Where `counts` are given, the items of lists are counted and not kept.
    explicit DocumentHandler(BackupCounts* counts) : counts_(counts) {}

    [[nodiscard]] const std::string& failure() const noexcept { return failure_; }
    [[nodiscard]] BackupObject takeDocument() { return std::move(document_); }

    bool scalar(const JSONScalar& value);
    bool StartObject();
    bool StartArray();
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/);
    bool EndObject(rapidjson::SizeType /*members*/);
    bool EndArray(rapidjson::SizeType /*elements*/);

 private:
    static constexpr std::size_t unknown = static_cast<std::size_t>(-1);

    /// An object, or a list of such, that is being read.
    struct Open {
        BackupObject object;
        bool isList = false;
        std::size_t current = unknown;  ///< the position of the key, or in the list
        std::bitset<32> wasRead = {};   ///< the keys
    };

    /// The key whose value comes now; null in a list, and where the value is passed over.
    [[nodiscard]] const BackupKey* key() const {
        const Open& open = open_.back();
        return open.isList || open.current == unknown ? nullptr
                                                      : &open.object.shape->keys[open.current];
    }
    bool open(const BackupShape& shape) {
        open_.push_back({BackupObject(shape)});
        return true;
    }
    bool skip() {
        ++skippedDepth_;
        return true;
    }
    bool put(Value value);
    void keep(BackupObject item);

    bool fail(std::string what) {
        failure_ = std::move(what);
        return false;
    }
    /// Refuses the value that comes now.
    bool failHere();
    [[nodiscard]] std::string path(std::size_t depth) const;

    BackupCounts* counts_;
    BackupObject document_{backupShapes().document};
    std::vector<Open> open_;
    std::size_t skippedDepth_ = 0;
    std::string failure_;
};

std::string DocumentHandler::path(std::size_t depth) const {
    std::string path;
    for (std::size_t i = 0; i < depth; ++i) {
        const Open& open = open_[i];
        if (open.isList) {
            path += '[' + std::to_string(open.current) + ']';
        } else {
            const auto name = open.object.shape->keys[open.current].name;
            path += (path.empty() ? "" : ".") + std::string(name);
        }
    }
    return path.empty() ? "The document" : path;
}

bool DocumentHandler::failHere() {
    const BackupKey* wanted = key();
    const char* fault = !wanted         ? "not an object"
                        : wanted->items ? "not an array"
                                        : faultOf(wanted->kind);
    return fail(path(open_.size()) + ": " + fault);
}

bool DocumentHandler::put(Value value) {
    Open& open = open_.back();
    open.object.values[open.current] = std::move(value);
    open.wasRead.set(open.current);
    return true;
}

bool DocumentHandler::scalar(const JSONScalar& value) {
    if (skippedDepth_ > 0) return true;
    if (open_.empty()) return fail("The document: not an object");
    const BackupKey* wanted = key();
    if (!wanted) return open_.back().isList ? failHere() : true;
    if (!wanted->isRequired && value.kind == JSONScalar::Kind::null) return put({});
    auto taken = wanted->isScalar() ? fieldValue(wanted->kind, value) : std::nullopt;
    return taken ? put(std::move(*taken)) : failHere();
}

bool DocumentHandler::StartObject() {
    if (skippedDepth_ > 0) return skip();
    if (open_.empty()) return open(backupShapes().document);
    if (open_.back().isList) return open(*open_.back().object.shape);
    const BackupKey* wanted = key();
    if (!wanted) return skip();
    return wanted->kind == FieldKind::profile ? open(backupShapes().profile) : failHere();
}

bool DocumentHandler::StartArray() {
    if (skippedDepth_ > 0) return skip();
    if (open_.empty()) return fail("The document: not an object");
    const BackupKey* wanted = key();
    if (!wanted) return open_.back().isList ? failHere() : skip();
    if (!wanted->items) return failHere();
    std::erase_if(open_.back().object.items,  // of two equal keys the last counts
                  [&](const auto& item) { return item.shape == wanted->items; });
    open_.push_back({BackupObject(*wanted->items), true, 0});
    return true;
}

bool DocumentHandler::Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
    if (skippedDepth_ > 0) return true;
    Open& open = open_.back();
    const auto& keys = open.object.shape->keys;
    open.current = unknown;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i].name == std::string_view(text, length)) open.current = i;
    }
    return true;
}

bool DocumentHandler::EndObject(rapidjson::SizeType /*members*/) {
    if (skippedDepth_ > 0) {
        --skippedDepth_;
        return true;
    }
    const auto& keys = open_.back().object.shape->keys;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!keys[i].isRequired || open_.back().wasRead[i]) continue;
        return fail(path(open_.size() - 1) + ": the key \"" + std::string(keys[i].name) +
                    "\" is missing");
    }
    BackupObject object = std::move(open_.back().object);
    open_.pop_back();
    if (open_.empty()) {
        document_ = std::move(object);
        return true;
    }
    if (!open_.back().isList) return put(Blob{encodeProfile(profileOf(object))});
    keep(std::move(object));
    return true;
}

void DocumentHandler::keep(BackupObject item) {
    ++open_.back().current;
    if (!counts_) {
        open_[open_.size() - 2].object.items.push_back(std::move(item));
        return;
    }
    const auto& shapes = backupShapes();
    if (item.shape == &shapes.entry) ++counts_->entries;
    if (item.shape == &shapes.project) ++counts_->projects;
    if (item.shape == &shapes.client) ++counts_->clients;
    if (item.shape == &shapes.invoice) ++counts_->invoices;
}

bool DocumentHandler::EndArray(rapidjson::SizeType /*elements*/) {
    if (skippedDepth_ > 0) {
        --skippedDepth_;
        return true;
    }
    open_.pop_back();
    return put({});  // the list itself stands among the items
}

/// Reads the pieces that `nextPiece` gives until it gives an empty one. Neither the length of what
/// is passed over nor its depth costs memory or stack.
BackupObject read(const std::function<std::string_view()>& nextPiece, BackupCounts* counts) {
    // The iterative parser keeps its own stack: a deep document must not exhaust the program's.
    constexpr unsigned flags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
    PieceStream stream(nextPiece);
    DocumentHandler handler(counts);
    rapidjson::Reader reader;
    const auto result = reader.Parse<flags>(stream, handler);
    if (!result.IsError() && stream.isAtEnd()) return handler.takeDocument();
    std::string fault = handler.failure();
    if (fault.empty()) {
        std::string reason = result.IsError() ? rapidjson::GetParseError_En(result.Code())
                                              : "There is a NUL byte behind it";
        if (reason.ends_with('.')) reason.pop_back();
        fault = "This file is no JSON document: " + reason;
    }
    throw BackupDecodeError(fault + " (line " + std::to_string(stream.line()) + ").");
}

std::function<std::string_view()> piecesOf(FileSource& source, Progress& progress) {
    return [&] {
        if (std::max(source.size(), source.bytesRead()) > largestDocument) {
            throw BackupDecodeError("This file is larger than 4 GB, more than a backup can be.");
        }
        progress.advance("Reading", source.bytesRead(), source.size());
        return source.nextPiece();
    };
}

}  // namespace

Backup decodeBackup(FileSource& source, Progress& progress) {
    BackupObject document = read(piecesOf(source, progress), nullptr);
    Backup backup;
    backup.version = std::get<std::int64_t>(document["version"]);
    backup.exportedAt = FieldTraits<Instant>::fromValue(document["exportedAt"]);
    backup.profile = decodeProfile(std::get<Blob>(document["profile"]).bytes).value();
    for (auto& item : document.items) {
        auto& list = item.shape == &backupShapes().client ? backup.clients : backup.invoices;
        list.push_back(std::move(item));
    }
    return backup;
}

BackupCounts countBackup(FileSource& source, Progress& progress) {
    BackupCounts counts;
    read(piecesOf(source, progress), &counts);
    return counts;
}

}  // namespace elmworth
