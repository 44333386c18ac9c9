// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/JSONShape.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <limits>
#include <optional>

#include "records/BusinessProfile.h"

namespace elmworth {

namespace {

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

/// Takes RapidJSON's events and walks the shape. An event that returns false ends the parsing.
class ShapeHandler {
 public:
    explicit ShapeHandler(JSONFrame root) : root_(std::move(root)) {}

    [[nodiscard]] const std::string& failure() const noexcept { return failure_; }

    bool Null() { return scalar({}); }
    bool Bool(bool value) { return scalar({JSONScalar::Kind::boolean, value}); }
    bool Int(int value) { return Int64(value); }
    bool Uint(unsigned value) { return Int64(value); }
    bool Int64(std::int64_t value) { return scalar({JSONScalar::Kind::integer, false, value}); }
    bool Uint64(std::uint64_t value) {
        constexpr auto largest = std::numeric_limits<std::int64_t>::max();
        if (value > static_cast<std::uint64_t>(largest)) {
            return scalar({JSONScalar::Kind::otherNumber});
        }
        return Int64(static_cast<std::int64_t>(value));
    }
    bool Double(double value) {
        const auto whole = wholeNumber(value);
        return whole ? Int64(*whole) : scalar({JSONScalar::Kind::otherNumber});
    }
    bool RawNumber(const char* /*text*/, rapidjson::SizeType /*length*/, bool /*copy*/) {
        return scalar({JSONScalar::Kind::otherNumber});
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return scalar({JSONScalar::Kind::text, false, 0, {text, length}});
    }
    bool StartObject() { return begin(&JSONSlot::object, false); }
    bool StartArray() { return begin(&JSONSlot::array, true); }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/);
    bool EndObject(rapidjson::SizeType /*members*/);
    bool EndArray(rapidjson::SizeType /*elements*/);

 private:
    struct Open {
        JSONFrame frame;
        JSONField* current = nullptr;
        std::size_t index = 0;
    };

    /// The slot of the value that comes now; null where it is passed over.
    JSONSlot* slot() {
        auto& open = stack_.back();
        if (open.frame.isArray) return &open.frame.item;
        return open.current ? &open.current->slot : nullptr;
    }

    bool scalar(const JSONScalar& value);
    bool begin(std::function<JSONFrame()> JSONSlot::*opens, bool isArray);
    bool end();
    void valueEnded();
    bool fail(const std::string& what);
    [[nodiscard]] std::string path(bool withCurrent) const;

    JSONFrame root_;
    std::vector<std::unique_ptr<Open>> frames_;
    struct Stack {
        std::vector<std::unique_ptr<Open>>& frames;
        [[nodiscard]] Open& back() const { return *frames.back(); }
    } stack_{frames_};
    std::size_t skippedDepth_ = 0;
    std::string failure_;
};

std::string ShapeHandler::path(bool withCurrent) const {
    std::string path;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        const auto& open = *frames_[i];
        if (i + 1 == frames_.size() && !withCurrent) break;
        if (open.frame.isArray) {
            path += '[' + std::to_string(open.index) + ']';
        } else if (open.current) {
            path += (path.empty() ? "" : ".") + std::string(open.current->name);
        }
    }
    return path.empty() ? "The document" : path;
}

bool ShapeHandler::fail(const std::string& what) {
    failure_ = what;
    return false;
}

void ShapeHandler::valueEnded() {
    auto& open = stack_.back();
    if (open.frame.isArray) {
        ++open.index;
    } else if (open.current) {
        open.current->wasRead = true;
    }
}

bool ShapeHandler::scalar(const JSONScalar& value) {
    if (skippedDepth_ > 0) return true;
    if (frames_.empty()) return fail("The document: not an object");
    JSONSlot* expected = slot();
    if (!expected) return true;
    const auto& open = stack_.back();
    const bool isOptional = !open.frame.isArray && !open.current->isRequired;
    if (isOptional && value.kind == JSONScalar::Kind::null) {
        if (expected->clear) expected->clear();
        return true;
    }
    if (!expected->scalar || !expected->scalar(value)) {
        return fail(path(true) + ": " + expected->expectation);
    }
    valueEnded();
    return true;
}

bool ShapeHandler::begin(std::function<JSONFrame()> JSONSlot::*opens, bool isArray) {
    if (skippedDepth_ > 0) {
        ++skippedDepth_;
        return true;
    }
    if (frames_.empty()) {
        if (isArray) return fail("The document: not an object");
        frames_.push_back(std::make_unique<Open>(Open{std::move(root_)}));
        return true;
    }
    JSONSlot* expected = slot();
    if (!expected) {
        skippedDepth_ = 1;
        return true;
    }
    if (!(expected->*opens)) return fail(path(true) + ": " + expected->expectation);
    frames_.push_back(std::make_unique<Open>(Open{(expected->*opens)()}));
    return true;
}

bool ShapeHandler::Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
    if (skippedDepth_ > 0) return true;
    auto& open = stack_.back();
    open.current = nullptr;
    for (auto& field : open.frame.fields) {
        if (field.name == std::string_view(text, length)) open.current = &field;
    }
    return true;
}

bool ShapeHandler::EndObject(rapidjson::SizeType /*members*/) {
    if (skippedDepth_ == 0) {
        for (const auto& field : stack_.back().frame.fields) {
            if (!field.isRequired || field.wasRead) continue;
            return fail(path(false) + ": the key \"" + std::string(field.name) + "\" is missing");
        }
    }
    return end();
}

bool ShapeHandler::EndArray(rapidjson::SizeType /*elements*/) {
    return end();
}

bool ShapeHandler::end() {
    if (skippedDepth_ > 0) {
        --skippedDepth_;
        return true;
    }
    frames_.pop_back();
    if (!frames_.empty()) valueEnded();
    return true;
}

}  // namespace

void readJSON(const std::function<std::string_view()>& nextPiece, JSONFrame root) {
    // The iterative parser keeps its own stack: a deep document must not exhaust the program's.
    constexpr unsigned flags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
    PieceStream stream(nextPiece);
    ShapeHandler handler(std::move(root));
    rapidjson::Reader reader;
    const auto result = reader.Parse<flags>(stream, handler);
    if (!result.IsError() && stream.isAtEnd()) return;
    const std::string place = " (line " + std::to_string(stream.line()) + ").";
    if (!result.IsError()) {
        throw JSONShapeError("This file is no JSON document: There is a NUL byte behind it" +
                             place);
    }
    if (!handler.failure().empty()) throw JSONShapeError(handler.failure() + place);
    std::string reason = rapidjson::GetParseError_En(result.Code());
    if (!reason.empty() && reason.back() == '.') reason.pop_back();
    throw JSONShapeError("This file is no JSON document: " + reason + place);
}

}  // namespace elmworth
