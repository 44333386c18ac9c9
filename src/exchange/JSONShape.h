// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace elmworth {

/// A value of a JSON document that is neither object nor array.
struct JSONScalar {
    enum class Kind { null, boolean, integer, otherNumber, text };
    Kind kind = Kind::null;
    bool boolean = false;
    std::int64_t integer = 0;
    std::string_view text{};
};

struct JSONFrame;

/// What may stand at a place of a document, and what to do with it. Kinds without a function are
/// refused with the words of `expectation`.
struct JSONSlot {
    const char* expectation;  ///< "not a date"
    /// Takes a scalar; false refuses it.
    std::function<bool(const JSONScalar&)> scalar = {};
    std::function<JSONFrame()> object = {};
    std::function<JSONFrame()> array = {};
    /// Takes back what an equal key before a null has given; only for optional keys.
    std::function<void()> clear = {};
};

/// One key of an object. An optional key may be missing or null.
struct JSONField {
    std::string_view name;
    bool isRequired;
    JSONSlot slot;
    bool wasRead = false;
};

/// An object or array that is being read.
struct JSONFrame {
    std::vector<JSONField> fields = {};  ///< of an object; unknown keys are passed over
    JSONSlot item{"", {}, {}, {}, {}};   ///< of an array
    bool isArray = false;
};

/// A document that is no JSON or not of the shape: one sentence with the key's path and the line.
class JSONShapeError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Reads a JSON document whose root is an object of the shape `root`, from the pieces that
/// `nextPiece` gives until it gives an empty one. Neither the length of the document nor its depth
/// costs memory or stack. Throws JSONShapeError.
void readJSON(const std::function<std::string_view()>& nextPiece, JSONFrame root);

}  // namespace elmworth
